#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <concepts>

class QIODevice;

namespace palomet {

/// How many arrays and objects of a JSON text may lie within each other.
inline constexpr int maximumNesting = 512;

/// The bytes of a JSON text, with room behind them as the parser needs it: what comes in pieces is put together here
/// once, and is read where it stands. Copies share the bytes.
class JsonText {
public:
    /// So many bytes behind the text belong to it and are zero.
    static constexpr qsizetype padding = 64;

    JsonText() = default;

    /// Copies the bytes.
    template <std::convertible_to<QByteArrayView> Bytes>
    JsonText(const Bytes &bytes) {
        append(QByteArrayView(bytes));
    }

    /// Makes room for a text of this size; only worth the while when it is known beforehand.
    void reserve(qsizetype size) { m_bytes.reserve(size + padding); }

    void append(QByteArrayView bytes);
    /// Takes what has come.
    void append(QIODevice &device);

    [[nodiscard]] const char *data() const { return m_bytes.constData(); }
    [[nodiscard]] qsizetype size() const { return m_size; }

private:
    QByteArray m_bytes = QByteArray(padding, '\0');
    qsizetype m_size = 0;
};

} // namespace palomet
