#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

// Writes the chime that says "I am listening": two soft notes a fifth apart, the second a breath after the first.

namespace {

constexpr int sampleRate = 48'000;
constexpr int frameCount = sampleRate * 3 / 10;

struct Note {
    double start;     ///< seconds
    double frequency; ///< hertz
    double peak;      ///< of full scale
};

constexpr std::array notes{Note{0.0, 880.0, 0.13}, Note{0.07, 1318.51, 0.11}};

/// A sine and a faint octave that rises in 8 ms and dies away.
double sound(const Note &note, double time) {
    const double age = time - note.start;
    if (age < 0)
        return 0;
    const double rise = age < 0.008 ? 0.5 - 0.5 * std::cos(std::numbers::pi * age / 0.008) : 1.0;
    const double phase = 2 * std::numbers::pi * note.frequency * age;
    return note.peak * rise *
           (std::exp(-age / 0.06) * std::sin(phase) + 0.2 * std::exp(-age / 0.03) * std::sin(2 * phase));
}

std::vector<std::int16_t> chime() {
    std::vector<std::int16_t> samples(frameCount);
    for (int i = 0; i < frameCount; ++i) {
        const double time = static_cast<double>(i) / sampleRate;
        // The last 30 ms go to silence, so that the end does not click.
        const double fade = std::min(1.0, (frameCount - 1 - i) / (0.03 * sampleRate));
        double sum = 0;
        for (const auto &note : notes)
            sum += sound(note, time);
        samples[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(std::lround(32'767 * fade * sum));
    }
    return samples;
}

void append(std::string &bytes, std::uint32_t value, int byteCount) {
    for (int shift = 8 * (byteCount - 1); shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(value >> shift));
}

/// Audio Interchange File Format, version 1.3: big-endian chunks COMM and SSND, mono, 16 bits.
std::string aiff(const std::vector<std::int16_t> &samples) {
    const auto dataSize = static_cast<std::uint32_t>(2 * samples.size());
    std::string bytes = "FORM";
    append(bytes, 4 + 8 + 18 + 8 + 8 + dataSize, 4);
    bytes += "AIFFCOMM";
    append(bytes, 18, 4);
    append(bytes, 1, 2);
    append(bytes, static_cast<std::uint32_t>(samples.size()), 4);
    append(bytes, 16, 2);
    // The rate is an 80-bit extended number: exponent 15 above the bias of 16383, mantissa 48000 / 2^15 with its
    // leading bit.
    append(bytes, 0x3FFF + 15, 2);
    append(bytes, static_cast<std::uint32_t>(sampleRate) << 16, 4);
    append(bytes, 0, 4);
    bytes += "SSND";
    append(bytes, 8 + dataSize, 4);
    append(bytes, 0, 4);
    append(bytes, 0, 4);
    for (const auto sample : samples)
        append(bytes, static_cast<std::uint16_t>(sample), 2);
    return bytes;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fputs("usage: make-chime FILE\n", stderr);
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    file << aiff(chime());
    file.close();
    return file ? 0 : 1;
}
