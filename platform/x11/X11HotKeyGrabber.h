#pragma once

#include "platform/x11/X11Modifiers.h"
#include "shortcuts/HotKeyGrabber.h"

#include <QObject>
#include <QTimer>

#include <xcb/xcb.h>

#include <map>
#include <set>
#include <utility>

namespace palomet {

class X11Connection;

/// Hot keys by passive grabs on the root window, one for each state of the lock keys. They follow a new keyboard
/// mapping. What is released is given back when the event loop turns: a combination that is grabbed again before that
/// was held without a gap.
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

    /// One passive grab: a keycode and exactly these modifiers.
    using Grab = std::pair<quint8, quint16>;

    void received(const xcb_generic_event_t &event);
    void pressed(const xcb_key_press_event_t &press, quint32 sequence);
    void released(quint8 keycode, quint32 sequence);
    [[nodiscard]] std::set<Grab> grabsFor(const Combination &combination) const;
    /// Grabs what is not held of it yet: all of that, or none.
    [[nodiscard]] bool take(const Combination &combination);
    void give(const std::set<Grab> &grabs);
    /// Gives back what no combination needs any more.
    void giveRest();
    /// A key that is down already when it is grabbed repeats as if it were pressed, and its release may go elsewhere.
    void rememberHeld(quint8 keycode);
    void awaitRelease(quint8 keycode, quint32 since);
    void forgetReleased();
    void regrabLater();
    void regrab();

    X11Connection &m_connection;
    X11Modifiers m_mapping;
    std::map<quint32, Combination> m_combinations;
    std::set<Grab> m_grabs;  ///< What the server has granted.
    std::set<quint8> m_down; ///< Keycodes that are held; what comes of them now is auto-repeat.
    quint8 m_first = 0;      ///< The first of them. While it is held the server sends every key here.
    /// Keycodes that are held though their release may go elsewhere, each with the number of the request since when.
    std::map<quint8, quint32> m_heldBefore;
    QTimer m_glance; ///< Looks whether they are up again.
    bool m_isRegrabPending = false;
    bool m_isRestPending = false;
};

} // namespace palomet
