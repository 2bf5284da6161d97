#pragma once

#include "model/EventStreamParser.h"
#include "model/HttpClient.h"

#include <QObject>
#include <QTimer>

namespace palomet {

/// Follows the backend's event stream for as long as it lives: when the stream ends or cannot be had, it is opened
/// again one second later. Main thread only. A flood of events is read in pieces, with the event loop's other work in
/// between, and beyond what fits the buffers the sender waits.
class EventStream {
public:
    /// `http` and `scheduler` outlive this. `onEvent` gets each event's name and data.
    EventStream(HttpClient &http, Scheduler &scheduler, EventStreamParser::Sink onEvent);

    /// Opens the stream. Called once.
    void start();

private:
    void open();
    void read();

    HttpClient &m_http;
    Scheduler &m_scheduler;
    EventStreamParser::Sink m_onEvent;
    EventStreamParser m_parser;
    QTimer m_readMore;
    Scheduler::Handle m_reopen;
    ReplyOwner m_reply;
    QObject m_context; ///< Ends the connections to the reply's signals before the reply is ended.
};

} // namespace palomet
