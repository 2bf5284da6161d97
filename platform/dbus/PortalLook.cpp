#include "platform/dbus/PortalLook.h"

#include <algorithm>
#include <array>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const auto appearance = u"org.freedesktop.appearance"_s;
// The values of that group's settings beside "no preference".
constexpr uint preferDark = 1;
constexpr uint preferLight = 2;
constexpr uint reduceMotion = 1;
constexpr uint raiseContrast = 1;

/// Whether `desktop`, as $XDG_CURRENT_DESKTOP has it, is a compositor whose panels are dark as often as light, and
/// whose portal does not say which.
bool hasPanelsOfEitherScheme(const QStringList &desktop) {
    const std::array compositors{"sway"_L1, "wlroots"_L1, "Hyprland"_L1, "river"_L1, "labwc"_L1, "Wayfire"_L1};
    return std::ranges::any_of(compositors, [&](auto name) { return desktop.contains(name, Qt::CaseInsensitive); });
}

bool says(const PortalSetting &setting, uint wish) {
    const auto &value = setting.value();
    return value.typeId() == QMetaType::UInt && value.toUInt() == wish;
}

} // namespace

PortalLook::PortalLook(const QDBusConnection &bus, const QString &desktop)
    : m_isPanelAlwaysDark(desktop.split(u':').contains("GNOME"_L1))
    , m_isPanelOfItsOwn(desktop.split(u':').contains("XFCE"_L1))
    , m_usualPanelScheme(hasPanelsOfEitherScheme(desktop.split(u':')) ? Scheme::Unknown : Scheme::Light)
    , m_scheme(bus, appearance, u"color-scheme"_s)
    , m_motion(bus, appearance, u"reduced-motion"_s)
    , m_animations(bus, u"org.gnome.desktop.interface"_s, u"enable-animations"_s)
    , m_contrast(bus, appearance, u"contrast"_s)
    , m_highContrast(bus, u"org.gnome.desktop.a11y.interface"_s, u"high-contrast"_s)
    , m_look(currentLook()) {
    for (const auto *setting : {&m_scheme, &m_motion, &m_animations, &m_contrast, &m_highContrast})
        QObject::connect(setting, &PortalSetting::changed, setting, [this] {
            const auto before = std::exchange(m_look, currentLook());
            if (m_look != before)
                onChange();
        });
}

DesktopLook::Scheme PortalLook::panelSchemeNow() const {
    if (m_isPanelOfItsOwn)
        return Scheme::Unknown;
    if (m_isPanelAlwaysDark || says(m_scheme, preferDark))
        return Scheme::Dark;
    return says(m_scheme, preferLight) ? Scheme::Light : m_usualPanelScheme;
}

PortalLook::Look PortalLook::currentLook() const {
    const auto &animations = m_animations.value();
    const bool areAnimationsOff = animations.typeId() == QMetaType::Bool && !animations.toBool();
    const auto &highContrast = m_highContrast.value();
    const bool isContrastHigh = highContrast.typeId() == QMetaType::Bool && highContrast.toBool();
    const bool hasContrast = m_contrast.value().typeId() == QMetaType::UInt;
    const bool hasMotion = m_motion.value().typeId() == QMetaType::UInt;
    return {.panelScheme = panelSchemeNow(),
            .isMotionReduced = hasMotion ? says(m_motion, reduceMotion) : areAnimationsOff,
            .isContrastRaised = hasContrast ? says(m_contrast, raiseContrast) : isContrastHigh};
}

} // namespace palomet
