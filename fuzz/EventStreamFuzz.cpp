#include "model/EventStreamParser.h"

#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

using namespace palomet;

namespace {

using Events = std::vector<std::pair<QByteArray, QByteArray>>;

/// The events of a stream that arrives in pieces of so many bytes.
Events events(QByteArrayView stream, qsizetype pieceSize) {
    Events found;
    const auto sink = [&](QByteArrayView name, QByteArrayView data) {
        found.emplace_back(name.toByteArray(), data.toByteArray());
    };
    EventStreamParser parser;
    for (qsizetype at = 0; at < stream.size(); at += pieceSize)
        parser.feed(stream.sliced(at, std::min(pieceSize, stream.size() - at)), sink);
    parser.finish(sink);
    return found;
}

} // namespace

// A stream says the same however it is cut, and nothing that was not in it. The first byte is the size of the pieces.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0)
        return 0;
    const QByteArrayView stream(data + 1, static_cast<qsizetype>(size - 1));
    const auto whole = events(stream, std::max<qsizetype>(stream.size(), 1));
    if (events(stream, data[0] + 1) != whole)
        std::abort();
    for (const auto &[name, text] : whole) {
        if (name.size() + text.size() > stream.size() || text.contains('\n') || text.contains('\r'))
            std::abort();
    }
    return 0;
}
