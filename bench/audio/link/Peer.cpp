#include "bench/audio/link/Peer.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <cstdio>
#include <cstdlib>

namespace palomet::bench {

namespace {

constexpr int patienceMs = 10000;

void require(bool holds, const char *what) {
    if (holds)
        return;
    std::fprintf(stderr, "the peer failed: %s\n", what);
    std::exit(1);
}

} // namespace

Peer::Peer() {
    require(m_server.listen(QHostAddress::LocalHost), "listen");
}

QUrl Peer::url() const {
    return QUrl(QStringLiteral("ws://127.0.0.1:%1/audio").arg(port()));
}

void Peer::accept(bool isWebSocket) {
    require(m_server.waitForNewConnection(patienceMs), "accept");
    m_socket.reset(m_server.nextPendingConnection());
    m_socket->setParent(nullptr);
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    if (!isWebSocket)
        return;
    QByteArray request;
    while (!request.contains("\r\n\r\n"))
        request += take();
    const auto begin = request.indexOf("Sec-WebSocket-Key: ") + 19;
    const auto key = request.mid(begin, request.indexOf("\r\n", begin) - begin);
    const auto accepted =
        QCryptographicHash::hash(key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11", QCryptographicHash::Sha1).toBase64();
    m_socket->write("HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                    "Sec-WebSocket-Accept: " +
                    accepted + "\r\n\r\n");
    m_socket->flush();
}

void Peer::sendText(const QByteArray &text) {
    QByteArray frame("\x81", 1);
    const auto append = [&](auto size) {
        const auto bigEndian = qToBigEndian(size);
        frame.append(reinterpret_cast<const char *>(&bigEndian), sizeof bigEndian);
    };
    if (text.size() < 126) {
        append(static_cast<quint8>(text.size()));
    } else if (text.size() < 65536) {
        frame += '\x7e';
        append(static_cast<quint16>(text.size()));
    } else {
        frame += '\x7f';
        append(static_cast<quint64>(text.size()));
    }
    m_socket->write(frame + text);
    while (m_socket->bytesToWrite() > 0)
        require(m_socket->waitForBytesWritten(patienceMs), "write");
}

QByteArray Peer::take() {
    if (m_socket->bytesAvailable() == 0)
        require(m_socket->waitForReadyRead(patienceMs), "read");
    return m_socket->readAll();
}

QByteArray Peer::takeNow() {
    m_socket->waitForReadyRead(0);
    return m_socket->readAll();
}

} // namespace palomet::bench
