#pragma once

#include "audio/link/WebSocketReader.h"

#include <algorithm>
#include <vector>

namespace palomet::test {

/// Gives the reader a stream in pieces of one size; false where the reader gives it up. Each piece has memory of its
/// own, so that a sanitizer sees a look beyond it.
inline bool readInPieces(WebSocketReader &reader, QByteArrayView stream, qsizetype size) {
    for (qsizetype from = 0; from < stream.size(); from += size) {
        const auto part = stream.sliced(from, std::min(size, stream.size() - from));
        const std::vector<char> piece(part.begin(), part.end());
        if (!reader.read(piece))
            return false;
    }
    return true;
}

} // namespace palomet::test
