#include "platform/dbus/PortalMotion.h"

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

PortalMotion::PortalMotion(const QDBusConnection &bus)
    : m_preference(bus, u"org.freedesktop.appearance"_s, u"reduced-motion"_s)
    , m_animations(bus, u"org.gnome.desktop.interface"_s, u"enable-animations"_s) {
    for (const auto *setting : {&m_preference, &m_animations})
        QObject::connect(setting, &PortalSetting::changed, setting, [this] { update(); });
}

void PortalMotion::update() {
    const auto &preference = m_preference.value();
    const auto &animations = m_animations.value();
    const bool isReduced = preference.typeId() == QMetaType::UInt
                               ? preference.toUInt() == 1
                               : animations.typeId() == QMetaType::Bool && !animations.toBool();
    if (std::exchange(m_isReduced, isReduced) != isReduced)
        onChange();
}

} // namespace palomet
