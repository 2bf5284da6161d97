#include "audio/speech/ClipDecoder.h"

#include "audio/speech/Mp3Start.h"

#include <sndfile.h>
#include <soxr.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <span>

namespace palomet {
namespace {

constexpr int clipRate = 48000;
constexpr sf_count_t maximumClipFrames = maximumClipBytes / sizeof(float);
/// Beyond any converter there is; a header that claims more would make the resampler's filter huge.
constexpr int maximumRate = 768000;
/// Samples decoded at a time, all channels together.
constexpr std::size_t pieceSize = 16384;

/// Which data an extension promises, in the decoder's terms. A subtype of 0 is any.
struct Kind {
    QLatin1StringView extension;
    int type;
    int subtype = 0;
};

constexpr Kind mp3{QLatin1StringView{"mp3"}, SF_FORMAT_MPEG, SF_FORMAT_MPEG_LAYER_III};

constexpr std::array kinds{
    mp3,
    Kind{QLatin1StringView{"wav"}, SF_FORMAT_WAV},
    Kind{QLatin1StringView{"wav"}, SF_FORMAT_WAVEX},
    Kind{QLatin1StringView{"wav"}, SF_FORMAT_RF64},
    Kind{QLatin1StringView{"aiff"}, SF_FORMAT_AIFF},
    Kind{QLatin1StringView{"aif"}, SF_FORMAT_AIFF},
    Kind{QLatin1StringView{"flac"}, SF_FORMAT_FLAC},
    Kind{QLatin1StringView{"ogg"}, SF_FORMAT_OGG},
    Kind{QLatin1StringView{"opus"}, SF_FORMAT_OGG, SF_FORMAT_OPUS},
};

bool isExtension(const QString &text) {
    return !text.isEmpty() && text.size() <= 8 && std::all_of(text.begin(), text.end(), [](QChar character) {
        return character.unicode() < 128 && character.isLetterOrNumber();
    });
}

/// A file in memory, and the place in it that is read next.
class MemoryFile {
public:
    explicit MemoryFile(QByteArrayView data)
        : m_data(data.data(), static_cast<std::size_t>(data.size())) {}

    /// How the decoder reaches a `MemoryFile` that it was given as its user data.
    static SF_VIRTUAL_IO io() {
        return {
            [](void *self) { return of(self).size(); },
            [](sf_count_t offset, int whence, void *self) { return of(self).seek(offset, whence); },
            [](void *to, sf_count_t count, void *self) { return of(self).read(to, count); },
            [](const void *, sf_count_t, void *) -> sf_count_t { return 0; },
            [](void *self) { return of(self).m_position; },
        };
    }

private:
    static MemoryFile &of(void *self) { return *static_cast<MemoryFile *>(self); }
    [[nodiscard]] sf_count_t size() const { return static_cast<sf_count_t>(m_data.size()); }

    sf_count_t seek(sf_count_t offset, int whence) {
        const auto from = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? m_position : size();
        // Compared by subtraction, since a lying header makes for offsets that overflow.
        if (offset < -from || offset > size() - from)
            return -1;
        m_position = from + offset;
        return m_position;
    }

    sf_count_t read(void *to, sf_count_t count) {
        count = std::clamp<sf_count_t>(count, 0, size() - m_position);
        std::copy_n(m_data.begin() + m_position, count, static_cast<char *>(to));
        m_position += count;
        return count;
    }

    std::span<const char> m_data;
    sf_count_t m_position = 0;
};

struct CloseSoundFile {
    void operator()(SNDFILE *file) const { sf_close(file); }
};
struct DeleteResampler {
    void operator()(soxr *resampler) const { soxr_delete(resampler); }
};

/// ⌊frames × 48000 ÷ rate⌋, for frames that are within the limit.
std::size_t clipFrames(sf_count_t frames, int rate) {
    return static_cast<std::size_t>(frames * clipRate / rate);
}

bool isTooLong(sf_count_t frames, int rate) {
    return frames > ((maximumClipFrames + 1) * rate - 1) / clipRate;
}

/// Collects mono samples at one rate and keeps them at the clip's.
class ClipWriter {
public:
    static std::optional<ClipWriter> atRate(int rate) {
        ClipWriter writer;
        if (rate == clipRate)
            return writer;
        const auto quality = soxr_quality_spec(SOXR_HQ, 0);
        writer.m_resampler.reset(soxr_create(rate, clipRate, 1, nullptr, nullptr, &quality, nullptr));
        return writer.m_resampler ? std::optional(std::move(writer)) : std::nullopt;
    }

    void reserve(std::size_t frames) { m_samples.reserve(frames); }

    [[nodiscard]] bool add(std::span<const float> mono) {
        if (!m_resampler) {
            m_samples.insert(m_samples.end(), mono.begin(), mono.end());
            return true;
        }
        while (!mono.empty()) {
            std::size_t taken = 0;
            if (!resample(mono.data(), mono.size(), taken))
                return false;
            mono = mono.subspan(taken);
        }
        return true;
    }

