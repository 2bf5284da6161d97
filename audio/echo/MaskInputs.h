#pragma once

#include "audio/echo/MaskSignals.h"
#include "audio/echo/TunedAec3.h"

namespace palomet::echo {

/// Makes of a canceller's microphone and outputs the signals that a mask goes by.
class MaskInputs {
public:
    /// `microphone` is what the canceller was given for these outputs.
    const MaskSignals &process(FrameView microphone, const TunedAec3::Outputs &outputs) noexcept {
        m_signals.linear = outputs.linear;
        m_signals.microphone = m_microphone.process(microphone);
        m_signals.suppressed = m_suppressed.process(outputs.suppressed);
        return m_signals;
    }

private:
    TunedAec3::LowBand m_microphone{TunedAec3::linearDelay};
    TunedAec3::LowBand m_suppressed{0};
    MaskSignals m_signals;
};

} // namespace palomet::echo
