#include "base/DisplayRoute.h"

namespace palomet {

using namespace Qt::StringLiterals;
using Way = DisplayRoute::Way;
using Reason = DisplayRoute::Reason;
using Compositor = Displays::Compositor;

namespace {

DisplayRoute followUser(const Displays &displays) {
    if (displays.chosen.startsWith("xcb"_L1)) {
        const auto way = displays.isWaylandSession ? Way::XWayland : Way::X11;
        return {displays.hasX11() ? way : Way::None, Reason::User, false};
    }
    if (displays.chosen.startsWith("wayland"_L1))
        return {Way::Wayland, Reason::User, displays.compositor() == Compositor::WithLayers};
    return {Way::Other, Reason::User, false};
}

} // namespace

DisplayRoute chooseDisplayRoute(const Displays &displays) {
    if (!displays.chosen.isEmpty())
        return followUser(displays);
    if (!displays.isWaylandSession && displays.hasX11())
        return {Way::X11, Reason::Session, false};
    const auto compositor = displays.hasPlugin ? displays.compositor() : Compositor::None;
    if (compositor == Compositor::WithLayers)
        return {Way::Wayland, Reason::Session, true};
    if (displays.isWaylandSession && displays.hasX11())
        return {Way::XWayland, displays.hasPlugin ? Reason::NoLayers : Reason::NoPlugin, false};
    if (compositor == Compositor::WithoutLayers)
        return {Way::Wayland, Reason::NoLayers, false};
    return {Way::None, displays.hasPlugin ? Reason::Session : Reason::NoPlugin, false};
}

} // namespace palomet
