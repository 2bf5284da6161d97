#include "model/HttpExchange.h"

#include "model/Documents.h"

namespace palomet {

namespace {

/// Small enough that a reply nobody wants is noticed early, large enough that a document comes in few pieces.
constexpr qint64 readBufferSize = qint64{1024} * 1024;

/// Whether a reply came as a whole; a status that speaks of an error is not looked at.
bool isWhole(const QNetworkReply &reply) {
    if (!reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid())
        return false;
    const auto error = reply.error();
    // 400 and 418 are the invalid operation, and 407 asks to be let through a proxy where there is none.
    const bool isClientError =
        (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError) ||
        error == QNetworkReply::ProtocolInvalidOperationError ||
        error == QNetworkReply::ProxyAuthenticationRequiredError;
    const bool isServerError =
        error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError;
    return error == QNetworkReply::NoError || isClientError || isServerError;
}

} // namespace

void ReplyDeleter::operator()(QNetworkReply *reply) const {
    reply->abort();
    reply->deleteLater();
}

HttpExchange::HttpExchange(ReplyOwner reply, Body body, Scheduler &scheduler, std::chrono::milliseconds timeout,
                           Answer answer)
    : m_kind(body)
    , m_answer(std::move(answer))
    , m_timeout(scheduler.after(timeout, [this] { this->answer(std::nullopt); }))
    , m_reply(std::move(reply)) {
    m_reply->setReadBufferSize(readBufferSize);
    QObject::connect(m_reply.get(), &QNetworkReply::readyRead, &m_context, [this] { receive(); });
    QObject::connect(m_reply.get(), &QNetworkReply::finished, &m_context, [this] { end(); });
}

bool HttpExchange::take() {
    // The header that says so need not come first.
    if (m_kind == Body::Keep &&
        m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong() > maximumDocumentSize)
        return false;
    auto piece = m_reply->readAll();
    if (m_kind == Body::Discard)
        return true;
    m_size += piece.size();
    m_body.append(std::move(piece));
    return m_size <= maximumDocumentSize;
}

void HttpExchange::receive() {
    if (!take())
        answer(std::nullopt);
}

void HttpExchange::end() {
    const bool isGood = isWhole(*m_reply) && take();
    answer(isGood ? std::optional(std::move(m_body)) : std::nullopt);
}

void HttpExchange::answer(std::optional<QByteArrayList> body) {
    m_timeout.reset();
    QObject::disconnect(m_reply.get(), nullptr, &m_context, nullptr);
    m_reply.reset();
    const auto give = std::move(m_answer);
    give(std::move(body));
}

} // namespace palomet
