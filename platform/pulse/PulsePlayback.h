#pragma once

#include "audio/SoundServer.h"
#include "platform/pulse/PulseClock.h"
#include "platform/pulse/PulseConnection.h"
#include "platform/pulse/PulseHandles.h"
#include "platform/pulse/PulseSpeakers.h"
#include "platform/pulse/PulseVolume.h"

#include <QObject>

#include <pulse/mainloop-api.h>

#include <cstdint>
#include <functional>
#include <optional>

namespace palomet {

/// The playback stream, on the default output and wherever the user moves it, from the attempt to open it to its end.
/// While something else than silence is on its way to the speakers, `heard` is told every four milliseconds, else
/// whenever samples are asked for. Lives on the main thread, within its connection.
class PulsePlayback {
public:
    /// Called on the main thread; never after this object's end, never from within a call.
    struct Events {
        std::function<void(std::uint32_t output)> playsOn; ///< It was opened on this output, or moved there.
        std::function<void()> ended; ///< Once: there is no output, or the stream was closed from outside.
    };

    /// `speakers` is told of the stream while there is one.
    PulsePlayback(PulseConnection &connection, SoundStreams &streams, PulseSpeakers &speakers, Events events);
    /// Once it has returned, no more samples are asked for.
    ~PulsePlayback();
    PulsePlayback(const PulsePlayback &) = delete;
    PulsePlayback &operator=(const PulsePlayback &) = delete;

private:
    static void onState(pa_stream *stream, void *self);
    static void onOutput(pa_stream *stream, void *self);
    static void onRequest(pa_stream *stream, std::size_t bytes, void *self);
    static void onTick(pa_mainloop_api *api, pa_time_event *event, const timeval *time, void *self);
    void write(std::size_t bytes) noexcept;
    void reportHeard() noexcept;
    void scheduleTick() noexcept;
    void end();

    PulseConnection &m_connection;
    SoundStreams &m_streams;
    PulseSpeakers &m_speakers;
    const Events m_events;
    QObject m_receiver;

    // Under the main loop's lock:
    bool m_hasEnded = false;
    PulseStream m_stream;
    PulseClock m_clock;
    std::optional<PulseVolume> m_volume; ///< Ends before its stream does.
    std::int64_t m_written = 0;          ///< Frames that `fill` gave.
    std::int64_t m_heard = 0;            ///< Of these, told as heard.
    std::int64_t m_closelyUntil = 0;     ///< `heard` is told often up to this frame.
    PulseTimer m_ticks;
};

} // namespace palomet
