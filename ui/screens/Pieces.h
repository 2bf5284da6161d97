#pragma once

#include <QString>

#include <limits>
#include <vector>

namespace palomet {

/// A part of a long text, which is laid out by itself: laying out a text in one takes longer than anybody waits.
struct Piece {
    QString text;
    bool isAfterBreak = false; ///< Whether a line break stood before it, which no piece holds.
};

/// No piece is longer.
inline constexpr qsizetype longestPiece = 2'000;

/// The text in pieces, cut where a line ends if that can be, else between two words. A text that grows at its end is
/// cut in the same places.
[[nodiscard]] std::vector<Piece> pieces(const QString &text);

/// The times of rows that go on with the row before: after a line break, and within a line. No row has one of them
/// otherwise.
inline constexpr double continuedAfterBreak = -std::numeric_limits<double>::infinity();
inline constexpr double continuedInLine = std::numeric_limits<double>::lowest();

[[nodiscard]] constexpr bool isContinued(double at) {
    return at <= continuedInLine;
}

/// What stands between the text of a row of that time and the text of the row before it.
[[nodiscard]] inline QString joint(double at) {
    return at == continuedInLine ? QString() : QStringLiteral("\n");
}

} // namespace palomet
