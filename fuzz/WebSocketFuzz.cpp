#include "tests/audio/link/InPieces.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

std::vector<std::string> eventsOf(QByteArrayView stream, qsizetype size) {
    std::vector<std::string> events;
    std::string text;
    palomet::WebSocketReader reader;
    reader.onText = [&](QByteArrayView piece) { text.append(piece.data(), static_cast<std::size_t>(piece.size())); };
    reader.onTextEnd = [&] { events.push_back("text" + std::exchange(text, {})); };
    reader.onPing = [&](QByteArrayView payload) {
        if (payload.size() > 125)
            std::abort();
        events.push_back("ping" + std::string(payload.begin(), payload.end()));
    };
    if (!palomet::test::readInPieces(reader, stream, size))
        events.emplace_back("end");
    return events;
}

} // namespace

// The bytes of the backend's end of the link say the same however they are cut.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArrayView stream(data, static_cast<qsizetype>(size));
    const auto events = eventsOf(stream, std::max<qsizetype>(stream.size(), 1));
    if (events != eventsOf(stream, 1) || events != eventsOf(stream, 7))
        std::abort();
    return 0;
}
