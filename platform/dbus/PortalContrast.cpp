#include "platform/dbus/PortalContrast.h"

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

constexpr uint higherContrast = 1;

} // namespace

PortalContrast::PortalContrast(const QDBusConnection &bus)
    : m_preference(bus, u"org.freedesktop.appearance"_s, u"contrast"_s) {
    QObject::connect(&m_preference, &PortalSetting::changed, &m_preference, [this] {
        const auto &value = m_preference.value();
        const bool isRaised = value.typeId() == QMetaType::UInt && value.toUInt() == higherContrast;
        if (std::exchange(m_isRaised, isRaised) != isRaised)
            onChange();
    });
}

} // namespace palomet
