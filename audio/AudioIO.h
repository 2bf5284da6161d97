#pragma once

#include "audio/SoundEngine.h"
#include "audio/SoundServer.h"
#include "audio/speech/SpeechPlayer.h"
#include "base/Scheduler.h"
#include "base/Wakeup.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace palomet {

/// Owns the microphone and the speakers on behalf of the voice backend: captures with echo cancellation, chooses the
/// input device, opens again what has failed or changed, and plays speech. Everything is called on the main thread and
/// calls back there, except where it says otherwise.
///
/// Opening the microphone takes its time, so one attempt runs at once; what is asked for meanwhile is answered by one
/// more attempt behind it.
class AudioIO {
public:
    using EchoCancellerFactory = std::function<Result<std::unique_ptr<EchoCanceller>>()>;
    using Ended = std::function<void()>;

    /// What it is made of. The server and the scheduler outlive it.
    struct Parts {
        SoundServer &server;
        Scheduler &scheduler;
        WakeupFactory makeWakeup;
        EchoCancellerFactory makeEchoCanceller = &EchoCanceller::create;
        SpeechDecoder::Decode decode = &decodeClip;
        QString chimeFile;          ///< The sound of `chime`; an AIFF file.
        QString defaultInputName{}; ///< What the default input is called while its own name is not known.
    };

    /// Connects to the sound server, so that its devices are known when they are needed.
    explicit AudioIO(Parts parts);
    AudioIO(const AudioIO &) = delete;
    AudioIO &operator=(const AudioIO &) = delete;
    /// After `stopReporting`, if `startReporting` was called.
    ~AudioIO();

    // Set before `start`.
    /// One chunk of the microphone, 16 kHz mono. On the real-time thread, whose rules it keeps: no lock, no allocation,
    /// no waiting.
    std::function<void(PcmSamples)> onPCM = [](PcmSamples) {};
    /// A clip was heard to its end (on the thread of `startReporting`), was stopped or failed (main thread).
    std::function<void(ClipId id)> onPlayed = [](ClipId) {};
    /// A line for the log.
    std::function<void(const QString &line)> onNote = [](const QString &) {};
    /// The microphone was opened; the name of the input device in use.
    std::function<void(const QString &deviceName)> onConfigured = [](const QString &) {};
    /// `deviceName` is another.
    std::function<void(const QString &deviceName)> onDeviceName = [](const QString &) {};

    /// Whether the desktop's default input may be changed to the wanted device.
    bool selectsDevice = true;

    /// Opens the microphone, trying every two seconds until it is open, and from then on follows the desktop's changes.
    /// `firstAttemptEnded` is called once.
    void start(std::optional<QString> device, Ended firstAttemptEnded = {});

    /// Opens the named device, or the desktop's default, once; `ended` is called when that has worked or failed. While
    /// shut down the name is only kept.
    void use(std::optional<QString> device, Ended ended = {});

    /// Releases the microphone: the user turned echo cancellation off.
    void shutdown();
    /// Undoes `shutdown`.
    void resume();

    /// Puts back the default input that there was before the first change, unless that device has gone.
    void restoreDefaultInput();

    /// Plays an encoded clip behind those before it. Reported through `onPlayed` exactly once, if its number is
    /// not negative.
    void play(ClipId id, QByteArray data, QString extension);
    /// A clip that is never going to be played, for this reason: noted and reported like one that cannot be decoded.
    void refuse(ClipId id, const QString &reason);
    /// Silences speech now and reports every pending clip.
    void stop();
    /// A short local sound, as clip -1; nothing happens when its file cannot be read.
    void chime();

    /// Called on the thread, with an event loop, that is to report the ends of clips; before `start`.
    void startReporting();
    /// On that same thread, after `close`.
    void stopReporting();

    /// Closes both streams for good; whoever still waits for an attempt is not called any more.
    void close();

    [[nodiscard]] std::vector<InputDevice> inputDevices() const { return m_server.inputDevices(); }
    /// The wanted name, if a device that is present has exactly that name.
    [[nodiscard]] std::optional<QString> pickInput(const std::optional<QString> &wanted) const;

    /// The name of the input device in use, or of the one that is being opened, or `defaultInputName`.
    [[nodiscard]] const QString &deviceName() const { return m_deviceName; }
    /// What the echo canceller says of itself at this moment, for diagnosis; none while the microphone is not open.
    [[nodiscard]] std::optional<EchoCancellerState> echoCancellerState() const;
    [[nodiscard]] bool isShutDown() const { return m_isShutDown; }
    /// The server's name of the default input that there was before the first change.
    [[nodiscard]] const std::optional<QString> &originalDefaultInput() const { return m_originalDefaultInput; }

private:
    enum class Asker { Retry, Once };

    /// What an attempt to open the microphone is made for.
    struct Attempt {
        bool isWanted = false;
        bool isRetry = false; ///< On behalf of `startWithRetry`.
        std::vector<Ended> ended;
    };

    void startWithRetry(Ended ended = {});
    void configure(Asker asker, Ended ended = {});
    void beginAttempt();
    void endAttempt(quint64 number, const std::optional<Failure> &failure);
    std::vector<Ended> abandonAttempts();
    void retryLater(const QString &reason);
    void chooseDevice();
    [[nodiscard]] std::optional<InputDevice> switchDefaultInput();
    [[nodiscard]] QString defaultInputName() const;
    void nameDevice(const QString &name);

    void devicesTold();
    void configurationChanged();
    void serverLost();

    void updatePlayback();
    void watchSpeech();

    SoundServer &m_server;
    Scheduler &m_scheduler;
    const WakeupFactory m_makeWakeup;
    const EchoCancellerFactory m_makeEchoCanceller;
    const QString m_chimeFile;
    const QString m_defaultInputName;

    std::optional<QString> m_wantedDevice; ///< None is the desktop's default.
    std::optional<QString> m_originalDefaultInput;
    QString m_deviceName;
    bool m_isStarted = false;
    bool m_isShutDown = false;

    Attempt m_running;
    Attempt m_next; ///< Behind the one that is running.
    quint64 m_attemptNumber = 0;
    std::optional<InputDevice> m_switchedTo; ///< By the running attempt.
    int m_retryCount = 0;
    Scheduler::Handle m_retry;

    Scheduler::Handle m_speechWatch;
    std::int64_t m_lastHeard = 0;
    int m_silentSeconds = 0;

    QObject m_mainThread; ///< Receives what other threads ask of this one; outlives the player, whose thread asks.
    std::unique_ptr<Wakeup> m_bell;
    SoundEngine m_engine;
    SpeechPlayer m_player;
};

} // namespace palomet
