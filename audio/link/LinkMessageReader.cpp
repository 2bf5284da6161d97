#include "audio/link/LinkMessageReader.h"

#include <algorithm>
#include <new>
#include <utility>

namespace palomet {

void LinkMessageReader::add(QByteArrayView piece) {
    for (qsizetype next = 0; next < piece.size() && !m_isRestOversized;) {
        switch (m_place) {
        case Place::Between:
            addBetween(piece[next++]);
            break;
        case Place::String:
            addToString(piece[next++]);
            break;
        case Place::Data:
            next += addToData(piece.sliced(next));
            break;
        }
        m_isRestOversized = m_rest.size() > maximumRestBytes;
    }
}

std::optional<link::Message> LinkMessageReader::finish() {
    auto read = std::exchange(*this, LinkMessageReader(m_maximumFile));
    if (read.m_isRestOversized)
        return {};
    auto message = link::parse(read.m_rest);
    auto *play = message ? std::get_if<link::Play>(&*message) : nullptr;
    if (!play || !read.m_hasData)
        return message;
    if (read.m_isFileOversized)
        return link::OversizedClip{play->id};
    if (!read.m_isBase64 || !read.m_base64.isComplete())
        return {};
    play->data = std::move(read.m_file);
    return message;
}

void LinkMessageReader::addBetween(char character) {
    const bool isBlank = character == ' ' || character == '\t' || character == '\n' || character == '\r';
    if (isBlank && m_rest.endsWith(' '))
        return;
    m_rest.append(isBlank ? ' ' : character);
    switch (character) {
    case '"':
        m_stringStart = m_rest.size();
        m_place = m_isDataNext && m_isValue && m_depth == 1 ? Place::Data : Place::String;
        if (m_place == Place::Data)
            beginData();
        break;
    case '{':
    case '[':
        ++m_depth;
        break;
    case '}':
    case ']':
        --m_depth;
        break;
    case ':':
    case ',':
        if (m_depth == 1)
            m_isValue = character == ':';
        break;
    default:
        break;
    }
}

void LinkMessageReader::addToString(char character) {
    m_rest.append(character);
    if (std::exchange(m_isEscaped, false))
        return;
    m_isEscaped = character == '\\';
    if (character != '"')
        return;
    m_place = Place::Between;
    if (m_depth == 1 && !m_isValue)
        m_isDataNext = QByteArrayView(m_rest).sliced(m_stringStart) == "data\"";
}

/// Of two the last counts.
void LinkMessageReader::beginData() {
    m_hasData = true;
    m_base64 = {};
    m_file.clear();
    m_isBase64 = true;
    m_isFileOversized = false;
}

/// Returns how much of the text it took.
qsizetype LinkMessageReader::addToData(QByteArrayView text) {
    if (m_isEscaped) {
        addEscape(text.front());
        return 1;
    }
    const auto isEnd = [](char character) { return character == '"' || character == '\\'; };
    const auto size = std::distance(text.begin(), std::find_if(text.begin(), text.end(), isEnd));
    decode(text.first(size));
    if (size == text.size())
        return size;
    m_isEscaped = text[size] == '\\';
    if (!m_isEscaped) {
        m_rest.append('"');
        m_place = Place::Between;
    }
    return size + 1;
}

/// Many a serialiser writes a solidus as "\/".
void LinkMessageReader::addEscape(char character) {
    m_escape.append(character);
    if (m_escape.front() == 'u' && m_escape.size() < 5)
        return;
    const auto escape = std::exchange(m_escape, {});
    m_isEscaped = false;
    bool isNumber = false;
    const auto code = escape.sliced(1).toUInt(&isNumber, 16);
    const char meant = escape == "/" ? '/' : isNumber && code < 128 ? static_cast<char>(code) : '\0';
    decode({&meant, 1});
}

void LinkMessageReader::decode(QByteArrayView characters) {
    if (!m_isBase64 || m_isFileOversized)
        return;
    try {
        m_isBase64 = m_base64.add(characters, m_file);
        m_isFileOversized = m_file.size() > m_maximumFile;
    } catch (const std::bad_alloc &) {
        m_isFileOversized = true;
    }
    if (!m_isBase64 || m_isFileOversized)
        m_file.clear();
}

} // namespace palomet
