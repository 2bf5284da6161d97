#pragma once

#include <QCryptographicHash>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <vector>

namespace palomet::test {

/// The backend's end of the audio link byte by byte: agrees to become a WebSocket, unless the test says otherwise, and
/// leaves all that follows to the test.
struct RawAudioBackend {
    QTcpServer server;
    std::vector<QTcpSocket *> peers; ///< Of all connections, the first one first.
    bool isReading = false;          ///< On goes on with `received` behind the request.
    QByteArray received;
    /// Its answer to the request.
    std::function<QByteArray(const QByteArray &request)> answer = &agreement;

    RawAudioBackend() {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            QTcpSocket *peer = server.nextPendingConnection();
            peers.push_back(peer);
            QObject::connect(peer, &QTcpSocket::readyRead, peer, [this, peer, isAsked = false]() mutable {
                if (isAsked) {
                    received += peer->readAll();
                    return;
                }
                isAsked = true;
                peer->write(answer(peer->readAll()));
                if (isReading)
                    return;
                peer->disconnect(SIGNAL(readyRead()));
                peer->setReadBufferSize(1);
            });
        });
    }

    [[nodiscard]] QUrl url() const { return QUrl(QStringLiteral("ws://127.0.0.1:%1/audio").arg(server.serverPort())); }

    static QByteArray agreement(const QByteArray &request) {
        const auto key = request.mid(request.indexOf("Sec-WebSocket-Key: ") + 19, 24);
        const auto accept =
            QCryptographicHash::hash(key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11", QCryptographicHash::Sha1);
        return "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
               "Sec-WebSocket-Accept: " +
               accept.toBase64() + "\r\n\r\n";
    }
};

} // namespace palomet::test
