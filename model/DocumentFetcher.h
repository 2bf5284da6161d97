#pragma once

#include "base/Result.h"
#include "model/HttpClient.h"

#include <QMetaObject>
#include <QThreadPool>

#include <map>

namespace palomet {

/// Fetches one of the backend's documents, whenever it is asked to, and decodes it on another thread. What is
/// published is never older than what was published before it: when fetches overlap, a late reply to an early request
/// is forgotten. Of fetches that overlap, the first and the last are kept: the first, so that a slow backend gets
/// through at all, the last, because it is the freshest. Main thread only.
template <typename Document>
class DocumentFetcher {
public:
    using Decode = Result<Document> (*)(const JsonText &);
    using Publish = std::function<void(Result<Document>)>;

    /// `http` and `decoder` outlive this, and `decoder` has one thread and no task of this left when this ends.
    DocumentFetcher(HttpClient &http, QThreadPool &decoder, QString path, std::chrono::milliseconds timeout,
                    Decode decode, Publish publish)
        : m_http(http)
        , m_decoder(decoder)
        , m_path(std::move(path))
        , m_timeout(timeout)
        , m_decode(decode)
        , m_publish(std::move(publish)) {}

    /// The number of this request; each is higher than those before it.
    quint64 fetch() {
        const auto number = ++m_lastRequest;
        if (m_requests.size() > 1)
            m_requests.erase(std::prev(m_requests.end()));
        m_requests[number] = m_http.get(m_path, m_timeout, [this, number](std::optional<JsonText> body) {
            m_requests.erase(number);
            if (!body)
                return publish(number, Failure{QStringLiteral("no reply")});
            m_decoder.start([this, number, body = std::move(*body)] {
                QMetaObject::invokeMethod(&m_context, [this, number, result = m_decode(body)]() mutable {
                    publish(number, std::move(result));
                });
            });
        });
        return number;
    }

    /// The latest request whose document, or whose failure, was published: none before it is to come any more.
    [[nodiscard]] quint64 lastPublished() const { return m_lastPublished; }

private:
    void publish(quint64 number, Result<Document> result) {
        if (number < m_lastPublished)
            return;
        m_lastPublished = number;
        m_publish(std::move(result));
    }

    HttpClient &m_http;
    QThreadPool &m_decoder;
    QString m_path;
    std::chrono::milliseconds m_timeout;
    Decode m_decode;
    Publish m_publish;
    quint64 m_lastRequest = 0;
    quint64 m_lastPublished = 0;
    std::map<quint64, std::unique_ptr<HttpExchange>> m_requests;
    QObject m_context; ///< Lives on the main thread; what was decoded is published there.
};

} // namespace palomet
