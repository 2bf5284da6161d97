#pragma once

#include "bench/audio/echo/Signal.h"

namespace palomet::bench {

/// What a loudspeaker does to speech beyond sounding as it does.
enum class Loudspeaker {
    Linear,
    SoftClipping, ///< Driven too hard.
    Excursion,    ///< Its cone moves so far at low tones that it turns the high ones down.
    Limiter,      ///< Its amplifier turns loud sounds down, and up again a tenth of a second later.
    Rattling,     ///< Something beside it buzzes along when it is loud.
};

/// Of a signal whose active level is -20 dBFS.
Signal playedBy(Loudspeaker loudspeaker, const Signal &signal, std::uint32_t seed);

/// Chords, a tune over them and a beat, at this active level in dBFS, all of it by the seed.
Signal music(std::size_t length, double level, std::uint32_t seed);

/// What a microphone makes of a signal that turns itself up and down, 10 dB at most, so that what it hears is about as
/// loud as the echo is. Gives the gain at every sample.
Signal automaticGain(const Signal &signal, double level);

} // namespace palomet::bench