    /// Appends the samples that the resampler still holds, and cuts to `frames`: the resampler rounds the length to the
    /// nearest.
    [[nodiscard]] std::optional<ClipSamples> finish(std::size_t frames) {
        while (m_resampler && m_samples.size() < frames) {
            const auto before = m_samples.size();
            std::size_t taken = 0;
            if (!resample(nullptr, 0, taken))
                return std::nullopt;
            if (m_samples.size() == before)
                break;
        }
        m_samples.resize(frames);
        m_samples.shrink_to_fit();
        return std::move(m_samples);
    }

private:
    bool resample(const float *mono, std::size_t count, std::size_t &taken) {
        std::array<float, 8192> piece;
        std::size_t given = 0;
        if (soxr_process(m_resampler.get(), mono, count, &taken, piece.data(), piece.size(), &given))
            return false;
        m_samples.insert(m_samples.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(given));
        return true;
    }

    std::unique_ptr<soxr, DeleteResampler> m_resampler; ///< None when there is nothing to resample.
    ClipSamples m_samples;
};

/// The channels' average, in place of the first channel. What is not a number, or beyond full scale as only broken
/// float files have it, must not reach the resampler, which would smear it over the whole clip.
void averageChannels(std::span<float> interleaved, std::size_t channels) {
    for (std::size_t frame = 0; frame < interleaved.size() / channels; ++frame) {
        double sum = 0;
        for (const float sample : interleaved.subspan(frame * channels, channels))
            sum += std::isfinite(sample) ? sample : 0;
        interleaved[frame] = static_cast<float>(std::clamp(sum / static_cast<double>(channels), -1.0, 1.0));
    }
}

using SoundFile = std::unique_ptr<SNDFILE, CloseSoundFile>;

/// `memory` outlives the file.
SoundFile open(MemoryFile &memory, SF_INFO &info) {
    auto io = MemoryFile::io();
    info = {};
    return SoundFile(sf_open_virtual(&io, SFM_READ, &info, &memory));
}

Failure tooLong() {
    return {QStringLiteral("o som ocupa mais de 256 MiB")};
}

Result<ClipSamples> decode(SNDFILE *file, const SF_INFO &info) {
    // Some formats do not know their length before they are read to the end.
    const bool isLengthKnown = info.frames >= 0 && info.frames != SF_COUNT_MAX;
    if (isLengthKnown && isTooLong(info.frames, info.samplerate))
        return tooLong();
    auto writer = ClipWriter::atRate(info.samplerate);
    if (!writer)
        return Failure{QStringLiteral("frequência de amostragem impossível: %1 Hz").arg(info.samplerate)};
    if (isLengthKnown)
        writer->reserve(clipFrames(info.frames, info.samplerate));

    const auto channels = static_cast<std::size_t>(info.channels);
    const auto pieceFrames = static_cast<sf_count_t>(std::max<std::size_t>(pieceSize / channels, 1));
    std::vector<float> piece(static_cast<std::size_t>(pieceFrames) * channels);
    sf_count_t frames = 0;
    while (const auto count = sf_readf_float(file, piece.data(), pieceFrames)) {
        frames += count;
        if (isTooLong(frames, info.samplerate))
            return tooLong();
        const auto read = static_cast<std::size_t>(count);
        averageChannels(std::span(piece).first(read * channels), channels);
        if (!writer->add(std::span(piece).first(read)))
            return Failure{QStringLiteral("conversão impossível")};
    }
    if (frames == 0 && sf_error(file) != SF_ERR_NO_ERROR)
        return Failure{QString::fromUtf8(sf_strerror(file))};
    auto samples = writer->finish(clipFrames(frames, info.samplerate));
    if (!samples)
        return Failure{QStringLiteral("conversão impossível")};
    return std::move(*samples);
}

} // namespace

Result<ClipSamples> decodeClip(const QByteArray &data, const QString &extension) {
    if (!isExtension(extension))
        return Failure{QStringLiteral("formato inválido")};
    const auto isNamed = [&](const Kind &kind) { return extension.compare(kind.extension, Qt::CaseInsensitive) == 0; };
    if (std::none_of(kinds.begin(), kinds.end(), isNamed))
        return Failure{QStringLiteral("formato desconhecido: %1").arg(extension)};

    MemoryFile memory(data);
    SF_INFO info;
    auto file = open(memory, info);
    if (const auto start = file || !isNamed(mp3) ? std::nullopt : findMp3(data)) {
        memory = MemoryFile(QByteArrayView(data).sliced(*start));
        file = open(memory, info);
    }
    if (!file)
        return Failure{QString::fromUtf8(sf_strerror(nullptr))};
    const bool isAsPromised = std::any_of(kinds.begin(), kinds.end(), [&](const Kind &kind) {
        return isNamed(kind) && (info.format & SF_FORMAT_TYPEMASK) == kind.type &&
               (kind.subtype == 0 || (info.format & SF_FORMAT_SUBMASK) == kind.subtype);
    });
    if (!isAsPromised)
        return Failure{QStringLiteral("os dados não são %1").arg(extension)};
    if (info.samplerate < 1 || info.samplerate > maximumRate)
        return Failure{QStringLiteral("frequência de amostragem impossível: %1 Hz").arg(info.samplerate)};

    try {
        return decode(file.get(), info);
    } catch (const std::bad_alloc &) {
        return Failure{QStringLiteral("memória insuficiente")};
    }
}

} // namespace palomet
