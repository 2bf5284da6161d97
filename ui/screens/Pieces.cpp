#include "ui/screens/Pieces.h"

namespace palomet {

namespace {

/// The end of the first piece of a text that is longer than a piece.
qsizetype endOfPiece(QStringView text) {
    const auto window = text.first(longestPiece);
    const auto least = longestPiece / 2;
    if (const auto lineEnd = window.lastIndexOf(u'\n'); lineEnd >= least)
        return lineEnd;
    for (auto end = longestPiece; end > least; --end) {
        if (text[end - 1].isSpace())
            return end;
    }
    // Does not part the halves of a character, or a letter and its accents.
    auto end = longestPiece;
    while (end > least && (text[end].isLowSurrogate() || text[end].isMark()))
        --end;
    return end;
}

} // namespace

std::vector<Piece> pieces(const QString &text) {
    std::vector<Piece> pieces;
    qsizetype from = 0;
    bool isAfterBreak = false;
    while (text.size() - from > longestPiece) {
        const auto end = from + endOfPiece(QStringView(text).sliced(from));
        pieces.push_back({text.sliced(from, end - from), isAfterBreak});
        isAfterBreak = text[end] == u'\n';
        from = isAfterBreak ? end + 1 : end;
    }
    pieces.push_back({text.sliced(from), isAfterBreak});
    return pieces;
}

} // namespace palomet
