#pragma once

#include <QString>

#include <functional>

namespace palomet {

/// How the toolkit's windows come to the screen, and why so.
struct DisplayRoute {
    enum class Way {
        None, ///< There is no display.
        X11,
        XWayland,
        Wayland,
        Other, ///< The user's own choice, which is the toolkit's business.
    };
    enum class Reason {
        Session,  ///< The session is of that kind, and nothing is missing.
        User,     ///< `QT_QPA_PLATFORM` says so.
        NoPlugin, ///< The toolkit's part for Wayland is not installed.
        NoLayers, ///< The compositor, if there is one, places nothing above all windows, as the strip needs it.
    };

    Way way = Way::None;
    Reason reason = Reason::Session;
    bool hasLayers = false; ///< On Wayland: the compositor can place the strip above all windows.
};

/// What can be found out about the displays of this session. What is asked is asked only where the answer counts: a
/// question to XWayland starts it.
struct Displays {
    enum class Compositor { None, WithoutLayers, WithLayers };

    QString chosen; ///< As `QT_QPA_PLATFORM` has it; empty where the user leaves the choice to us.
    bool isWaylandSession = false;
    bool hasPlugin = false; ///< The toolkit can speak to a compositor.
    std::function<bool()> hasX11;
    std::function<Compositor()> compositor;
};

/// Wayland's own windows where the compositor can place the strip, else XWayland's, where the strip places itself.
[[nodiscard]] DisplayRoute chooseDisplayRoute(const Displays &displays);

} // namespace palomet
