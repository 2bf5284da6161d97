#pragma once

#include "base/Scheduler.h"

#include <QString>

#include <cstdint>
#include <functional>

namespace palomet {

class SpeechMixer;
class SpeechPlayer;

/// Gives up on speech that a sound server without life or without speakers is never going to play, so that the backend
/// is not left waiting. Main thread only.
class SpeechWatch {
public:
    /// All three outlive it.
    SpeechWatch(Scheduler &scheduler, const SpeechMixer &mixer, SpeechPlayer &player)
        : m_scheduler(scheduler)
        , m_mixer(mixer)
        , m_player(player) {}

    // Set before `begin`.
    /// A line for the log.
    std::function<void(const QString &line)> onNote;
    /// Nothing is pending any more: it was played, or was given up.
    std::function<void()> onEnd;

    /// Watches until nothing is pending. While it does so already, this changes nothing.
    void begin();
    void end() { m_tick.reset(); }

private:
    void look();

    Scheduler &m_scheduler;
    const SpeechMixer &m_mixer;
    SpeechPlayer &m_player;
    Scheduler::Handle m_tick;
    std::int64_t m_lastHeard = 0;
    int m_silentSeconds = 0;
};

} // namespace palomet
