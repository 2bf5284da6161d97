#include "platform/pulse/PulsePlayback.h"

#include "platform/pulse/PulseFormat.h"

#include <QMetaObject>

#include <pulse/rtclock.h>
#include <pulse/timeval.h>

#include <algorithm>
#include <chrono>
#include <span>
#include <utility>

namespace palomet {

namespace {

using namespace std::chrono_literals;

/// Of what is queued beyond two requests the server gives half to the device. Were nothing left for it, the device
/// would be run with its least latency, half a millisecond, and wake the machine two thousand times a second.
constexpr auto queued = 36ms;
constexpr auto request = 9ms;
constexpr pa_usec_t tick = 2 * PA_USEC_PER_MSEC;

/// A clip may end in digital silence, and its end is waited for all the same.
constexpr std::int64_t closelyAfterSound = SoundStreams::sampleRate;

} // namespace

PulsePlayback::PulsePlayback(PulseConnection &connection, SoundStreams &streams, PulseSpeakers &speakers, Events events)
    : m_connection(connection)
    , m_streams(streams)
    , m_speakers(speakers)
    , m_events(std::move(events)) {
    const PulseMainloop::Lock lock(connection.mainloop());
    m_volume.emplace(connection, PA_STREAM_PLAYBACK, streams);
    m_ticks = PulseTimer(pa_context_rttime_new(connection.context(), PA_USEC_INVALID, &PulsePlayback::onTick, this),
                         EndPulseTimer{connection.mainloop().api()});
    m_stream = connection.newStream();
    if (!m_stream) {
        end();
        return;
    }
    m_speakers.stream = m_stream.get();
    pa_stream_set_state_callback(m_stream.get(), &PulsePlayback::onState, this);
    pa_stream_set_moved_callback(m_stream.get(), &PulsePlayback::onOutput, this);
    pa_stream_set_suspended_callback(m_stream.get(), &PulseClock::onBreak, &m_clock);
    pa_stream_set_write_callback(m_stream.get(), &PulsePlayback::onRequest, this);
    pa_buffer_attr attributes = serversBuffer;
    attributes.tlength = pulseBytes(queued);
    attributes.minreq = pulseBytes(request);
    attributes.prebuf = 0;
    if (pa_stream_connect_playback(m_stream.get(), nullptr, &attributes, PulseClock::flags, nullptr, nullptr) < 0)
        end();
}

PulsePlayback::~PulsePlayback() {
    const PulseMainloop::Lock lock(m_connection.mainloop());
    m_ticks.reset();
    if (m_speakers.stream == m_stream.get())
        m_speakers.stream = nullptr;
    m_volume.reset();
    m_stream.reset();
}

void PulsePlayback::end() {
    if (!std::exchange(m_hasEnded, true))
        QMetaObject::invokeMethod(
            &m_receiver, [ended = m_events.ended] { ended(); }, Qt::QueuedConnection);
}

void PulsePlayback::onState(pa_stream *stream, void *self) {
    auto &playback = *static_cast<PulsePlayback *>(self);
    switch (pa_stream_get_state(stream)) {
    case PA_STREAM_UNCONNECTED:
    case PA_STREAM_CREATING:
        break;
    case PA_STREAM_READY:
        playback.m_streams.playbackOpened();
        onOutput(stream, self);
        break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
        playback.end();
        break;
    }
}

void PulsePlayback::onOutput(pa_stream *stream, void *self) {
    auto &playback = *static_cast<PulsePlayback *>(self);
    playback.m_clock.restart();
    // PipeWire tells only some time after the stream was made, and keeps one that has no output.
    const auto output = pa_stream_get_device_index(stream);
    if (output == PA_INVALID_INDEX)
        return;
    playback.m_volume->follow(stream);
    QMetaObject::invokeMethod(
        &playback.m_receiver, [playsOn = playback.m_events.playsOn, output] { playsOn(output); }, Qt::QueuedConnection);
}

void PulsePlayback::onRequest(pa_stream *stream, std::size_t bytes, void *self) {
    auto &playback = *static_cast<PulsePlayback *>(self);
    playback.m_clock.keep(stream);
    playback.write(bytes);
    playback.reportHeard();
    playback.scheduleTick();
}

void PulsePlayback::onTick(pa_mainloop_api *, pa_time_event *, const timeval *, void *self) {
    auto &playback = *static_cast<PulsePlayback *>(self);
    playback.reportHeard();
    playback.scheduleTick();
}

void PulsePlayback::write(std::size_t bytes) noexcept {
    while (bytes >= sizeof(float)) {
        void *room = nullptr;
        std::size_t roomBytes = bytes;
        if (pa_stream_begin_write(m_stream.get(), &room, &roomBytes) < 0 || !room)
            return;
        const std::span samples(static_cast<float *>(room), std::min(roomBytes, bytes) / sizeof(float));
        m_streams.fill(samples);
        const bool isSilent = std::all_of(samples.begin(), samples.end(), [](float sample) { return sample == 0; });
        if (pa_stream_write(m_stream.get(), room, samples.size_bytes(), nullptr, 0, PA_SEEK_RELATIVE) < 0)
            return;
        bytes -= samples.size_bytes();
        m_written += static_cast<std::int64_t>(samples.size());
        if (!isSilent)
            m_closelyUntil = m_written + closelyAfterSound;
    }
}

void PulsePlayback::reportHeard() noexcept {
    pa_usec_t played = 0;
    if (pa_stream_get_time(m_stream.get(), &played) < 0)
        return;
    // After the program was late the clock may be ahead of what it gave.
    const auto frames =
        std::min(static_cast<std::int64_t>(played * SoundStreams::sampleRate / PA_USEC_PER_SEC), m_written);
    if (frames <= m_heard)
        return;
    m_heard = frames;
    m_streams.heard(frames);
}

void PulsePlayback::scheduleTick() noexcept {
    const bool isClose = m_heard < m_closelyUntil;
    pa_context_rttime_restart(m_connection.context(), m_ticks.get(),
                              isClose ? pa_rtclock_now() + tick : PA_USEC_INVALID);
}

} // namespace palomet
