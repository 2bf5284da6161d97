#pragma once

#include "base/JsonText.h"
#include "base/Scheduler.h"

#include <QNetworkReply>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace palomet {

/// Ends a reply that nobody waits for any more; its connection is closed.
struct ReplyDeleter {
    void operator()(QNetworkReply *reply) const;
};
using ReplyOwner = std::unique_ptr<QNetworkReply, ReplyDeleter>;

/// A request on its way; destroying it abandons it, and its answer is then not given. Main thread only.
class HttpExchange {
public:
    /// The whole body, whatever the status of the reply, put together as it came, so that nobody has to copy what may
    /// be many megabytes. None when there is no whole reply: the backend could not be reached, broke off, took too
    /// long, or sent more than a document may hold.
    using Answer = std::function<void(std::optional<JsonText>)>;

    enum class Body { Keep, Discard };

    /// Calls `answer` once, from the event loop, at the latest `timeout` from now. It may destroy this.
    HttpExchange(ReplyOwner reply, Body body, Scheduler &scheduler, std::chrono::milliseconds timeout, Answer answer);

private:
    /// Takes what has come; whether that is still within the limit.
    [[nodiscard]] bool take();
    void receive();
    void end();
    void answer(std::optional<JsonText> body);

    Body m_kind;
    JsonText m_body;
    Answer m_answer;
    Scheduler::Handle m_timeout;
    ReplyOwner m_reply;
    QObject m_context; ///< Ends the connections to the reply's signals before the reply is ended.
};

} // namespace palomet
