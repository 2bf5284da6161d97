#pragma once

#include "app/DesktopMotion.h"
#include "platform/dbus/PortalSetting.h"

namespace palomet {

/// What the user wants of motion, as the portal tells it: the setting that all desktops share or, where that is not yet
/// known, GNOME's switch for animations.
class PortalMotion final : public DesktopMotion {
public:
    explicit PortalMotion(const QDBusConnection &bus);

    [[nodiscard]] bool isReduced() const override { return m_isReduced; }

private:
    void update();

    const PortalSetting m_preference;
    const PortalSetting m_animations;
    bool m_isReduced = false;
};

} // namespace palomet
