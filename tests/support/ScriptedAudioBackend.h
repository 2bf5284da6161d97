#pragma once

#include <QHostAddress>
#include <QJsonDocument>
#include <QJsonObject>
#include <QObject>
#include <QUrl>
#include <QWebSocket>
#include <QWebSocketServer>

#include <chrono>
#include <memory>
#include <vector>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// The backend's end of the audio link, on a port of its own or on connections that it is given: writes down what comes
/// and sends what the test says.
class ScriptedAudioBackend {
public:
    struct Received {
        int connection = 0; ///< 1 for the first one.
        QJsonObject event;  ///< Of a text message.
        QByteArray audio;   ///< Of a binary message.
        std::chrono::steady_clock::time_point arrived = std::chrono::steady_clock::now();

        [[nodiscard]] QString type() const { return event.value(u"type"_s).toString(); }
    };

    ScriptedAudioBackend() { listen(); }

    [[nodiscard]] QUrl url() const { return QUrl(u"ws://127.0.0.1:%1/audio"_s.arg(m_port)); }

    std::vector<Received> received;
    int connections = 0;
    QString path; ///< That the last connection asked for.

    /// The events of one type, or all.
    [[nodiscard]] std::vector<QJsonObject> events(const QString &type = {}) const {
        std::vector<QJsonObject> found;
        for (const auto &message : received) {
            if (message.audio.isNull() && (type.isEmpty() || message.type() == type))
                found.push_back(message.event);
        }
        return found;
    }
    [[nodiscard]] std::vector<qint64> played() const {
        std::vector<qint64> ids;
        for (const auto &event : events(u"played"_s))
            ids.push_back(event.value(u"id"_s).toInteger());
        return ids;
    }
    [[nodiscard]] std::vector<QString> devices() const {
        std::vector<QString> names;
        for (const auto &event : events(u"device"_s))
            names.push_back(event.value(u"device"_s).toString());
        return names;
    }
    [[nodiscard]] std::vector<QByteArray> audio() const {
        std::vector<QByteArray> frames;
        for (const auto &message : received) {
            if (!message.audio.isNull())
                frames.push_back(message.audio);
        }
        return frames;
    }

    [[nodiscard]] bool isConnected() const { return m_socket != nullptr; }
    void send(const QString &text) { m_socket->sendTextMessage(text); }
    void sendBinary(const QByteArray &bytes) { m_socket->sendBinaryMessage(bytes); }

    /// Answers a connection that was taken elsewhere and asks to become a WebSocket.
    void take(QTcpSocket *connection) { m_server->handleConnection(connection); }

    /// Drops the connection, as a backend does that crashes; goes on listening.
    void drop() {
        if (const auto socket = std::move(m_socket)) {
            socket->disconnect();
            socket->abort();
        }
    }
    /// Nobody listens on the port until `listen`.
    void die() {
        drop();
        m_server.reset();
    }
    void listen() {
        m_server = std::make_unique<QWebSocketServer>(QString(), QWebSocketServer::NonSecureMode);
        m_server->listen(QHostAddress::LocalHost, m_port);
        m_port = m_server->serverPort();
        QObject::connect(m_server.get(), &QWebSocketServer::newConnection, m_server.get(), [this] { accept(); });
    }

private:
    void accept() {
        drop();
        m_socket.reset(m_server->nextPendingConnection());
        m_socket->setParent(nullptr);
        path = m_socket->requestUrl().path();
        const int connection = ++connections;
        const auto record = [this](Received message) { received.push_back(std::move(message)); };
        QObject::connect(m_socket.get(), &QWebSocket::textMessageReceived, m_socket.get(), [=](const QString &text) {
            record({connection, QJsonDocument::fromJson(text.toUtf8()).object(), {}});
        });
        QObject::connect(m_socket.get(), &QWebSocket::binaryMessageReceived, m_socket.get(),
                         [=](const QByteArray &bytes) {
                             record({connection, {}, bytes});
                         });
        QObject::connect(m_socket.get(), &QWebSocket::disconnected, m_socket.get(),
                         [this] { m_socket.release()->deleteLater(); });
    }

    quint16 m_port = 0;
    std::unique_ptr<QWebSocketServer> m_server;
    std::unique_ptr<QWebSocket> m_socket;
};

} // namespace palomet::test
