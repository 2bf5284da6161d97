#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <memory>

namespace palomet::bench {

/// The backend's end of the link, blocking and bare, so that what is measured is the link. One thread.
class Peer {
public:
    Peer();

    [[nodiscard]] quint16 port() const { return m_server.serverPort(); }
    [[nodiscard]] QUrl url() const;

    /// Waits for the connection and, if told so, shakes hands as a WebSocket server does.
    void accept(bool isWebSocket);

    /// Sends one text message.
    void sendText(const QByteArray &text);

    /// Waits until something comes and takes all of it.
    QByteArray take();

    /// Takes what has come, without waiting.
    QByteArray takeNow();

private:
    QTcpServer m_server;
    std::unique_ptr<QTcpSocket> m_socket;
};

} // namespace palomet::bench
