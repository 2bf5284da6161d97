#pragma once

#include <QSize>

namespace palomet {

/// Port: what the desktop's window manager is told of a window. Windows are named by the toolkit's ids. Main thread
/// only.
class WindowManagement {
public:
    WindowManagement() = default;
    WindowManagement(const WindowManagement &) = delete;
    WindowManagement &operator=(const WindowManagement &) = delete;
    virtual ~WindowManagement() = default;

    /// Says whose window it is, so that the desktop shows the program's name and icon with it. Before it first shows.
    virtual void introduce(quintptr window) = 0;

    /// Asks to have a window that shows in front of all others, with the keyboard's focus, because the user has just
    /// asked for it: by a click on the tray item, a command, a second start. False where the desktop cannot be asked,
    /// and the toolkit's own way is left.
    [[nodiscard]] virtual bool activate(quintptr window) = 0;

    /// Whether the toolkit takes a window for exposed that shows, but lies wholly behind others.
    [[nodiscard]] virtual bool exposesCoveredWindows() const { return true; }

    /// Whether the toolkit holds a window at its least size where the desktop gives it less, as in a tile: the desktop
    /// then cuts off what is over.
    [[nodiscard]] virtual bool holdsLeastSize() const { return false; }

    /// What a panel and a title bar may take of a screen's size, where the toolkit is told of neither: a new window is
    /// smaller by so much than its screen.
    [[nodiscard]] virtual QSize untoldRoom() const { return {0, 0}; }

    /// Whether a window that lies behind others comes to the front only as a new one, unless the desktop gave something
    /// for it.
    [[nodiscard]] virtual bool raisesNewWindowsOnly() const { return false; }
};

} // namespace palomet
