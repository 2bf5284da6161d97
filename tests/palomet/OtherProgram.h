#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HotKeyGrabber.h"
#include "platform/x11/XcbReply.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateDisplay.h"

namespace palomet::test {

/// Another program on the same display, which wants keys too.
class OtherProgram {
public:
    explicit OtherProgram(const PrivateDisplay &display)
        : m_connection(X11Connection::open(display.name())) {
        m_grabber.onPressed = [this](quint32) { ++m_presses; };
    }

    /// Whether it was granted; it then holds the key.
    [[nodiscard]] bool take(quint32 keyCode, quint32 modifiers) { return m_grabber.grab(1, keyCode, modifiers); }
    void give() {
        m_grabber.release(1);
        QCoreApplication::sendPostedEvents(&m_grabber);
        // The answer to a question behind it says that it is done: whoever takes the key next uses another connection.
        auto *connection = m_connection->get();
        const XcbReply<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
        m_connection->deliverLater();
    }
    /// Whether nobody holds the key.
    [[nodiscard]] bool isFree(quint32 keyCode, quint32 modifiers) {
        const bool isTaken = take(keyCode, modifiers);
        give();
        return isTaken;
    }
    [[nodiscard]] bool isFreeInTheEnd(quint32 keyCode, quint32 modifiers) {
        return eventually([&] { return isFree(keyCode, modifiers); });
    }
    /// How often a key that it held was pressed.
    [[nodiscard]] int presses() const { return m_presses; }

private:
    std::unique_ptr<X11Connection> m_connection;
    X11HotKeyGrabber m_grabber{*m_connection};
    int m_presses = 0;
};

} // namespace palomet::test
