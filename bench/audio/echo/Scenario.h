#pragma once

#include "bench/audio/echo/Sounds.h"
#include "bench/audio/echo/Speech.h"

#include <optional>
#include <string>

namespace palomet::bench {

/// What a real room does beyond what is easy, in a room whose walls reflect.
struct Hardship {
    std::string kind; ///< Which scenarios are summed up together.
    Loudspeaker loudspeaker = Loudspeaker::Linear;
    double volumeStep = 0;     ///< By which the speakers are turned up and down again, twice, in dB.
    double microphoneStep = 0; ///< The same with the microphone.
    bool hasAutomaticGain = false;
    bool doesUserMove = false;
    bool doesDeviceMove = false;
    std::optional<double> musicLevel; ///< In dBFS.
    bool hasSecondUser = false;
};

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
    std::optional<Hardship> hardship;

    [[nodiscard]] double seconds() const { return farAlone + both + farAgain; }
    [[nodiscard]] double jumpAt() const { return farAlone / 4; }
};

/// The signals that are known of it, all of one length.
struct Recording {
    Signal reference;                              ///< What was handed to the speakers.
    Signal microphone;                             ///< Near end, echo and noise.
    Signal nearEnd;                                ///< As the microphone hears it.
    Signal echo;                                   ///< Likewise.
    std::vector<Speaker::Sentence> nearSentences;  ///< Timed from the moment when both talk.
    std::vector<Speaker::Sentence> otherSentences; ///< Likewise, of a second user.
};

/// Every combination of delay, reverberation and loudness, then one thing at a time that goes wrong. Set 1 is what was
/// tuned on; the other sets have other rooms, sentences and pairs of voices.
std::vector<Scenario> scenarios(std::uint32_t set);

/// What is hard for a canceller, each of it with `count` recordings; other sets have other seeds.
std::vector<Scenario> hardScenarios(std::uint32_t set, int count);

/// The same while nothing is played and nothing else is to be heard: what is lost of it, the measure loses.
Recording nearEndAlone(Recording recording);

Result<Recording> record(const Scenario &scenario, Speaker &speaker);

} // namespace palomet::bench
