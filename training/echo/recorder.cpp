#include "audio/echo/EchoLevel.h"
#include "audio/echo/MaskInputs.h"
#include "audio/echo/MaskWeights.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

// Takes recordings through the program's canceller, for the training of what comes behind it, and for judging that.
// Every line of standard input names two files: of the first, 48 kHz, 32-bit floats, four channels interleaved:
// reference, microphone, what of the microphone is to be kept, and the voices in that. Into the second go, likewise at
// 16 kHz, five: what the linear filter leaves, the microphone, what the suppressor leaves, and the latter two of the
// first file as the microphone is. With the folder of a mask as its argument it adds two more: what the program hears
// without that and with it.

using namespace palomet;
using namespace palomet::echo;

namespace {

constexpr std::size_t frameSize = EchoCanceller::frameSize;
constexpr std::size_t channelsIn = 4;
constexpr int delayHintMs = 60;
constexpr float audible = 1e-5F; // -50 dBFS.

[[noreturn]] void fail(const char *what, const char *file) {
    std::fprintf(stderr, "echo-recorder: %s %s\n", what, file);
    std::exit(1);
}

/// One of the microphone's ways, for one recording.
class Way {
public:
    virtual ~Way() = default;
    /// The frames of a recording's four channels become frames of its own.
    virtual void process(const std::array<EchoCanceller::Frame, channelsIn> &frames, std::vector<LowFrame> &out) = 0;
};

/// What the mask sees, and what it is to make of it.
class Stages final : public Way {
public:
    explicit Stages(std::unique_ptr<TunedAec3> canceller)
        : m_canceller(std::move(canceller)) {}

    void process(const std::array<EchoCanceller::Frame, channelsIn> &frames, std::vector<LowFrame> &out) override {
        m_canceller->render(frames[0]);
        auto microphone = m_offsets[0].apply(frames[1]);
        m_level.lower(microphone);
        m_canceller->capture(microphone, delayHintMs, m_outputs);
        const auto &signals = m_inputs.process(microphone, m_outputs);
        out.insert(out.end(), {signals.linear, signals.microphone, signals.suppressed});
        out.push_back(m_kept.process(lowered(m_offsets[1].apply(frames[2]))));
        out.push_back(m_voice.process(lowered(m_offsets[2].apply(frames[3]))));
        m_level.follow(signals.microphone, signals.linear, meanSquare(frames[0]) > audible);
    }

private:
    /// As the microphone was for this frame.
    [[nodiscard]] EchoCanceller::Frame lowered(EchoCanceller::Frame frame) const {
        for (float &sample : frame)
            sample /= m_level.lowered();
        return frame;
    }

    std::unique_ptr<TunedAec3> m_canceller;
    TunedAec3::Outputs m_outputs{};
    MaskInputs m_inputs;
    EchoLevel m_level;
    std::array<OffsetFilter, 3> m_offsets;
    TunedAec3::LowBand m_kept{TunedAec3::linearDelay};
    TunedAec3::LowBand m_voice{TunedAec3::linearDelay};
};

/// What the program makes of it.
class Whole final : public Way {
public:
    explicit Whole(std::unique_ptr<EchoCanceller> canceller)
        : m_canceller(std::move(canceller)) {}

    void process(const std::array<EchoCanceller::Frame, channelsIn> &frames, std::vector<LowFrame> &out) override {
        EchoCanceller::Frame heard;
        m_canceller->render(frames[0]);
        m_canceller->capture(frames[1], delayHintMs, heard);
        out.push_back(m_low.process(heard));
    }

private:
    std::unique_ptr<EchoCanceller> m_canceller;
    TunedAec3::LowBand m_low{0};
};

void record(const char *from, const char *to, const EchoCanceller::Mask &mask) {
    auto stages = TunedAec3::create();
    auto gated = EchoCanceller::create();
    auto masked = EchoCanceller::create(mask);
    std::FILE *in = std::fopen(from, "rb");
    std::FILE *out = std::fopen(to, "wb");
    if (!stages || !gated || !masked || in == nullptr || out == nullptr)
        fail("cannot open", from);
    std::vector<std::unique_ptr<Way>> ways;
    ways.push_back(std::make_unique<Stages>(std::move(*stages)));
    if (mask) {
        ways.push_back(std::make_unique<Whole>(std::move(*gated)));
        ways.push_back(std::make_unique<Whole>(std::move(*masked)));
    }
    std::vector<float> interleaved(channelsIn * frameSize);
    std::vector<LowFrame> made;
    std::vector<float> written;
    while (std::fread(interleaved.data(), sizeof(float), interleaved.size(), in) == interleaved.size()) {
        std::array<EchoCanceller::Frame, channelsIn> frames;
        for (std::size_t i = 0; i < interleaved.size(); ++i)
            frames[i % channelsIn][i / channelsIn] = std::clamp(interleaved[i], -1.0F, 1.0F);
        made.clear();
        for (const auto &way : ways)
            way->process(frames, made);
        written.resize(made.size() * lowFrameSize);
        for (std::size_t i = 0; i < written.size(); ++i)
            written[i] = made[i % made.size()][i / made.size()];
        if (std::fwrite(written.data(), sizeof(float), written.size(), out) != written.size())
            fail("cannot write", to);
    }
    std::fclose(in);
    if (std::fclose(out) != 0)
        fail("cannot write", to);
}

} // namespace

int main(int argc, char **argv) {
    EchoCanceller::Mask mask;
    if (argc > 1) {
        const auto read = MaskWeights::read(QString::fromLocal8Bit(argv[1]));
        if (!read)
            fail(qPrintable(read.reason() + QStringLiteral(":")), argv[1]);
        mask = *read;
    }
    std::array<char, 4096> from{};
    std::array<char, 4096> to{};
    while (std::scanf("%4095s %4095s", from.data(), to.data()) == 2)
        record(from.data(), to.data(), mask);
    return 0;
}
