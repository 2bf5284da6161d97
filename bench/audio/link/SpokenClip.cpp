#include "bench/audio/link/SpokenClip.h"

#include <QFile>
#include <QTemporaryDir>

#include <sndfile.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace palomet::bench {

QByteArray spokenClip(int seconds) {
    constexpr int rate = 24000;
    std::vector<float> samples(static_cast<std::size_t>(rate) * static_cast<std::size_t>(seconds));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = static_cast<double>(i) / rate;
        // Four syllables a second, each a buzz with eight harmonics.
        const double syllable = std::abs(std::sin(4 * std::numbers::pi * time));
        double sample = 0;
        for (int harmonic = 1; harmonic <= 8; ++harmonic)
            sample += std::sin(2 * std::numbers::pi * 120 * harmonic * time) / harmonic;
        samples[i] = static_cast<float>(0.2 * (0.1 + syllable) * sample);
    }
    const QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("clip.mp3"));
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = 1;
    info.format = SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
    SNDFILE *file = sf_open(qPrintable(path), SFM_WRITE, &info);
    if (!file)
        return {};
    sf_writef_float(file, samples.data(), static_cast<sf_count_t>(samples.size()));
    sf_close(file);
    QFile written(path);
    return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
}

} // namespace palomet::bench
