#include "audio/speech/SpeechDecoder.h"

#include <utility>

namespace palomet {

namespace {

std::size_t costOf(const SpeechDecoder::Job &job) {
    return sizeof job + static_cast<std::size_t>(job.data.size());
}

} // namespace

SpeechDecoder::SpeechDecoder(Decode decode, std::function<void(std::unique_ptr<SpeechClip>)> onDecoded,
                             std::function<void(const Job &, const QString &)> onFailed)
    : m_decode(std::move(decode))
    , m_onDecoded(std::move(onDecoded))
    , m_onFailed(std::move(onFailed))
    , m_thread([this] { run(); }) {}

SpeechDecoder::~SpeechDecoder() {
    {
        const std::lock_guard guard(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

bool SpeechDecoder::add(Job job) {
    {
        const std::lock_guard guard(m_mutex);
        if (m_jobBytes > waitingBytes)
            return false;
        m_jobBytes += costOf(job);
        m_jobs.push_back(std::move(job));
    }
    m_changed.notify_one();
    return true;
}

void SpeechDecoder::clear() {
    std::deque<Job> dropped; // freed when the lock is no longer held
    const std::lock_guard guard(m_mutex);
    dropped.swap(m_jobs);
    m_jobBytes = 0;
    ++m_clears;
}

bool SpeechDecoder::release(std::unique_ptr<SpeechClip> clip) {
    bool isLast = false;
    {
        const std::lock_guard guard(m_mutex);
        m_allDecodedBytes -= m_decodedBytes.front();
        m_decodedBytes.pop_front();
        isLast = m_decodedBytes.empty();
        m_released.push_back(std::move(clip));
    }
    m_changed.notify_one();
    return isLast;
}

void SpeechDecoder::run() {
    std::unique_lock guard(m_mutex);
    for (;;) {
        m_changed.wait(guard, [this] { return m_isEnding || !m_released.empty() || (!m_jobs.empty() && hasRoom()); });
        if (m_isEnding)
            return;
        if (!m_released.empty()) {
            auto released = std::exchange(m_released, {});
            guard.unlock();
            released.clear();
            guard.lock();
            continue;
        }
        const Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_jobBytes -= costOf(job);
        const auto clears = m_clears;
        guard.unlock();
        decode(job, clears);
        guard.lock();
    }
}

void SpeechDecoder::decode(const Job &job, quint64 clears) {
    auto samples = m_decode(job.data, job.extension);
    {
        const std::lock_guard guard(m_mutex);
        if (clears != m_clears)
            return;
        if (samples) {
            m_decodedBytes.push_back(samples->size() * sizeof(float));
            m_allDecodedBytes += m_decodedBytes.back();
        }
    }
    if (samples)
        m_onDecoded(std::make_unique<SpeechClip>(SpeechClip{job.id, job.generation, std::move(*samples)}));
    else
        m_onFailed(job, samples.reason());
}

bool SpeechDecoder::hasDecoded() const {
    const std::lock_guard guard(m_mutex);
    return !m_decodedBytes.empty();
}

bool SpeechDecoder::hasRoom() const {
    return m_decodedBytes.empty() || (m_decodedBytes.size() < SpeechMixer::maximumClips &&
                                      m_allDecodedBytes - m_decodedBytes.front() < aheadBytes);
}

} // namespace palomet
