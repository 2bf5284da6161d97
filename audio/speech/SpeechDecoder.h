#pragma once

#include "audio/speech/ClipDecoder.h"
#include "audio/speech/SpeechMixer.h"

#include <QByteArray>
#include <QString>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace palomet {

/// Decodes clips one after the other on a thread of its own, ahead of what is playing but not far ahead: what waits is
/// kept as it came, encoded.
class SpeechDecoder {
public:
    using Decode = std::function<Result<ClipSamples>(const QByteArray &data, const QString &extension)>;

    struct Job {
        ClipId id;
        quint64 generation = 0;
        QByteArray data;
        QString extension;
    };

    /// Decoding goes on while less than this is decoded beyond the clip that plays.
    static constexpr std::size_t aheadBytes = std::size_t{32} * 1024 * 1024;
    /// A job is refused while more than this waits.
    static constexpr std::size_t waitingBytes = std::size_t{256} * 1024 * 1024;

    /// `onDecoded` and `onFailed` are called on the decoding thread, in the order of the jobs.
    SpeechDecoder(Decode decode, std::function<void(std::unique_ptr<SpeechClip>)> onDecoded,
                  std::function<void(const Job &, const QString &reason)> onFailed);
    SpeechDecoder(const SpeechDecoder &) = delete;
    SpeechDecoder &operator=(const SpeechDecoder &) = delete;
    /// Waits for the clip that is being decoded; those that still wait are dropped.
    ~SpeechDecoder();

    /// Any thread. False when too much waits already: the job is not going to be done.
    [[nodiscard]] bool add(Job job);

    /// Any thread: drops the jobs that wait, and the one under way if it is not done at this moment.
    void clear();

    /// Any thread: a decoded clip comes back, in the order in which it was given out, to make room for others. Returns
    /// whether it was the last one that was out.
    bool release(std::unique_ptr<SpeechClip> clip);

    /// Any thread: whether a decoded clip is out.
    [[nodiscard]] bool hasDecoded() const;

private:
    void run();
    void decode(const Job &job, quint64 clears);
    [[nodiscard]] bool hasRoom() const;

    const Decode m_decode;
    const std::function<void(std::unique_ptr<SpeechClip>)> m_onDecoded;
    const std::function<void(const Job &, const QString &)> m_onFailed;

    mutable std::mutex m_mutex; ///< Guards everything below but the thread.
    std::condition_variable m_changed;
    std::deque<Job> m_jobs;
    std::size_t m_jobBytes = 0;
    quint64 m_clears = 0;
    std::deque<std::size_t> m_decodedBytes; ///< Of each clip that is out, the one that plays first.
    std::size_t m_allDecodedBytes = 0;
    std::vector<std::unique_ptr<SpeechClip>> m_released; ///< Freed on the decoding thread, which has the time.
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace palomet
