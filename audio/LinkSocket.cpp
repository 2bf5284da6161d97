#include "audio/LinkSocket.h"

#include <QJsonDocument>
#include <QNetworkProxy>
#include <QtEndian>

#include <algorithm>

namespace palomet {

LinkSocket::LinkSocket(QUrl url, Timing timing)
    : m_url(std::move(url))
    , m_timing(timing) {
    m_reconnect.setTimerType(Qt::PreciseTimer);
    m_reconnect.setSingleShot(true);
    m_handshake.setSingleShot(true);
    connect(&m_reconnect, &QTimer::timeout, this, [this] { connectToBackend(); });
    connect(&m_handshake, &QTimer::timeout, this, [this] { fail(); });
}

void LinkSocket::offer(PcmSamples samples) noexcept {
    Chunk chunk;
    chunk.size = std::min(samples.size(), chunk.samples.size());
    std::copy_n(samples.begin(), chunk.size, chunk.samples.begin());
    m_chunks.push(chunk);
    m_bell->raise();
}

void LinkSocket::prepare(const WakeupFactory &makeWakeup) {
    m_bell = makeWakeup([this] { sendChunks(); });
}

void LinkSocket::connectToBackend() {
    m_socket = std::make_unique<QWebSocket>();
    m_socket->setProxy(QNetworkProxy::NoProxy);
    m_socket->setMaxAllowedIncomingFrameSize(maximumMessageBytes);
    m_socket->setMaxAllowedIncomingMessageSize(maximumMessageBytes);
    connect(m_socket.get(), &QWebSocket::connected, this, [this] { greet(); });
    connect(m_socket.get(), &QWebSocket::textMessageReceived, this, [this](const QString &text) { receive(text); });
    connect(m_socket.get(), &QWebSocket::stateChanged, this, [this](QAbstractSocket::SocketState state) {
        if (state == QAbstractSocket::UnconnectedState)
            fail();
    });
    m_handshake.start(m_timing.handshakeWithin);
    m_socket->open(m_url);
}

void LinkSocket::close() {
    m_reconnect.stop();
    m_handshake.stop();
    m_isGreeted = false;
    if (m_socket) {
        m_socket->disconnect(this);
        m_socket.reset();
    }
    m_bell.reset();
}

void LinkSocket::greet() {
    m_handshake.stop();
    m_isGreeted = true;
    // What was said before anybody listened is too late now.
    for (Chunk chunk; m_chunks.pop(chunk);) {
    }
    send({{QStringLiteral("type"), QStringLiteral("hello")}, {QStringLiteral("device"), m_deviceName}});
}

void LinkSocket::fail() {
    m_handshake.stop();
    m_isGreeted = false;
    // It may be the socket itself that calls.
    m_socket->disconnect(this);
    m_socket->abort();
    m_socket.release()->deleteLater();
    m_reconnect.start(m_timing.reconnectAfter);
}

void LinkSocket::receive(const QString &text) const {
    if (auto message = link::parse(text.toUtf8()))
        onMessage(std::move(*message));
}

void LinkSocket::sendDevice() {
    send({{QStringLiteral("type"), QStringLiteral("device")}, {QStringLiteral("device"), m_deviceName}});
}

void LinkSocket::sendPlayed(qint64 id) {
    send({{QStringLiteral("type"), QStringLiteral("played")}, {QStringLiteral("id"), id}});
}

void LinkSocket::send(const QJsonObject &event) {
    if (!m_isGreeted)
        return;
    m_socket->sendTextMessage(QString::fromUtf8(QJsonDocument(event).toJson(QJsonDocument::Compact)));
    m_socket->flush();
}

void LinkSocket::sendChunks() {
    for (Chunk chunk; m_chunks.pop(chunk);) {
        if (!m_isGreeted || waitingBytes() > maximumWaitingBytes)
            continue;
        QByteArray bytes(static_cast<qsizetype>(chunk.size * sizeof(std::int16_t)), Qt::Uninitialized);
        qToLittleEndian<std::int16_t>(chunk.samples.data(), static_cast<qsizetype>(chunk.size), bytes.data());
        m_socket->sendBinaryMessage(bytes);
        m_socket->flush();
    }
}

} // namespace palomet
