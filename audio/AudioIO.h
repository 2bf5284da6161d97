#pragma once

#include "audio/SoundEngine.h"
#include "audio/SoundServer.h"
#include "audio/capture/Microphone.h"
#include "audio/speech/SpeechPlayer.h"
#include "audio/speech/SpeechWatch.h"
#include "base/Callback.h"
#include "base/Scheduler.h"
#include "base/Wakeup.h"

#include <QObject>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace palomet {

/// Owns the microphone and the speakers on behalf of the voice backend: captures with echo cancellation, chooses the
/// input device, opens again what has failed or changed, and plays speech. `Microphone`, `SpeechPlayer` and
/// `SpeechWatch` do so; here they meet, and keep the speakers open as long as one of them needs that. Everything is
/// called on the main thread and calls back there, except where it says otherwise.
class AudioIO : public MicrophoneReports {
public:
    using EchoCancellerFactory = Microphone::EchoCancellerFactory;
    using Ended = Microphone::Ended;

    /// What it is made of. The server and the scheduler outlive it.
    struct Parts {
        SoundServer &server;
        Scheduler &scheduler;
        WakeupFactory makeWakeup;
        EchoCancellerFactory makeEchoCanceller = [] { return EchoCanceller::create(); };
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

    // Set before `start`, as its reports are.
    /// One chunk of the microphone, 16 kHz mono. On the real-time thread, whose rules it keeps: no lock, no allocation,
    /// no waiting.
    std::function<void(PcmSamples)> onPCM = [](PcmSamples) {};
    /// A clip was heard to its end (on the thread of `startReporting`), was stopped or failed (main thread).
    Callback<void(ClipId id)> onPlayed;

    /// Whether the desktop's default input may be changed to the wanted device.
    bool selectsDevice = true;

    /// Opens the microphone, trying every two seconds until it is open, and from then on follows the desktop's changes.
    /// `firstAttemptEnded` is called once.
    void start(std::optional<QString> device, Ended firstAttemptEnded = {}) {
        m_microphone.start(std::move(device), std::move(firstAttemptEnded));
    }

    /// Opens the named device, or the desktop's default, once; `ended` is called when that has worked or failed. While
    /// shut down the name is only kept.
    void use(std::optional<QString> device, Ended ended = {}) { m_microphone.use(std::move(device), std::move(ended)); }

    /// Releases the microphone: the user turned echo cancellation off.
    void shutdown() { m_microphone.shutdown(); }
    /// Undoes `shutdown`.
    void resume() { m_microphone.resume(); }

    /// Puts back the default input that there was before the first change, unless that device has gone.
    void restoreDefaultInput() { m_microphone.restoreDefaultInput(); }

    /// Plays an encoded clip behind those before it. Reported through `onPlayed` exactly once, if its number is
    /// not negative.
    void play(ClipId id, QByteArray data, QString extension);
    /// A clip that is never going to be played, for this reason: noted and reported like one that cannot be decoded.
    void refuse(ClipId id, const QString &reason);
    /// Silences speech now and reports every pending clip.
    void stop() { m_player.stop(); }
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
    [[nodiscard]] std::optional<QString> pickInput(const std::optional<QString> &wanted) const {
        return m_microphone.pickInput(wanted);
    }

    /// The name of the input device in use, or of the one that is being opened, or `defaultInputName`.
    [[nodiscard]] const QString &deviceName() const { return m_microphone.deviceName(); }

private:
    void serverLost();
    void updatePlayback();

    SoundServer &m_server;
    std::array<Connection, 3> m_connections; ///< To the server, until `close`.
    const WakeupFactory m_makeWakeup;
    const QString m_chimeFile;
    Microphone m_microphone;

    QObject m_mainThread; ///< Receives what other threads ask of this one; outlives the player, whose thread asks.
    std::unique_ptr<Wakeup> m_bell;
    SoundEngine m_engine;
    SpeechPlayer m_player;
    SpeechWatch m_speechWatch;
};

} // namespace palomet
