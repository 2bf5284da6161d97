#include "audio/echo/EchoCanceller.h"
#include "audio/echo/EchoLevel.h"
#include "audio/echo/LinearOutputGate.h"
#include "audio/echo/MaskInputs.h"
#include "audio/echo/RestingCanceller.h"
#include "audio/echo/Samples.h"
#include "audio/echo/SpeechMask.h"
#include "audio/echo/TripleRate.h"
#include "audio/echo/TunedAec3.h"

#include <algorithm>

// AEC3 with its linear output, and behind that a learned mask; without one, a gate between that and the suppressed one.

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

using echo::TripleRate;
using echo::TunedAec3;

constexpr float audible = 1e-5F; // -50 dBFS.

/// What stands before the gate and the mask alike.
class TunedCanceller : public EchoCanceller {
public:
    TunedCanceller(std::unique_ptr<TunedAec3> canceller, echo::LinearOutputGate judge)
        : gate(judge)
        , m_canceller(std::move(canceller)) {}

    void render(std::span<const float, frameSize> reference) noexcept override {
        referencePower = echo::meanSquare(reference);
        m_canceller->render(reference);
    }

    void turned(float factor) noexcept override { level.turned(factor); }

protected:
    /// What the filter is given of the microphone. `outputs` is then what comes of it.
    Frame filter(echo::FrameView in, int delayHintMs) noexcept {
        auto microphone = m_offset.apply(in);
        level.lower(microphone);
        m_canceller->capture(microphone, delayHintMs, outputs);
        return microphone;
    }

    /// The far end can be heard in this frame.
    [[nodiscard]] bool isPlaying() const noexcept { return referencePower > audible; }

    /// Lets the gate judge what the filter was given, what it left of that and what the suppressor did, in step.
    void judge(std::span<const float> microphone, std::span<const float> linear,
               std::span<const float> suppressed) noexcept {
        gate.take({referencePower, echo::meanSquare(microphone), echo::meanSquare(linear), echo::meanSquare(suppressed),
                   level.likeness()});
    }

    /// Makes of what came of the filter what is given out; what is but echo is turned down.
    void finish(Frame &frame, bool isEcho, std::span<float, frameSize> out) noexcept {
        level.restore(frame);
        turnDown(frame, isEcho);
        std::copy(frame.begin(), frame.end(), out.begin());
    }

    TunedAec3::Outputs outputs{};
    echo::EchoLevel level;
    echo::LinearOutputGate gate;
    float referencePower = 0;

private:
    void turnDown(Frame &frame, bool isEcho) noexcept {
        constexpr float echoShare = 0.1F; // -20 dB.
        const float from = m_share;
        m_share = isEcho ? echoShare : 1;
        for (std::size_t i = 0; i < frame.size(); ++i)
            frame[i] *= from + (m_share - from) * static_cast<float>(i + 1) / frameSize;
    }

    std::unique_ptr<TunedAec3> m_canceller;
    echo::OffsetFilter m_offset;
    float m_share = 1; ///< Of the output that was given at the end of the last frame.
};

class GatedCanceller final : public TunedCanceller {
public:
    explicit GatedCanceller(std::unique_ptr<TunedAec3> canceller)
        : TunedCanceller(std::move(canceller), echo::LinearOutputGate()) {}

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        const auto microphone = filter(in, delayHintMs);
        auto &frame = outputs.suppressed;
        m_tripleRate.push(outputs.linear);
        level.follow(m_lowBand.process(microphone), outputs.linear, isPlaying());

        judge(microphone, m_tripleRate.delayed(), frame);
        const float from = m_linearShare;
        m_linearShare = gate.isLinearBetter() ? 1 : 0;
        if (from > 0 || m_linearShare > 0) {
            Frame linear;
            m_tripleRate.read(linear);
            echo::crossFade(frame, linear, from, m_linearShare);
        }
        finish(frame, gate.isEcho() || (isPlaying() && level.isUnsettled()), out);
    }

private:
    TunedAec3::LowBand m_lowBand{TunedAec3::linearDelay};
    TripleRate m_tripleRate{TunedAec3::linearLead - TripleRate::filterDelay};
    float m_linearShare = 0; ///< Of the linear output at the end of the last frame.
};

class MaskedCanceller final : public TunedCanceller {
public:
    MaskedCanceller(std::unique_ptr<TunedAec3> canceller, Mask mask)
        : TunedCanceller(std::move(canceller), echo::LinearOutputGate(beginning))
        , m_mask(std::move(mask)) {}

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        const auto &signals = m_inputs.process(filter(in, delayHintMs), outputs);
        level.follow(signals.microphone, signals.linear, isPlaying());
        m_silentFrames = isPlaying() ? 0 : std::min(m_silentFrames + 1, reverberation);
        const bool hasEcho = m_silentFrames < reverberation;
        m_tripleRate.push(m_mask.process(signals, hasEcho));
        Frame frame;
        m_tripleRate.read(frame);
        judge(signals.microphone, signals.linear, signals.suppressed);
        finish(frame, hasEcho && (gate.isEcho() || level.isUnsettled()), out);
    }

private:
    /// Frames of the far end from which on the mask knows its echo by itself, and who talks is not to be turned down.
    static constexpr int beginning = 60;
    static constexpr int reverberation = 40; ///< Frames after which nothing is heard of what was played.
    /// What the mask takes of the time by which the linear output leads is not waited for.
    static constexpr int spareLead =
        TunedAec3::linearLead - TripleRate::filterDelay - static_cast<int>(echo::SpeechMask::delay);

    echo::MaskInputs m_inputs;
    echo::SpeechMask m_mask;
    TripleRate m_tripleRate{spareLead};
    int m_silentFrames = reverberation; ///< Since something was played.
};

} // namespace

Result<std::unique_ptr<EchoCanceller>> EchoCanceller::create(Mask mask) {
    auto aec3 = TunedAec3::create();
    if (!aec3)
        return Failure{aec3.reason()};
    std::unique_ptr<EchoCanceller> canceller;
    if (mask)
        canceller = std::make_unique<MaskedCanceller>(std::move(*aec3), std::move(mask));
    else
        canceller = std::make_unique<GatedCanceller>(std::move(*aec3));
    return std::unique_ptr<EchoCanceller>(
        std::make_unique<echo::RestingCanceller>(std::move(canceller), echo::aec3Delay));
}

bool EchoCanceller::takesMask() {
    return true;
}

QString EchoCanceller::library() {
    return u"AEC3, tuned, with its linear output"_s;
}

} // namespace palomet
