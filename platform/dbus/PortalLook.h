#pragma once

#include "app/DesktopLook.h"
#include "platform/dbus/PortalSetting.h"

namespace palomet {

/// The user's wishes as the portal tells them. The panel of one desktop is dark in every scheme. Where nobody says
/// anything panels are light, but for compositors that have panels of either scheme; those of XFCE always may be
/// either. Where motion has no setting of its own yet, GNOME's switch for animations stands for it.
class PortalLook final : public DesktopLook {
public:
    /// `desktop` is the desktop's name, as `$XDG_CURRENT_DESKTOP` has it.
    PortalLook(const QDBusConnection &bus, const QString &desktop);

    [[nodiscard]] Scheme panelScheme() const override { return m_look.panelScheme; }
    [[nodiscard]] bool isMotionReduced() const override { return m_look.isMotionReduced; }
    [[nodiscard]] bool isContrastRaised() const override { return m_look.isContrastRaised; }

private:
    struct Look {
        Scheme panelScheme = Scheme::Light;
        bool isMotionReduced = false;
        bool isContrastRaised = false;

        bool operator==(const Look &) const = default;
    };
    [[nodiscard]] Look currentLook() const;
    [[nodiscard]] Scheme panelSchemeNow() const;

    const bool m_isPanelAlwaysDark;
    const bool m_isPanelOfItsOwn; ///< It has the colours of a theme that no portal tells.
    const Scheme m_usualPanelScheme;
    const PortalSetting m_scheme;
    const PortalSetting m_motion;
    const PortalSetting m_animations;
    const PortalSetting m_contrast;
    const PortalSetting m_highContrast; ///< What says it on a desktop whose portal does not know the other yet.
    Look m_look;
};

} // namespace palomet
