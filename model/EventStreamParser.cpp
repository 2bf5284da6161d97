#include "model/EventStreamParser.h"

#include <algorithm>
#include <utility>

namespace palomet {

void EventStreamParser::feed(QByteArrayView bytes, const Sink &sink) {
    while (!bytes.isEmpty()) {
        // Between the two halves of a CRLF is an empty line, which says nothing.
        const auto end =
            std::find_if(bytes.begin(), bytes.end(), [](char byte) { return byte == '\n' || byte == '\r'; });
        const auto piece = bytes.first(end - bytes.begin());
        const bool isComplete = end != bytes.end();
        m_isDropping = m_isDropping || m_line.size() + piece.size() > maximumLineLength;
        if (m_isDropping)
            m_line = QByteArray();
        else if (!isComplete || !m_line.isEmpty())
            m_line.append(piece);
        if (!isComplete)
            return;
        if (!std::exchange(m_isDropping, false))
            take(m_line.isEmpty() ? piece : QByteArrayView(m_line), sink);
        m_line.truncate(0);
        bytes = bytes.sliced(piece.size() + 1);
    }
}

void EventStreamParser::finish(const Sink &sink) {
    if (!m_line.isEmpty())
        take(m_line, sink);
    *this = {};
}

void EventStreamParser::take(QByteArrayView line, const Sink &sink) {
    constexpr QByteArrayView event("event: ");
    constexpr QByteArrayView data("data: ");
    if (line.startsWith(event))
        m_name = line.sliced(event.size()).toByteArray();
    else if (line.startsWith(data))
        sink(m_name, line.sliced(data.size()));
}

} // namespace palomet
