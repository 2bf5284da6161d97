#pragma once

#include "bench/audio/echo/Speech.h"

#include <string>

namespace palomet::bench {

/// One evening at a desk: the program speaks all along, first alone, then both speak, then it is alone again.
struct Scenario {
    std::string name;
    bool isSpecial = false; ///< One thing goes wrong in it.
    double farAlone = 14;   ///< Seconds.
    double both = 14;
    double farAgain = 6;
    int delayMs = 80;           ///< From the reference to the echo.
    double reverberation = 0.2; ///< RT60 in seconds.
    double signalToEcho = 0;    ///< How much louder than the echo the near end is, in dB.
    double driftPpm = 0;        ///< By which the speaker's clock is slower than the microphone's.
    int jumpMs = 0;             ///< By which the delay grows in the program's first turn.
    bool isSoftClipped = false; ///< The loudspeaker is driven too hard.
    double noiseLevel = -75;    ///< In dBFS.
    Voice farVoice{"en-us+m3", 165};
    Voice nearVoice{"en-us+f2", 150};
    std::uint32_t seed = 1; ///< Of the room and of which sentences are said.

    [[nodiscard]] double seconds() const { return farAlone + both + farAgain; }
    [[nodiscard]] double jumpAt() const { return farAlone / 4; }
};

/// The signals that are known of it, all of one length.
struct Recording {
    Signal reference;                             ///< What was handed to the speakers.
    Signal microphone;                            ///< Near end, echo and noise.
    Signal nearEnd;                               ///< As the microphone hears it.
    Signal echo;                                  ///< Likewise.
    std::vector<Speaker::Sentence> nearSentences; ///< Timed from the moment when both talk.
};

/// Every combination of delay, reverberation and loudness, then one thing at a time that goes wrong. Set 1 is what was
/// tuned on; the other sets have other rooms, sentences and pairs of voices.
std::vector<Scenario> scenarios(std::uint32_t set);

Result<Recording> record(const Scenario &scenario, Speaker &speaker);

} // namespace palomet::bench
