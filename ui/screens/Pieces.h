#pragma once

#include <QString>

#include <limits>
#include <vector>

namespace palomet {

/// A part of a long text, laid out by itself: laying out all of the text at once takes too long.
struct Piece {
    QString text;
    bool isAfterBreak = false; ///< Whether a line break stood before it; no piece contains that.
};

/// The greatest length of a piece.
inline constexpr qsizetype longestPiece = 2'000;

/// Cuts the text in pieces: where a line ends if possible, else between two words. A text that grows at its end is cut
/// in the same places.
[[nodiscard]] std::vector<Piece> pieces(const QString &text);

/// The times that mark rows which continue the row before: after a line break, and within a line. No other row has
/// them.
inline constexpr double continuedAfterBreak = -std::numeric_limits<double>::infinity();
inline constexpr double continuedInLine = std::numeric_limits<double>::lowest();

[[nodiscard]] constexpr bool isContinued(double at) {
    return at <= continuedInLine;
}

/// The characters between the text of a row with that time and the text of the row before it.
[[nodiscard]] inline QString joint(double at) {
    return at == continuedInLine ? QString() : QStringLiteral("\n");
}

} // namespace palomet
