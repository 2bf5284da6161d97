#include "platform/dbus/PortalColors.h"

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

constexpr uint preferDark = 1;

} // namespace

PortalColors::PortalColors(const QDBusConnection &bus, const QString &desktop)
    : m_isAlwaysDark(desktop.split(u':').contains("GNOME"_L1))
    , m_preference(bus, u"org.freedesktop.appearance"_s, u"color-scheme"_s)
    , m_scheme(currentScheme()) {
    QObject::connect(&m_preference, &PortalSetting::changed, &m_preference, [this] {
        const auto before = std::exchange(m_scheme, currentScheme());
        if (m_scheme != before)
            onChange();
    });
}

DesktopColors::Scheme PortalColors::currentScheme() const {
    const auto &value = m_preference.value();
    const bool isDark = value.typeId() == QMetaType::UInt && value.toUInt() == preferDark;
    return isDark || m_isAlwaysDark ? Scheme::Dark : Scheme::Light;
}

} // namespace palomet
