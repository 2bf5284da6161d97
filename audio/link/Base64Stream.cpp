#include "audio/link/Base64Stream.h"

#include <array>
#include <string_view>

namespace palomet {
namespace {

constexpr std::array<qint16, 256> makeValues() {
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::array<qint16, 256> values{};
    values.fill(-1);
    for (std::size_t i = 0; i < alphabet.size(); ++i)
        values[static_cast<unsigned char>(alphabet[i])] = static_cast<qint16>(i);
    return values;
}

constexpr auto values = makeValues();

int valueOf(char character) {
    return values[static_cast<unsigned char>(character)];
}

} // namespace

bool Base64Stream::add(QByteArrayView characters, QByteArray &to) {
    qsizetype next = 0;
    for (; next < characters.size() && m_count != 0; ++next) {
        if (!addOne(characters[next], to))
            return false;
    }
    // Whole groups, which is nearly all of it.
    const auto groups = m_isOver ? 0 : (characters.size() - next) / 4;
    const auto before = to.size();
    to.resize(before + 3 * groups);
    char *out = to.data() + before;
    qsizetype group = 0;
    for (; group < groups; ++group, next += 4) {
        const int a = valueOf(characters[next]);
        const int b = valueOf(characters[next + 1]);
        const int c = valueOf(characters[next + 2]);
        const int d = valueOf(characters[next + 3]);
        if ((a | b | c | d) < 0)
            break; // The last one, or none.
        *out++ = static_cast<char>(a << 2 | b >> 4);
        *out++ = static_cast<char>(b << 4 | c >> 2);
        *out++ = static_cast<char>(c << 6 | d);
    }
    to.truncate(before + 3 * group);
    for (; next < characters.size(); ++next) {
        if (!addOne(characters[next], to))
            return false;
    }
    return true;
}

bool Base64Stream::addOne(char character, QByteArray &to) {
    const int value = valueOf(character);
    const bool isPadding = character == '=' && m_count >= 2;
    if (m_isOver || (value < 0 && !isPadding) || (value >= 0 && m_padding > 0))
        return false;
    m_bits = m_bits << 6 | static_cast<quint32>(isPadding ? 0 : value);
    m_padding += isPadding ? 1 : 0;
    if (++m_count < 4)
        return true;
    const char bytes[] = {static_cast<char>(m_bits >> 16), static_cast<char>(m_bits >> 8), static_cast<char>(m_bits)};
    to.append(bytes, 3 - m_padding);
    m_isOver = m_padding > 0;
    m_bits = 0;
    m_count = 0;
    return true;
}

} // namespace palomet
