#include "tests/support/ClipFiles.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <numbers>

// libsndfile forgets a few kilobytes when an Ogg file ends within its headers.
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_suppressions() {
    return "leak:vorbis_info_init\n";
}

namespace palomet::test {
namespace {

/// A file that grows in memory.
struct GrowingFile {
    QByteArray data;
    sf_count_t position = 0;

    static GrowingFile &of(void *self) { return *static_cast<GrowingFile *>(self); }

    static SF_VIRTUAL_IO io() {
        return {
            [](void *self) -> sf_count_t { return of(self).data.size(); },
            [](sf_count_t offset, int whence, void *self) -> sf_count_t {
                auto &file = of(self);
                const sf_count_t from = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.position : file.data.size();
                return file.position = from + offset;
            },
            [](void *to, sf_count_t count, void *self) -> sf_count_t {
                auto &file = of(self);
                count = std::min(count, static_cast<sf_count_t>(file.data.size()) - file.position);
                std::memcpy(to, file.data.constData() + file.position, static_cast<std::size_t>(count));
                file.position += count;
                return count;
            },
            [](const void *from, sf_count_t count, void *self) -> sf_count_t {
                auto &file = of(self);
                if (file.data.size() < file.position + count)
                    file.data.resize(file.position + count);
                std::memcpy(file.data.data() + file.position, from, static_cast<std::size_t>(count));
                file.position += count;
                return count;
            },
            [](void *self) { return of(self).position; },
        };
    }
};

} // namespace

std::vector<ClipFormat> clipFormats() {
    return {
        {"mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III}, {"wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},
        {"wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT},           {"wav", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24},
        {"wav", SF_FORMAT_RF64 | SF_FORMAT_PCM_16},         {"aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16},
        {"aif", SF_FORMAT_AIFF | SF_FORMAT_PCM_24},         {"flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
        {"ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},          {"ogg", SF_FORMAT_OGG | SF_FORMAT_OPUS},
        {"opus", SF_FORMAT_OGG | SF_FORMAT_OPUS},
    };
}

Clip sine(int rate, double frequency, int channels, double seconds) {
    Clip clip{rate, channels, {}};
    const auto frames = static_cast<int>(rate * seconds);
    clip.samples.reserve(static_cast<std::size_t>(frames) * static_cast<std::size_t>(channels));
    for (int frame = 0; frame < frames; ++frame) {
        const auto sample = 0.5 * std::sin(2 * std::numbers::pi * frequency * frame / rate);
        clip.samples.insert(clip.samples.end(), static_cast<std::size_t>(channels), static_cast<float>(sample));
    }
    return clip;
}

QByteArray encode(const Clip &clip, int format) {
    GrowingFile memory;
    auto io = GrowingFile::io();
    SF_INFO info{};
    info.samplerate = clip.rate;
    info.channels = clip.channels;
    info.format = format;
    SNDFILE *file = sf_open_virtual(&io, SFM_WRITE, &info, &memory);
    if (!file) {
        ADD_FAILURE() << "cannot write format " << std::hex << format << ": " << sf_strerror(nullptr);
        return {};
    }
    const auto frames = static_cast<sf_count_t>(clip.samples.size()) / clip.channels;
    EXPECT_EQ(sf_writef_float(file, clip.samples.data(), frames), frames);
    sf_close(file);
    return memory.data;
}

} // namespace palomet::test
