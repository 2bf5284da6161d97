#pragma once

#include "app/DesktopColors.h"
#include "platform/dbus/PortalSetting.h"

namespace palomet {

/// The colour scheme that the user prefers, as the portal tells it, except on the desktop whose panel is dark in every
/// scheme.
class PortalColors final : public DesktopColors {
public:
    /// `desktop` is the desktop's name, as `$XDG_CURRENT_DESKTOP` has it.
    PortalColors(const QDBusConnection &bus, const QString &desktop);

    [[nodiscard]] Scheme panelScheme() const override { return m_scheme; }

private:
    [[nodiscard]] Scheme currentScheme() const;

    const bool m_isAlwaysDark;
    const PortalSetting m_preference;
    Scheme m_scheme;
};

} // namespace palomet
