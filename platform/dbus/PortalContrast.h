#pragma once

#include "app/DesktopContrast.h"
#include "platform/dbus/PortalSetting.h"

namespace palomet {

/// What the user wants of contrast, as the portal tells it.
class PortalContrast final : public DesktopContrast {
public:
    explicit PortalContrast(const QDBusConnection &bus);

    [[nodiscard]] bool isRaised() const override { return m_isRaised; }

private:
    const PortalSetting m_preference;
    bool m_isRaised = false;
};

} // namespace palomet
