#include "audio/link/WebSocket.h"

#include <QCryptographicHash>
#include <QNetworkProxy>
#include <QRandomGenerator>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <utility>

namespace palomet {
namespace {

enum Opcode : unsigned { Text = 1, Binary = 2, Close = 8, Pong = 10 };

/// The close code of one that leaves, in network byte order.
constexpr char goingAwayCode[] = {'\x03', '\xe9'};
constexpr QByteArrayView goingAway(goingAwayCode, sizeof goingAwayCode);

/// As much as is handled before others on this thread have their turn.
constexpr qint64 pieceBytes = qint64{256} * 1024;

QByteArray makeKey() {
    std::array<quint32, 4> random;
    QRandomGenerator::global()->fillRange(random.data(), static_cast<qsizetype>(random.size()));
    return QByteArray(reinterpret_cast<const char *>(random.data()), sizeof random).toBase64();
}

QByteArray acceptance(const QByteArray &key) {
    const auto hash = QCryptographicHash::hash(key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11", QCryptographicHash::Sha1);
    return hash.toBase64();
}

} // namespace

WebSocket::WebSocket() {
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(pieceBytes);
    // A message may end the connection; the bytes behind it are then void.
    m_reader.onText = [this](QByteArrayView piece) {
        if (m_state == State::Open)
            onText(piece);
    };
    m_reader.onTextEnd = [this] {
        if (m_state == State::Open)
            onTextEnd();
    };
    m_reader.onPing = [this](QByteArrayView payload) { send(Pong, payload); };
    connect(&m_socket, &QTcpSocket::readyRead, this, [this] { receive(); });
    connect(&m_socket, &QTcpSocket::stateChanged, this, [this](QAbstractSocket::SocketState state) {
        if (state == QAbstractSocket::UnconnectedState)
            fail();
    });
}

WebSocket::~WebSocket() {
    end();
    m_socket.disconnect(this);
}

void WebSocket::end() {
    if (std::exchange(m_state, State::Closed) == State::Open && m_socket.state() == QAbstractSocket::ConnectedState)
        write(Close, goingAway);
    m_socket.abort();
}

void WebSocket::fail() {
    if (m_state == State::Closed)
        return;
    end();
    onEnd();
}

void WebSocket::open(const QUrl &url) {
    m_state = State::Asking;
    connect(&m_socket, &QTcpSocket::connected, this, [this, url] { ask(url); });
    m_socket.connectToHost(url.host(), static_cast<quint16>(url.port(80)));
}

void WebSocket::ask(const QUrl &url) {
    // A frame of the microphone does not wait for the one behind it.
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_key = makeKey();
    const auto path = url.path(QUrl::FullyEncoded).toLatin1();
    m_socket.write("GET " + (path.isEmpty() ? QByteArray("/") : path) +
                   " HTTP/1.1\r\nHost: " + url.authority(QUrl::FullyEncoded).toLatin1() +
                   "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\nSec-WebSocket-Key: " +
                   m_key + "\r\n\r\n");
}

void WebSocket::receive() {
    auto bytes = m_socket.readAll();
    if (m_state == State::Asking && !readAnswer(bytes))
        return fail();
    if (m_state == State::Open && !m_reader.read(bytes))
        fail();
}

/// Takes the server's answer to the request from the stream, leaving what follows it. False when it is no agreement.
bool WebSocket::readAnswer(QByteArray &bytes) {
    m_answer += std::exchange(bytes, {});
    const auto size = m_answer.indexOf("\r\n\r\n");
    if (size > maximumAnswerBytes || (size < 0 && m_answer.size() > maximumAnswerBytes))
        return false;
    if (size < 0)
        return true;
    if (!isAgreement(QByteArrayView(m_answer).first(size)))
        return false;
    bytes = m_answer.sliced(size + 4);
    m_answer.clear();
    m_state = State::Open;
    onOpen();
    return true;
}

bool WebSocket::isAgreement(QByteArrayView answer) const {
    const auto lines = answer.toByteArray().split('\n');
    const auto status = lines.front().split(' ');
    if (status.size() < 2 || !status[0].startsWith("HTTP/1.") || status[1].trimmed() != "101")
        return false;
    const auto has = [&](QByteArrayView name, auto isValue) {
        return std::any_of(lines.begin() + 1, lines.end(), [&](const QByteArray &line) {
            const auto colon = line.indexOf(':');
            return colon > 0 && line.first(colon).compare(name, Qt::CaseInsensitive) == 0 &&
                   isValue(line.sliced(colon + 1).trimmed());
        });
    };
    return has("Upgrade", [](const QByteArray &value) { return value.toLower() == "websocket"; }) &&
           has("Connection", [](const QByteArray &value) { return value.toLower().contains("upgrade"); }) &&
           has("Sec-WebSocket-Accept", [&](const QByteArray &value) { return value == acceptance(m_key); });
}

void WebSocket::sendText(const QByteArray &utf8) {
    send(Text, utf8);
}

void WebSocket::sendBinary(const QByteArray &bytes) {
    send(Binary, bytes);
}

void WebSocket::send(unsigned opcode, QByteArrayView payload) {
    if (m_state != State::Open)
        return;
    write(opcode, payload);
    if (m_socket.bytesToWrite() > maximumWaitingBytes)
        fail();
}

void WebSocket::write(unsigned opcode, QByteArrayView payload) {
    // The mask keeps proxies from being led astray by what is sent; every client has to.
    std::array<char, 4> mask;
    qToBigEndian(QRandomGenerator::global()->generate(), mask.data());
    QByteArray frame;
    frame.reserve(14 + payload.size());
    frame.append(static_cast<char>(0x80 | opcode));
    const auto size = static_cast<quint64>(payload.size());
    const int lengthSize = size > 0xffff ? 8 : size > 125 ? 2 : 0;
    frame.append(static_cast<char>(0x80 | (lengthSize == 8 ? 127 : lengthSize == 2 ? 126 : size)));
    for (int shift = 8 * (lengthSize - 1); shift >= 0; shift -= 8)
        frame.append(static_cast<char>(size >> shift));
    frame.append(mask.data(), mask.size());
    for (qsizetype i = 0; i < payload.size(); ++i)
        frame.append(static_cast<char>(payload[i] ^ mask[static_cast<std::size_t>(i) % mask.size()]));
    m_socket.write(frame);
    m_socket.flush();
}

} // namespace palomet
