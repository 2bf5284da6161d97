#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace palomet::test {

/// One request exactly as it came, and the connection that it came on, to answer it: at once, in pieces, later, never.
/// It may be kept as long as a test likes; writing to a connection that has ended does nothing.
class Exchange {
public:
    Exchange(QTcpSocket *socket, QByteArray head, QByteArray body);

    /// All bytes of the request.
    [[nodiscard]] QByteArray bytes() const { return m_head + m_body; }
    [[nodiscard]] const QByteArray &body() const { return m_body; }
    [[nodiscard]] QByteArray method() const;
    /// As it stands in the request, "/draft/clear".
    [[nodiscard]] QByteArray target() const;
    /// A header's value; its name is compared without regard to case.
    [[nodiscard]] std::optional<QByteArray> header(const QByteArray &name) const;
    /// Whether the client still holds the connection.
    [[nodiscard]] bool isOpen() const;

    /// A whole answer; the connection stays open for the next request.
    void reply(const QByteArray &body, int status = 200);
    /// The head of an event stream, which then has no end until `close`.
    void beginEvents();
    /// One event of such a stream.
    void event(const QByteArray &name, const QByteArray &data);
    /// Any bytes.
    void write(const QByteArray &bytes);
    /// How much of what was written the system has not taken yet; it is offered once more.
    [[nodiscard]] qint64 unsent();
    /// Everything written before still arrives.
    void close();
    /// The connection is reset.
    void abort();

private:
    QPointer<QTcpSocket> m_socket;
    QByteArray m_head;
    QByteArray m_body;
};

/// A voice backend that does what the test tells it to: an HTTP server on a port of the loopback interface, on the
/// test's own event loop. A path without a script is answered with 404 and no body.
///
///     ScriptedBackend backend;
///     backend.serve("/state", fixture("state/full.json"));          // the same answer every time
///     backend.on("/events", [](auto exchange) { exchange->beginEvents(); });
///     backend.hang("/history");                                      // accepted, never answered
///     ... eventually([&] { return backend.count("/state") == 1; });
///     backend.last("/events")->event("turnEnd", "{}");
class ScriptedBackend {
public:
    using ExchangePointer = std::shared_ptr<Exchange>;
    using Script = std::function<void(ExchangePointer)>;

    /// On a port of its choice, or on this one, which must be free.
    explicit ScriptedBackend(quint16 port = 0);
    ~ScriptedBackend();

    [[nodiscard]] QUrl base() const;
    [[nodiscard]] quint16 port() const { return m_port; }

    void on(const QByteArray &target, Script script) { m_scripts[target] = std::move(script); }
    void serve(const QByteArray &target, const QByteArray &body, int status = 200);
    void hang(const QByteArray &target);
    /// Takes each connection before a byte is read from it, instead of all scripts: what does not speak HTTP.
    void onConnection(std::function<void(QTcpSocket &)> stranger) { m_stranger = std::move(stranger); }

    /// Takes each connection that asks to become a WebSocket, with the request still to be read from it.
    void onUpgrade(std::function<void(QTcpSocket *)> upgrade) { m_upgrade = std::move(upgrade); }

    /// Every request so far, in the order in which they were complete.
    [[nodiscard]] const std::vector<ExchangePointer> &exchanges() const { return m_exchanges; }
    [[nodiscard]] std::vector<ExchangePointer> exchanges(const QByteArray &target) const;
    [[nodiscard]] int count(const QByteArray &target) const { return static_cast<int>(exchanges(target).size()); }
    /// The latest request of that target; null when there was none.
    [[nodiscard]] ExchangePointer last(const QByteArray &target) const;
    /// Forgets the requests so far, but for the event stream: one that answers for hours would hold them all.
    void forget();
    [[nodiscard]] int connectionCount() const { return m_connectionCount; }

    /// Ends every connection.
    void dropConnections();
    /// Ends every connection and refuses new ones, until `comeUp` on the same port.
    void goDown();
    void comeUp();
    /// Ends every connection and takes no new one, while the system grants them in its name; until `goDown`.
    void fallDeaf();

private:
    void accept();
    void read(QTcpSocket *socket, QByteArray &received);

    QTcpServer m_server;
    quint16 m_port = 0;
    std::map<QByteArray, Script> m_scripts;
    std::function<void(QTcpSocket &)> m_stranger;
    std::function<void(QTcpSocket *)> m_upgrade;
    std::vector<ExchangePointer> m_exchanges;
    int m_connectionCount = 0;
};

} // namespace palomet::test
