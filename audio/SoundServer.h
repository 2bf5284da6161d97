#pragma once

#include "base/Callback.h"
#include "base/Result.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace palomet {

/// An input device as a person and as the sound server know it.
struct InputDevice {
    QString id;   ///< The server's own name; what the default input is set and kept by.
    QString name; ///< The server's description of it, shown to the user and spoken of on the wire.

    bool operator==(const InputDevice &) const = default;
};

/// The real-time side of sound: 48 kHz mono floats. The server calls all of it on one and the same thread of its own,
/// one call at a time, whichever streams are open. No call may lock, allocate, log, wait or throw.
class SoundStreams {
public:
    static constexpr int sampleRate = 48000;

    /// The microphone delivered `samples`, in whatever number the server chose (1 to several thousands were seen).
    /// `delay` is how long after its reference was written an echo is expected in these samples: what both streams
    /// report as their latency now, at the moment of this call, added up.
    virtual void captured(std::span<const float> samples, std::chrono::microseconds delay) noexcept = 0;

    /// The speakers want the next `samples`; all of them must be written.
    virtual void fill(std::span<float> samples) noexcept = 0;

    /// By the stream's own clock, the first `frames` frames that `fill` gave since the playback stream was opened have
    /// left the speakers. Called often enough to report an end within a few milliseconds.
    virtual void heard(std::int64_t frames) noexcept = 0;

    /// The server tells that the speakers, the microphone or either stream were turned: from about now on an echo is so
    /// many times as loud. Not told of what was turned while a stream was closed.
    virtual void turned(float factor) noexcept = 0;

    /// A playback stream was opened anew: `fill` and `heard` count from nothing again.
    virtual void playbackOpened() noexcept = 0;

protected:
    ~SoundStreams() = default;
};

/// Port: the desktop's sound server. Main thread only, and nothing here blocks it: what the server knows is cached,
/// what is asked of it is answered by a callback on the main thread. The adapter reconnects by itself every two seconds
/// when the server has died, and opens again what was open when it died only if it is asked to.
class SoundServer {
public:
    using Done = std::function<void(std::optional<Failure>)>;

    SoundServer() = default;
    SoundServer(const SoundServer &) = delete;
    SoundServer &operator=(const SoundServer &) = delete;
    virtual ~SoundServer() = default;

    /// Connects, and keeps connecting. `streams` outlives this object's last call of it, that is `closeCapture` and
    /// `closePlayback`, or this object. Called once.
    virtual void start(SoundStreams &streams) = 0;

    /// Present input devices in the server's order, as last told; empty while the server is away. A monitor of an
    /// output is not an input device.
    [[nodiscard]] virtual std::vector<InputDevice> inputDevices() const = 0;

    /// The default input's id; none while the server is away, or when the default is a monitor or nothing at all.
    [[nodiscard]] virtual std::optional<QString> defaultInput() const = 0;

    /// Makes a device the default input. Errors are ignored. What is opened after this call is opened on that device,
    /// and the change is not reported as a configuration change.
    virtual void setDefaultInput(const QString &id) = 0;

    /// Opens the default input and calls `done` once: with nothing when samples may be expected, else with the reason
    /// (no server, no microphone, access refused). An attempt that is still under way is abandoned, its `done` called
    /// first.
    virtual void openCapture(Done done) = 0;

    /// Once it has returned, no more samples come.
    virtual void closeCapture() = 0;
    [[nodiscard]] virtual bool isCaptureOpen() const = 0;

    /// Opens the speakers, which then ask for samples until closed, silence included. Opening what is open does
    /// nothing.
    virtual void openPlayback() = 0;
    virtual void closePlayback() = 0;

    /// The devices are known, after the server was reached and before what was asked for meanwhile is opened. Set
    /// before `start`.
    Callback<void()> onDevicesTold;

    /// The input devices or the default input changed from outside, the open microphone was moved, speech comes out of
    /// other speakers than before, or the server came back. A flood of events is one call. Set before `start`.
    Callback<void()> onConfigurationChange;

    /// The server is gone, and with it both streams and every sample that they held. Set before `start`.
    Callback<void()> onServerLost;

    /// Access to the microphone was refused by the server. Set before `start`.
    Callback<void()> onAccessDenied;

    /// The microphone was opened, after access to it had been refused. Set before `start`.
    Callback<void()> onAccessGranted;
};

} // namespace palomet
