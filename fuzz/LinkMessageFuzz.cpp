#include "audio/LinkMessage.h"

#include <cstdint>
#include <cstdlib>

// Whatever the backend says is a message or nothing, the same each time, and never holds more than was said.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArrayView text(data, static_cast<qsizetype>(size));
    const auto message = palomet::link::parse(text);
    if (message != palomet::link::parse(text))
        std::abort();
    if (!message)
        return 0;
    if (const auto *play = std::get_if<palomet::link::Play>(&*message)) {
        if (play->data.size() > text.size() || play->format.size() > text.size() + 3)
            std::abort();
    }
    return 0;
}
