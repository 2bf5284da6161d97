#pragma once

#include "ui/shell/WindowManagement.h"

#include <QObject>
#include <QString>

#include <xcb/xcb.h>

namespace palomet {

class X11Connection;

/// Asks for the focus by `_NET_ACTIVE_WINDOW`, in the words that are kept for what the user does directly, and at the
/// server's time of now. The toolkit asks at the time of the last key or click in its own windows, which is before what
/// the user has done since in another program: a window manager then only calls for attention. Whose a window is says
/// the name of the desktop file, under the names that the desktops have for it.
class X11WindowManagement final : public QObject, public WindowManagement {
    Q_OBJECT

public:
    /// `desktopFile` is its name without its ending. `connection` outlives this.
    X11WindowManagement(X11Connection &connection, const QString &desktopFile);
    ~X11WindowManagement() override;

    void introduce(quintptr window) override;
    /// The request follows when the server has told its time. False without a window manager that knows it.
    [[nodiscard]] bool activate(quintptr window) override;

private:
    struct Atoms {
        xcb_atom_t supported;
        xcb_atom_t activeWindow;
        xcb_atom_t userTime;
        xcb_atom_t userTimeWindow;
    };

    void received(const xcb_generic_event_t &event);
    void request(xcb_timestamp_t now);

    X11Connection &m_connection;
    const QByteArray m_desktopFile;
    const Atoms m_atoms;
    const xcb_window_t m_clock; ///< A window whose changes the server dates.
    xcb_window_t m_wanted = XCB_NONE;
};

} // namespace palomet
