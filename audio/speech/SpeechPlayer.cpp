#include "audio/speech/SpeechPlayer.h"

#include <utility>

namespace palomet {

SpeechPlayer::SpeechPlayer(SpeechMixer &mixer, SpeechDecoder::Decode decode)
    : m_mixer(mixer)
    , m_decoder(
          std::move(decode), [this](std::unique_ptr<SpeechClip> clip) { m_mixer.submit(std::move(clip)); },
          [this](const SpeechDecoder::Job &job, const QString &reason) { fail(job.id, job.generation, reason); }) {}

void SpeechPlayer::play(ClipId id, QByteArray data, QString extension) {
    quint64 generation = 0;
    {
        const std::lock_guard guard(m_lock);
        m_pendingIds.insert(id);
        generation = m_generation;
    }
    if (!m_decoder.add({id, generation, std::move(data), std::move(extension)}))
        fail(id, generation, QStringLiteral("há falas demais à espera"));
}

void SpeechPlayer::stop() {
    std::multiset<ClipId> ids;
    quint64 generation = 0;
    {
        const std::lock_guard guard(m_lock);
        ids.swap(m_pendingIds);
        generation = ++m_generation;
    }
    m_mixer.silenceBefore(generation);
    m_decoder.clear();
    for (const auto &id : ids) {
        if (id.number >= 0)
            onPlayed(id);
    }
}

void SpeechPlayer::collect() {
    bool isQuietNow = false;
    while (auto clip = m_mixer.takeFinished()) {
        const auto id = clip->id;
        bool isReported = false;
        {
            const std::lock_guard guard(m_lock);
            isReported = clip->generation == m_generation;
            if (isReported)
                m_pendingIds.erase(m_pendingIds.find(id));
        }
        if (isReported && id.number >= 0)
            onPlayed(id);
        isQuietNow = m_decoder.release(std::move(clip));
    }
    if (isQuietNow)
        onQuiet();
}

bool SpeechPlayer::hasPending() const {
    const std::lock_guard guard(m_lock);
    return !m_pendingIds.empty();
}

bool SpeechPlayer::isQuiet() const {
    return !hasPending() && !m_decoder.hasDecoded();
}

void SpeechPlayer::fail(ClipId id, quint64 generation, const QString &reason) {
    {
        const std::lock_guard guard(m_lock);
        if (generation != m_generation)
            return; // Stopped, and reported then.
        m_pendingIds.erase(m_pendingIds.find(id));
    }
    onFailed(id, reason);
}

} // namespace palomet
