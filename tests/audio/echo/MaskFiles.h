#pragma once

#include "audio/echo/MaskWeights.h"

#include <QByteArray>
#include <QFile>

#include <cstring>
#include <vector>

namespace palomet::test {

/// Made by training/echo/vectors.py: signals, weights that were drawn by lot, and what numpy makes of them.
inline QByteArray maskFile(const char *name) {
    QFile file(QStringLiteral(PALOMET_SOURCE_DIR "/tests/audio/echo/mask/") + QString::fromLatin1(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

template <typename Number>
std::vector<Number> maskNumbers(const char *name) {
    const auto bytes = maskFile(name);
    std::vector<Number> numbers(static_cast<std::size_t>(bytes.size()) / sizeof(Number));
    std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(Number));
    return numbers;
}

/// Null, if the file is not as it is to be.
inline std::shared_ptr<const echo::MaskWeights> maskWeights() {
    const auto weights = echo::MaskWeights::parse(maskFile("echo-mask.bin"));
    return weights ? *weights : nullptr;
}

/// The signals, frame by frame.
inline std::vector<echo::MaskSignals> maskSignals() {
    const auto numbers = maskNumbers<std::int16_t>("signals.s16");
    const std::size_t length = numbers.size() / 3;
    std::vector<echo::MaskSignals> frames(length / echo::lowFrameSize);
    for (std::size_t i = 0; i < length; ++i) {
        auto &frame = frames[i / echo::lowFrameSize];
        const std::size_t at = i % echo::lowFrameSize;
        frame.linear[at] = static_cast<float>(numbers[i]) / 32768;
        frame.microphone[at] = static_cast<float>(numbers[length + i]) / 32768;
        frame.suppressed[at] = static_cast<float>(numbers[2 * length + i]) / 32768;
    }
    return frames;
}

} // namespace palomet::test
