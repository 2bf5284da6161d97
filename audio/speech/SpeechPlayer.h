#pragma once

#include "audio/speech/ClipId.h"
#include "audio/speech/SpeechDecoder.h"
#include "audio/speech/SpeechMixer.h"

#include <functional>
#include <mutex>
#include <set>

namespace palomet {

/// Plays speech in the order in which it comes, and answers for every clip: heard to its end, stopped or impossible to
/// play, each is reported once, also when several have the same id.
///
/// `play` and `stop` are the main thread's. `collect` is that of one thread, which is woken by the mixer's bell.
class SpeechPlayer {
public:
    /// `mixer` outlives this object, which ends when the playback stream is closed and nobody collects any more.
    SpeechPlayer(SpeechMixer &mixer, SpeechDecoder::Decode decode);

    /// The callbacks are set before the first clip, and never called with the lock held.
    /// A clip is over. From `stop` on the main thread, from `collect` on its thread; never for a negative
    /// number.
    std::function<void(ClipId id)> onPlayed;
    /// A clip is not going to sound, for this reason, and is over with that. On the decoding thread, or from `play`.
    std::function<void(ClipId id, const QString &reason)> onFailed;
    /// No clip is inside the mixer any more. From `collect`.
    std::function<void()> onQuiet;

    void play(ClipId id, QByteArray data, QString extension);
    void stop();
    void collect();

    /// Any thread: a clip has not been reported yet.
    [[nodiscard]] bool hasPending() const;

    /// Any thread: nothing is pending, and what was stopped has faded out.
    [[nodiscard]] bool isQuiet() const;

private:
    void fail(ClipId id, quint64 generation, const QString &reason);

    SpeechMixer &m_mixer;

    mutable std::mutex m_lock;
    std::multiset<ClipId> m_pendingIds; ///< Guarded by the lock.
    quint64 m_generation = 0;           ///< Guarded by the lock; counts the stops.

    SpeechDecoder m_decoder; ///< The last member: its thread uses all the others.
};

} // namespace palomet
