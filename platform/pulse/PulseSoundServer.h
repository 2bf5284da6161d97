#pragma once

#include "audio/SoundServer.h"
#include "base/Scheduler.h"
#include "platform/pulse/DefaultInput.h"
#include "platform/pulse/PulseCapture.h"
#include "platform/pulse/PulseConnection.h"
#include "platform/pulse/PulseMainloop.h"
#include "platform/pulse/PulsePlayback.h"
#include "platform/pulse/PulseSpeakers.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace palomet {

/// The sound server reached through libpulse: PulseAudio, or PipeWire's server of the same protocol. Capture is on the
/// default input as it was when it was opened and ends with it; playback follows the default output. Not to be
/// destroyed from within its own callbacks.
class PulseSoundServer final : public SoundServer {
public:
    /// `server` is an address as libpulse takes it; empty for the user's own server.
    explicit PulseSoundServer(Scheduler &scheduler, std::string server = {});
    ~PulseSoundServer() override;

    void start(SoundStreams &streams) override;
    [[nodiscard]] std::vector<InputDevice> inputDevices() const override { return m_devices; }
    [[nodiscard]] std::optional<QString> defaultInput() const override { return m_default.current(); }
    void setDefaultInput(const QString &id) override;
    void openCapture(Done done) override;
    void closeCapture() override;
    [[nodiscard]] bool isCaptureOpen() const override { return m_capture && !m_opening; }
    void openPlayback() override;
    void closePlayback() override;

private:
    /// Away: waiting to try again. Ready: connected, and the devices are known.
    enum class Link { Away, Connecting, Ready };

    void connect();
    void connectionEnded(int error);
    void lookAtDevices();
    void askForDevicesSoon();
    void askForDevices();
    void devicesTold(const std::optional<PulseDevices> &devices);
    [[nodiscard]] bool isPresent(const QString &id) const;

    void startCapture();
    void captureOpened();
    void reportRefusal();
    void captureEnded(PulseCapture::Ending ending, int error);
    void failOpening(std::chrono::milliseconds delay, Failure failure);
    void finishOpening(const std::optional<Failure> &failure);
    void startPlayback();
    void playsOn(std::uint32_t output);

    Scheduler &m_scheduler;
    const std::string m_server;
    SoundStreams *m_streams = nullptr;
    PulseSpeakers m_speakers; ///< Under the main loop's lock.

    Link m_link = Link::Away;
    bool m_wasAway = false;     ///< The next connection is a return.
    bool m_isRefused = false;   ///< Access was, and the microphone was not opened since.
    bool m_isChangeDue = false; ///< To be reported once the devices are known anew.
    bool m_isAsking = false;
    std::vector<InputDevice> m_devices;
    DefaultInput m_default;
    Done m_opening; ///< Of the attempt that is under way.
    bool m_isPlaybackWanted = false;
    std::optional<std::uint32_t> m_output; ///< The last that speech came out of, by the server's number.

    PulseMainloop m_mainloop;
    std::unique_ptr<PulseConnection> m_connection;
    std::unique_ptr<PulseConnection> m_inquiry;
    std::unique_ptr<PulseCapture> m_capture;
    std::unique_ptr<PulsePlayback> m_playback;

    Scheduler::Handle m_reconnecting;
    Scheduler::Handle m_asking;
    Scheduler::Handle m_lookingAgain;
    Scheduler::Handle m_settling;
    Scheduler::Handle m_openingLimit;
    Scheduler::Handle m_reopeningPlayback;
};

} // namespace palomet
