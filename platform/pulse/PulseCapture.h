#pragma once

#include "audio/SoundServer.h"
#include "platform/pulse/PulseClock.h"
#include "platform/pulse/PulseConnection.h"
#include "platform/pulse/PulseHandles.h"
#include "platform/pulse/PulseSpeakers.h"
#include "platform/pulse/PulseVolume.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace palomet {

/// A record stream on one microphone, from the attempt to open it to its end. Only what comes from a device that the
/// server has confirmed to be no monitor reaches the program. Lives on the main thread, within its connection, and
/// calls back on the main thread, never after its own end and never from within a call.
class PulseCapture {
public:
    enum class Ending { Failed, AccessDenied, NoMicrophone };
    struct Events {
        std::function<void()> open;             ///< The first samples have come. Called once, if at all.
        std::function<void(Ending, int)> ended; ///< Not opened, or closed from outside, with a `pa_error_code_t`.
    };

    /// What `speakers` play is echoed in the samples.
    PulseCapture(PulseConnection &connection, const QString &device, SoundStreams &streams,
                 const PulseSpeakers &speakers, Events events);
    /// Once it has returned, no more samples come.
    ~PulseCapture();
    PulseCapture(const PulseCapture &) = delete;
    PulseCapture &operator=(const PulseCapture &) = delete;

private:
    static void onState(pa_stream *stream, void *self);
    static void onDevice(pa_stream *stream, void *self);
    static void onSource(pa_context *context, const pa_source_info *source, int end, void *self);
    static void onSamples(pa_stream *stream, std::size_t bytes, void *self);
    void deliver(const float *samples, std::size_t count) const noexcept;
    void end(Ending ending, int error);

    PulseConnection &m_connection;
    SoundStreams &m_streams;
    const PulseSpeakers &m_speakers;
    const Events m_events;
    QObject m_receiver;

    // Under the main loop's lock:
    bool m_isMicrophone = false; ///< The device it is on now was confirmed.
    bool m_isOpen = false;
    bool m_hasEnded = false;
    PulseOperation m_asking;
    PulseStream m_stream;
    PulseClock m_clock;
    std::optional<PulseVolume> m_volume; ///< Ends before its stream does.
};

} // namespace palomet
