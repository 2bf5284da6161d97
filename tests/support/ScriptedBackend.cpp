#include "tests/support/ScriptedBackend.h"

namespace palomet::test {

using namespace Qt::StringLiterals;

namespace {

const QByteArray headEnd("\r\n\r\n");

std::optional<QByteArray> headerOf(const QByteArray &head, const QByteArray &name) {
    for (const auto &line : head.split('\n')) {
        const auto colon = line.indexOf(':');
        if (colon > 0 && line.first(colon).compare(name, Qt::CaseInsensitive) == 0)
            return line.sliced(colon + 1).trimmed();
    }
    return std::nullopt;
}

} // namespace

Exchange::Exchange(QTcpSocket *socket, QByteArray head, QByteArray body)
    : m_socket(socket)
    , m_head(std::move(head))
    , m_body(std::move(body)) {}

QByteArray Exchange::method() const {
    return m_head.first(m_head.indexOf(' '));
}

QByteArray Exchange::target() const {
    return m_head.split(' ').value(1);
}

std::optional<QByteArray> Exchange::header(const QByteArray &name) const {
    return headerOf(m_head, name);
}

bool Exchange::isOpen() const {
    return m_socket && m_socket->state() == QAbstractSocket::ConnectedState;
}

void Exchange::reply(const QByteArray &body, int status) {
    write("HTTP/1.1 " + QByteArray::number(status) + " Scripted\r\ncontent-type: application/json\r\ncontent-length: " +
          QByteArray::number(body.size()) + headEnd + body);
}

void Exchange::beginEvents() {
    write("HTTP/1.1 200 OK\r\ncontent-type: text/event-stream\r\ncache-control: no-cache" + headEnd);
}

void Exchange::event(const QByteArray &name, const QByteArray &data) {
    write("event: " + name + "\ndata: " + data + "\n\n");
}

void Exchange::write(const QByteArray &bytes) {
    if (isOpen())
        m_socket->write(bytes);
}

qint64 Exchange::unsent() {
    if (!isOpen())
        return 0;
    m_socket->flush();
    return m_socket->bytesToWrite();
}

void Exchange::close() {
    if (m_socket)
        m_socket->disconnectFromHost();
}

void Exchange::abort() {
    if (m_socket)
        m_socket->abort();
}

ScriptedBackend::ScriptedBackend(quint16 port)
    : m_port(port) {
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); });
    comeUp();
}

ScriptedBackend::~ScriptedBackend() {
    goDown();
}

QUrl ScriptedBackend::base() const {
    QUrl url(u"http://127.0.0.1"_s);
    url.setPort(m_port);
    return url;
}

void ScriptedBackend::serve(const QByteArray &target, const QByteArray &body, int status) {
    on(target, [body, status](const ExchangePointer &exchange) { exchange->reply(body, status); });
}

void ScriptedBackend::hang(const QByteArray &target) {
    on(target, [](const ExchangePointer &) {});
}

std::vector<ScriptedBackend::ExchangePointer> ScriptedBackend::exchanges(const QByteArray &target) const {
    std::vector<ExchangePointer> matching;
    for (const auto &exchange : m_exchanges) {
        if (exchange->target() == target)
            matching.push_back(exchange);
    }
    return matching;
}

ScriptedBackend::ExchangePointer ScriptedBackend::last(const QByteArray &target) const {
    const auto matching = exchanges(target);
    return matching.empty() ? nullptr : matching.back();
}

void ScriptedBackend::forget() {
    std::erase_if(m_exchanges,
                  [](const auto &exchange) { return exchange->target() != "/events" || !exchange->isOpen(); });
}

void ScriptedBackend::dropConnections() {
    for (auto *socket : m_server.findChildren<QTcpSocket *>())
        socket->abort();
}

void ScriptedBackend::goDown() {
    m_server.close();
    dropConnections();
}

void ScriptedBackend::comeUp() {
    if (!m_server.listen(QHostAddress::LocalHost, m_port))
        qFatal("the scripted backend's port is taken");
    m_port = m_server.serverPort();
}

void ScriptedBackend::fallDeaf() {
    m_server.pauseAccepting();
    dropConnections();
}

void ScriptedBackend::accept() {
    while (auto *socket = m_server.nextPendingConnection()) {
        ++m_connectionCount;
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        if (m_stranger) {
            m_stranger(*socket);
            continue;
        }
        QObject::connect(socket, &QTcpSocket::readyRead, socket,
                         [this, socket, received = QByteArray()]() mutable { read(socket, received); });
    }
}

void ScriptedBackend::read(QTcpSocket *socket, QByteArray &received) {
    if (m_upgrade && received.isEmpty() && headerOf(socket->peek(8192), "upgrade") == "websocket") {
        socket->disconnect();
        m_upgrade(socket);
        return;
    }
    received += socket->readAll();
    for (;;) {
        const auto end = received.indexOf(headEnd);
        if (end < 0)
            return;
        const auto head = received.first(end + headEnd.size());
        const auto bodySize = headerOf(head, "content-length").value_or("0").toLongLong();
        if (received.size() < head.size() + bodySize)
            return;
        auto exchange = std::make_shared<Exchange>(socket, head, received.sliced(head.size(), bodySize));
        received.remove(0, head.size() + bodySize);
        m_exchanges.push_back(exchange);
        const auto script = m_scripts.find(exchange->target());
        if (script == m_scripts.end())
            exchange->reply(QByteArray(), 404);
        else
            Script(script->second)(exchange);
    }
}

} // namespace palomet::test
