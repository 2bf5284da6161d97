#include "audio/link/LinkSocket.h"

#include <QJsonDocument>
#include <QtEndian>

#include <algorithm>

namespace palomet {

LinkSocket::LinkSocket(QUrl url, Timing timing, qsizetype maximumFile, AdmitPeer admit)
    : m_url(std::move(url))
    , m_timing(timing)
    , m_maximumFile(maximumFile)
    , m_admit(std::move(admit)) {
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
    if (!m_admit(static_cast<quint16>(m_url.port()), 0)) {
        m_reconnect.start(m_timing.reconnectAfter);
        return;
    }
    m_socket = std::make_unique<WebSocket>();
    m_socket->onOpen = [this] { greet(); };
    m_socket->onText = [this](QByteArrayView piece) { m_reader.add(piece); };
    m_socket->onTextEnd = [this] { receive(); };
    m_socket->onEnd = [this] { fail(); };
    m_handshake.start(m_timing.handshakeWithin);
    m_socket->open(m_url);
}

void LinkSocket::close() {
    m_reconnect.stop();
    m_handshake.stop();
    m_isGreeted = false;
    m_socket.reset();
    m_bell.reset();
}

void LinkSocket::greet() {
    // Another may have taken the port meanwhile.
    if (!m_admit(m_socket->peerPort(), m_socket->localPort())) {
        fail();
        return;
    }
    m_handshake.stop();
    m_isGreeted = true;
    ++m_connection;
    m_reader = LinkMessageReader(m_maximumFile);
    // Chunks from before the connection are too late now.
    for (Chunk chunk; m_chunks.pop(chunk);) {
    }
    send({{QStringLiteral("type"), QStringLiteral("hello")}, {QStringLiteral("device"), m_deviceName}});
}

void LinkSocket::fail() {
    m_handshake.stop();
    m_isGreeted = false;
    // It may be the socket itself that calls.
    m_socket->end();
    m_socket.release()->deleteLater();
    m_reconnect.start(m_timing.reconnectAfter);
}

void LinkSocket::receive() {
    if (auto message = m_reader.finish())
        onMessage(std::move(*message), m_connection);
}

void LinkSocket::sendDevice() {
    send({{QStringLiteral("type"), QStringLiteral("device")}, {QStringLiteral("device"), m_deviceName}});
}

void LinkSocket::sendPlayed(ClipId id) {
    if (id.connection == m_connection)
        send({{QStringLiteral("type"), QStringLiteral("played")}, {QStringLiteral("id"), id.number}});
}

void LinkSocket::send(const QJsonObject &event) {
    if (!m_isGreeted)
        return;
    m_socket->sendText(QJsonDocument(event).toJson(QJsonDocument::Compact));
}

void LinkSocket::sendChunks() {
    for (Chunk chunk; m_chunks.pop(chunk);) {
        if (!m_isGreeted || waitingBytes() > maximumWaitingBytes)
            continue;
        QByteArray bytes(static_cast<qsizetype>(chunk.size * sizeof(std::int16_t)), Qt::Uninitialized);
        qToLittleEndian<std::int16_t>(chunk.samples.data(), static_cast<qsizetype>(chunk.size), bytes.data());
        m_socket->sendBinary(bytes);
    }
}

} // namespace palomet
