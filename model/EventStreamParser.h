#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <functional>

namespace palomet {

/// Reads a server-sent event stream as it arrives, in pieces cut anywhere, a character's bytes included. An
/// "event: NAME" line names the data lines that follow it, until the next such line or the end of the connection; a
/// blank line does not end that. Every "data: DATA" line is one event. All other lines say nothing. Lines end with LF,
/// CRLF or CR, and are bytes: whoever takes the data decodes it.
class EventStreamParser {
public:
    /// A longer line is dropped whole, and the stream goes on after it.
    static constexpr qsizetype maximumLineLength = qsizetype{1024} * 1024;

    /// Takes an event's name and data. The views end with the call.
    using Sink = std::function<void(QByteArrayView name, QByteArrayView data)>;

    /// Reads what has arrived and gives each event that it completes to `sink`, in order.
    void feed(QByteArrayView bytes, const Sink &sink);

    /// The stream has come to its end: its last line may lack a line end.
    void finish(const Sink &sink);

private:
    void take(QByteArrayView line, const Sink &sink);

    QByteArray m_name;
    QByteArray m_line; ///< The beginning of a line whose end has not arrived.
    bool m_isDropping = false;
};

} // namespace palomet
