#include "model/HttpClient.h"

#include <QIODevice>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <algorithm>
#include <cstring>

namespace palomet {

namespace {

/// A body that can be read once: the network manager, which would send a request again when its connection breaks
/// before the reply, finds that it cannot.
class UnrepeatableBody final : public QIODevice {
public:
    /// `mayBeSent` is asked once there is a connection.
    UnrepeatableBody(QByteArray content, std::function<bool()> mayBeSent)
        : m_content(std::move(content))
        , m_mayBeSent(std::move(mayBeSent)) {
        open(ReadOnly | Unbuffered);
    }

    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] bool atEnd() const override { return m_read == m_content.size(); }
    [[nodiscard]] qint64 bytesAvailable() const override { return m_content.size() - m_read; }
    bool seek(qint64) override { return false; }

protected:
    qint64 readData(char *into, qint64 maximum) override {
        if (!m_mayBeSent()) {
            // Later: it is the reply's own work that asks.
            QMetaObject::invokeMethod(parent(), "abort", Qt::QueuedConnection);
            return 0;
        }
        const qint64 count = std::min(maximum, bytesAvailable());
        std::memcpy(into, m_content.constData() + m_read, static_cast<std::size_t>(count));
        m_read += count;
        return count > 0 ? count : -1;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_content;
    std::function<bool()> m_mayBeSent;
    qint64 m_read = 0;
};

/// The outcome of a request that is not sent at all.
class RefusedReply final : public QNetworkReply {
public:
    RefusedReply() {
        setError(ConnectionRefusedError, QString());
        open(ReadOnly | Unbuffered);
        QMetaObject::invokeMethod(
            this,
            [this] {
                setFinished(true);
                Q_EMIT finished();
            },
            Qt::QueuedConnection);
    }

    void abort() override {}

protected:
    qint64 readData(char *, qint64) override { return -1; }
};

void setUp(QNetworkAccessManager &manager) {
    manager.setProxy(QNetworkProxy::NoProxy);
    manager.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
}

/// The manager keeps a request with a connection of its own for minutes after its end, connection and all. So a manager
/// goes when it has sent so many.
constexpr quint64 commandsOfAManager = 16;

} // namespace

HttpClient::HttpClient(QUrl base, Scheduler &scheduler, AdmitPeer admit)
    : m_base(std::move(base))
    , m_scheduler(scheduler)
    , m_admit(std::move(admit)) {
    setUp(m_manager);
}

std::unique_ptr<HttpExchange> HttpClient::get(const QString &path, std::chrono::milliseconds timeout,
                                              HttpExchange::Answer answer) {
    auto reply = guarded([&] { return m_manager.get(request(path, path)); });
    return std::make_unique<HttpExchange>(std::move(reply), HttpExchange::Body::Keep, m_scheduler, timeout,
                                          std::move(answer));
}

ReplyOwner HttpClient::stream(const QString &path, qint64 bufferSize) {
    auto reply = guarded([&] { return m_manager.get(request(path, path)); });
    reply->setReadBufferSize(bufferSize);
    return reply;
}

bool HttpClient::post(const QString &path, const std::optional<QByteArray> &json, std::chrono::milliseconds timeout,
                      std::function<void()> done) {
    if (isBusy())
        return false;
    auto *manager = commandManager();
    const auto number = ++m_commandCount;
    auto command = request(path, QString::number(number));
    command.setRawHeader("connection", "close");
    command.setHeader(QNetworkRequest::ContentLengthHeader, json ? json->size() : 0);
    command.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    if (json)
        command.setRawHeader("content-type", "application/json");

    auto body = std::make_unique<UnrepeatableBody>(json.value_or(QByteArray()), [this] { return isAdmitted(); });
    auto reply = guarded([&] { return manager->post(command, body.get()); });
    body.release()->setParent(reply.get());
    const auto ended = [this, number, done = std::move(done)](const std::optional<QByteArrayList> &) {
        end(number);
        done();
    };
    m_commands[number] = {manager, std::make_unique<HttpExchange>(std::move(reply), HttpExchange::Body::Discard,
                                                                  m_scheduler, timeout, ended)};
    return true;
}

QNetworkAccessManager *HttpClient::commandManager() {
    if (m_commandCount % commandsOfAManager == 0) {
        m_commandManager = new QNetworkAccessManager(&m_commandManagers);
        setUp(*m_commandManager);
    }
    return m_commandManager;
}

void HttpClient::end(quint64 command) {
    const auto ended = m_commands.extract(command);
    const auto *manager = ended.mapped().manager;
    const bool isNeeded = manager == m_commandManager || std::ranges::any_of(m_commands, [manager](const auto &other) {
                              return other.second.manager == manager;
                          });
    // Later, for what has ended is in the middle of saying so.
    if (!isNeeded)
        ended.mapped().manager->deleteLater();
}

bool HttpClient::isAdmitted() const {
    // The manager does not tell from which port a connection comes: who listens is the one that accepts.
    return m_admit(static_cast<quint16>(m_base.port()), 0);
}

template <typename Send>
ReplyOwner HttpClient::guarded(Send send) const {
    if (!isAdmitted())
        return ReplyOwner(new RefusedReply);
    ReplyOwner reply(send());
    QObject::connect(reply.get(), &QNetworkReply::metaDataChanged, reply.get(), [this, reply = reply.get()] {
        if (!isAdmitted())
            reply->abort();
    });
    return reply;
}

QNetworkRequest HttpClient::request(const QString &path, const QString &pool) const {
    QUrl url = m_base;
    url.setPath(m_base.path() + u'/' + path);
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Palomet"));
    // The size limit is one of bytes received.
    request.setRawHeader("accept-encoding", "identity");
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // The manager keeps at most six connections for each host and peer name, and queues what is beyond. Without TLS
    // nobody verifies the name, so it only says which requests share connections.
    request.setPeerVerifyName(pool);
    return request;
}

} // namespace palomet
