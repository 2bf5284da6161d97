#include "audio/speech/ClipDecoder.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

// A file of any kind: the first byte chooses what it is said to be, the rest is its content.

// libsndfile forgets a few kilobytes of libvorbis when an Ogg file ends within its headers. By the name of the library:
// where there is no symboliser, functions have none.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions() {
    return "leak:libvorbis\n";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static constexpr std::array extensions{"mp3", "wav", "aiff", "flac", "ogg", "opus"};
    if (size == 0)
        return 0;
    const auto *extension = extensions[data[0] % extensions.size()];
    const QByteArray file(reinterpret_cast<const char *>(data) + 1, static_cast<qsizetype>(size - 1));
    const auto clip = palomet::decodeClip(file, QString::fromLatin1(extension));
    if (!clip)
        return 0;
    if (clip->size() > palomet::maximumClipBytes / sizeof(float))
        std::abort();
    for (const float sample : *clip) {
        if (!std::isfinite(sample))
            std::abort();
    }
    return 0;
}
