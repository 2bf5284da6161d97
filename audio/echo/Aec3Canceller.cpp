#include "audio/echo/EchoCanceller.h"
#include "audio/echo/LinearOutputGate.h"
#include "audio/echo/MaskInputs.h"
#include "audio/echo/RestingCanceller.h"
#include "audio/echo/Samples.h"
#include "audio/echo/SpeechMask.h"
#include "audio/echo/TripleRate.h"
#include "audio/echo/TunedAec3.h"

// AEC3 with its linear output, and behind that a learned mask; without one, a gate between that and the suppressed one.

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

using echo::TripleRate;
using echo::TunedAec3;

class GatedCanceller final : public EchoCanceller {
public:
    explicit GatedCanceller(std::unique_ptr<TunedAec3> canceller)
        : m_canceller(std::move(canceller)) {}

    void render(std::span<const float, frameSize> reference) noexcept override {
        m_referencePower = echo::meanSquare(reference);
        m_canceller->render(reference);
    }

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        const auto microphone = m_offset.apply(in);
        m_canceller->capture(microphone, delayHintMs, m_outputs);
        auto &frame = m_outputs.suppressed;
        m_tripleRate.push(m_outputs.linear);

        const bool isLinearBetter =
            m_gate.isLinearBetter({m_referencePower, echo::meanSquare(microphone),
                                   echo::meanSquare(m_tripleRate.delayed()), echo::meanSquare(frame)});
        const float from = m_linearShare;
        m_linearShare = isLinearBetter ? 1 : 0;
        if (from > 0 || isLinearBetter) {
            Frame linear;
            m_tripleRate.read(linear);
            echo::crossFade(frame, linear, from, m_linearShare);
        }
        std::copy(frame.begin(), frame.end(), out.begin());
    }

private:
    std::unique_ptr<TunedAec3> m_canceller;
    echo::OffsetFilter m_offset;
    TunedAec3::Outputs m_outputs{};
    TripleRate m_tripleRate{TunedAec3::linearLead - TripleRate::filterDelay};
    echo::LinearOutputGate m_gate;
    float m_referencePower = 0;
    float m_linearShare = 0; ///< Of the linear output at the end of the last frame.
};

class MaskedCanceller final : public EchoCanceller {
public:
    MaskedCanceller(std::unique_ptr<TunedAec3> canceller, Mask mask)
        : m_canceller(std::move(canceller))
        , m_mask(std::move(mask)) {}

    void render(std::span<const float, frameSize> reference) noexcept override { m_canceller->render(reference); }

    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        const auto microphone = m_offset.apply(in);
        m_canceller->capture(microphone, delayHintMs, m_outputs);
        m_tripleRate.push(m_mask.process(m_inputs.process(microphone, m_outputs)));
        m_tripleRate.read(out);
    }

private:
    /// What the mask takes of the time by which the linear output leads is not waited for.
    static constexpr int spareLead =
        TunedAec3::linearLead - TripleRate::filterDelay - static_cast<int>(echo::SpeechMask::delay);

    std::unique_ptr<TunedAec3> m_canceller;
    echo::OffsetFilter m_offset;
    TunedAec3::Outputs m_outputs{};
    echo::MaskInputs m_inputs;
    echo::SpeechMask m_mask;
    TripleRate m_tripleRate{spareLead};
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
