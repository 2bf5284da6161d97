#include "audio/link/WebSocketReader.h"

#include <algorithm>

namespace palomet {

bool WebSocketReader::read(QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        if (!m_isInPayload) {
            const auto byte = static_cast<unsigned char>(bytes.front());
            bytes = bytes.sliced(1);
            if (!readHeader(byte))
                return false;
            continue;
        }
        const auto size = static_cast<qsizetype>(std::min(m_left, static_cast<quint64>(bytes.size())));
        const auto piece = bytes.first(size);
        bytes = bytes.sliced(size);
        m_left -= static_cast<quint64>(size);
        if (isControl()) {
            std::copy(piece.begin(), piece.end(), m_control.begin() + m_controlSize);
            m_controlSize += size;
        } else if (m_message == Text) {
            onText(piece);
        }
        if (m_left == 0 && !end())
            return false;
    }
    return true;
}

bool WebSocketReader::readHeader(unsigned char byte) {
    m_header[m_headerSize++] = byte;
    if (m_headerSize == 1) {
        m_isFinal = (byte & 0x80) != 0;
        m_opcode = byte & 0x0f;
        // No extension was agreed upon, so these bits mean nothing.
        return (byte & 0x70) == 0;
    }
    const unsigned length = m_header[1] & 0x7fU;
    const std::size_t lengthSize = length == 127 ? 8 : length == 126 ? 2 : 0;
    // Only a client masks.
    if ((m_header[1] & 0x80) != 0)
        return false;
    if (m_headerSize < 2 + lengthSize)
        return true;
    m_left = lengthSize == 0 ? length : 0;
    for (std::size_t i = 0; i < lengthSize; ++i)
        m_left = m_left << 8 | m_header[2 + i];
    m_headerSize = 0;
    return begin();
}

bool WebSocketReader::begin() {
    switch (m_opcode) {
    case Text:
    case Binary:
        if (m_message != Continuation)
            return false;
        m_message = m_opcode;
        break;
    case Continuation:
        if (m_message == Continuation)
            return false;
        break;
    case Close:
    case Ping:
    case Pong:
        if (!m_isFinal || m_left > maximumControlSize)
            return false;
        m_controlSize = 0;
        break;
    default:
        return false;
    }
    m_isInPayload = true;
    return m_left > 0 || end();
}

bool WebSocketReader::end() {
    m_isInPayload = false;
    if (m_opcode == Close)
        return false;
    if (m_opcode == Ping)
        onPing({m_control.data(), m_controlSize});
    if (isControl() || !m_isFinal)
        return true;
    if (m_message == Text)
        onTextEnd();
    m_message = Continuation;
    return true;
}

} // namespace palomet
