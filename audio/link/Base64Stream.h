#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace palomet {

/// Base64 that comes in pieces, taken strictly: the standard alphabet, padded, nothing else. Pure; any thread.
class Base64Stream {
public:
    /// The next characters; what they stand for is appended to `to`. False when this is no base64: nothing more may be
    /// added then.
    [[nodiscard]] bool add(QByteArrayView characters, QByteArray &to);

    /// Whether the text may end here.
    [[nodiscard]] bool isComplete() const { return m_count == 0; }

private:
    [[nodiscard]] bool addOne(char character, QByteArray &to);

    quint32 m_bits = 0;
    int m_count = 0;   ///< Characters of a group of four.
    int m_padding = 0; ///< Of them, signs of equality.
    bool m_isOver = false;
};

} // namespace palomet
