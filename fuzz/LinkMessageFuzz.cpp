#include "audio/link/LinkMessageReader.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

std::optional<palomet::link::Message> readInPieces(QByteArrayView text, qsizetype size) {
    palomet::LinkMessageReader reader;
    for (qsizetype from = 0; from < text.size(); from += size)
        reader.add(text.sliced(from, std::min(size, text.size() - from)));
    return reader.finish();
}

} // namespace

// The backend's bytes are a message or nothing, the same however they are cut, and never hold more than was said.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArrayView text(data, static_cast<qsizetype>(size));
    const auto message = readInPieces(text, std::max<qsizetype>(text.size(), 1));
    if (message != readInPieces(text, 1) || message != readInPieces(text, 5))
        std::abort();
    // Whole it is the same, unless it says twice what the clip's data is.
    const bool isPlain = text.count("data") < 2 && !text.contains("\\u");
    if (const auto whole = palomet::link::parse(text); isPlain && whole && message != whole)
        std::abort();
    if (!message)
        return 0;
    if (const auto *play = std::get_if<palomet::link::Play>(&*message)) {
        if (play->data.size() > text.size() || play->format.size() > text.size() + 3)
            std::abort();
    }
    return 0;
}
