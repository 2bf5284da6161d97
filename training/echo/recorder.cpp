#include "audio/echo/MaskInputs.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

// Takes recordings through the program's canceller, for the training of what comes behind it. Every line of standard
// input names two files: of the first, 48 kHz, 32-bit floats, four channels interleaved: reference, microphone, what of
// the microphone is to be kept, and the voices in that. Into the second go, likewise at 16 kHz, five: what the linear
// filter leaves, the microphone, what the suppressor leaves, and of the latter two of the first file what the
// microphone's own band is.

using namespace palomet;
using namespace palomet::echo;

namespace {

constexpr std::size_t frameSize = EchoCanceller::frameSize;
constexpr std::size_t lowSize = lowFrameSize;
constexpr std::size_t channelsIn = 4;
constexpr std::size_t channelsOut = 5;
constexpr int delayHintMs = 60;

[[noreturn]] void fail(const char *what, const char *file) {
    std::fprintf(stderr, "echo-recorder: %s %s\n", what, file);
    std::exit(1);
}

void record(const char *from, const char *to) {
    auto canceller = TunedAec3::create();
    std::FILE *in = std::fopen(from, "rb");
    std::FILE *out = std::fopen(to, "wb");
    if (!canceller || in == nullptr || out == nullptr)
        fail("cannot open", from);
    MaskInputs inputs;
    std::array<OffsetFilter, channelsIn> offsets;
    std::array bands{TunedAec3::LowBand{TunedAec3::linearDelay}, TunedAec3::LowBand{TunedAec3::linearDelay}};
    std::vector<float> interleaved(channelsIn * frameSize);
    std::vector<float> written(channelsOut * lowSize);
    TunedAec3::Outputs outputs;
    while (std::fread(interleaved.data(), sizeof(float), interleaved.size(), in) == interleaved.size()) {
        std::array<EchoCanceller::Frame, channelsIn> frames;
        for (std::size_t i = 0; i < interleaved.size(); ++i)
            frames[i % channelsIn][i / channelsIn] = std::clamp(interleaved[i], -1.0F, 1.0F);
        (*canceller)->render(frames[0]);
        for (std::size_t channel = 1; channel < channelsIn; ++channel)
            frames[channel] = offsets[channel].apply(frames[channel]);
        (*canceller)->capture(frames[1], delayHintMs, outputs);
        const auto &heard = inputs.process(frames[1], outputs);
        const std::array<LowFrame, channelsOut> low{heard.linear, heard.microphone, heard.suppressed,
                                                    bands[0].process(frames[2]), bands[1].process(frames[3])};
        for (std::size_t i = 0; i < written.size(); ++i)
            written[i] = low[i % channelsOut][i / channelsOut];
        if (std::fwrite(written.data(), sizeof(float), written.size(), out) != written.size())
            fail("cannot write", to);
    }
    std::fclose(in);
    if (std::fclose(out) != 0)
        fail("cannot write", to);
}

} // namespace

int main() {
    std::array<char, 4096> from{};
    std::array<char, 4096> to{};
    while (std::scanf("%4095s %4095s", from.data(), to.data()) == 2)
        record(from.data(), to.data());
    return 0;
}
