#pragma once

#include "platform/x11/X11Modifiers.h"
#include "shortcuts/HotKeyGrabber.h"

#include <QObject>
#include <QTimer>

#include <xcb/xcb.h>

#include <map>
#include <set>

namespace palomet {

class X11Connection;

/// Hot keys by passive grabs on the root window, one for each state of the lock keys. They follow a new keyboard
/// mapping.
class X11HotKeyGrabber final : public QObject, public HotKeyGrabber {
    Q_OBJECT

public:
    /// `connection` outlives this.
    explicit X11HotKeyGrabber(X11Connection &connection);
    ~X11HotKeyGrabber() override;

    [[nodiscard]] bool grab(quint32 id, quint32 keyCode, quint32 modifiers) override;
    void release(quint32 id) override;

private:
    struct Combination {
        quint8 keycode;
        quint32 modifiers;
    };

    void received(const xcb_generic_event_t &event);
    [[nodiscard]] bool take(const Combination &combination);
    void give(const Combination &combination);
    /// A key that is down already when it is grabbed repeats as if it were pressed, and its release may go elsewhere.
    void rememberHeld(quint8 keycode);
    void forgetReleased();
    void regrabLater();
    void regrab();

    X11Connection &m_connection;
    X11Modifiers m_mapping;
    std::map<quint32, Combination> m_grabs;
    std::set<quint8> m_down; ///< Keycodes that are held; what comes of them now is auto-repeat.
    /// Keycodes that were held before they were grabbed, each with the number of the request that found them so.
    std::map<quint8, quint32> m_heldBefore;
    QTimer m_glance; ///< Looks whether they are up again.
    bool m_isRegrabPending = false;
};

} // namespace palomet
