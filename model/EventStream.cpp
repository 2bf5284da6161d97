#include "model/EventStream.h"

#include <utility>

namespace palomet {

namespace {

using namespace std::chrono_literals;

constexpr auto reopenDelay = 1s;
constexpr qint64 bufferSize = qint64{64} * 1024;
/// Bytes read before the event loop gets its turn: some hundreds of events.
constexpr qint64 pieceSize = qint64{16} * 1024;

} // namespace

EventStream::EventStream(HttpClient &http, Scheduler &scheduler, EventStreamParser::Sink onEvent,
                         std::function<void()> onGap)
    : m_http(http)
    , m_scheduler(scheduler)
    , m_onEvent(std::move(onEvent))
    , m_onGap(std::move(onGap)) {
    m_readMore.setSingleShot(true);
    m_readMore.callOnTimeout(&m_context, [this] { read(); });
}

void EventStream::start() {
    open();
}

void EventStream::open() {
    m_parser = {};
    m_reply = m_http.stream(QStringLiteral("events"), bufferSize);
    // Only starts the timer, so that a burst of signals is one read.
    const auto readSoon = [this] {
        if (!m_readMore.isActive())
            m_readMore.start();
    };
    QObject::connect(m_reply.get(), &QNetworkReply::metaDataChanged, &m_context, [this] {
        if (!isRefused() && !std::exchange(m_isOpen, true) && std::exchange(m_wasOpen, true))
            m_onGap();
    });
    QObject::connect(m_reply.get(), &QNetworkReply::readyRead, &m_context, readSoon);
    QObject::connect(m_reply.get(), &QNetworkReply::finished, &m_context, readSoon);
}

void EventStream::read() {
    m_parser.feed(m_reply->read(pieceSize), m_onEvent);
    if (m_reply->bytesAvailable() > 0)
        return m_readMore.start();
    if (!m_reply->isFinished())
        return;
    end();
}

void EventStream::end() {
    if (m_reply->error() == QNetworkReply::NoError)
        m_parser.finish(m_onEvent);
    // A refusal comes from a live backend: nothing was missed.
    const bool isGap = !isRefused();
    m_reply.reset();
    m_reopen = m_scheduler.after(reopenDelay, [this] { open(); });
    m_isOpen = false;
    if (isGap)
        m_onGap();
}

bool EventStream::isRefused() const {
    return m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >= 300;
}

} // namespace palomet
