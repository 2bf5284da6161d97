#pragma once

#include <QByteArray>
#include <QObject>

#include <xcb/xcb.h>

#include <chrono>
#include <memory>
#include <optional>

class QSocketNotifier;

namespace palomet {

/// A connection to the X server of our own, beside the toolkit's: what it grabs is released by the server when the
/// program ends, however it ends. Main thread only.
class X11Connection final : public QObject {
    Q_OBJECT

public:
    /// Null when the server does not answer or lacks the keyboard extension. Empty: the display that the environment
    /// names.
    static std::unique_ptr<X11Connection> open(const QByteArray &display = {});
    ~X11Connection() override;

    /// Whether the server of the display that the environment names can be connected to. One that takes a connection
    /// and never answers is waited for as long as that, or for ever; a thread may stay behind with it until the program
    /// ends. Needs no application object.
    [[nodiscard]] static bool isPossible(std::optional<std::chrono::milliseconds> patience = {});

    [[nodiscard]] xcb_connection_t *get() const { return m_connection.get(); }
    [[nodiscard]] quint32 root() const { return m_root; }
    /// The first byte of the keyboard extension's events.
    [[nodiscard]] quint8 keyboardEvent() const { return m_keyboardEvent; }

    /// To be called after a request was answered: events may have come in with the answer, and nothing else would wake
    /// us.
    void deliverLater();

Q_SIGNALS:
    void received(const xcb_generic_event_t &event);

private:
    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

    X11Connection(Connection connection, quint32 root, quint8 keyboardEvent);
    void deliver();

    Connection m_connection;
    quint32 m_root;
    quint8 m_keyboardEvent;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace palomet
