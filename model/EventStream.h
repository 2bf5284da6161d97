#pragma once

#include "model/EventStreamParser.h"
#include "model/HttpClient.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace palomet {

/// Follows the backend's event stream for as long as it lives: when the stream ends or cannot be had, it is opened
/// again one second later. Main thread only. A flood of events is read in pieces, with the event loop's other work in
/// between, and beyond what fits the buffers the sender waits.
class EventStream {
public:
    /// `http` and `scheduler` outlive this. `onEvent` gets each event's name and data. `onGap` is called when
    /// the stream has ended or cannot be had, and when it is open again: what happens in between is told to nobody.
    EventStream(HttpClient &http, Scheduler &scheduler, EventStreamParser::Sink onEvent, std::function<void()> onGap);

    /// Opens the stream. Called once.
    void start();

private:
    void open();
    void read();
    void end();
    [[nodiscard]] bool isRefused() const;

    HttpClient &m_http;
    Scheduler &m_scheduler;
    EventStreamParser::Sink m_onEvent;
    std::function<void()> m_onGap;
    EventStreamParser m_parser;
    bool m_isOpen = false;
    bool m_wasOpen = false; ///< This stream is not the first.
    QTimer m_readMore;
    Scheduler::Handle m_reopen;
    ReplyOwner m_reply;
    QObject m_context; ///< Ends the connections to the reply's signals before the reply is ended.
};

} // namespace palomet
