#include "platform/pulse/PulseCapture.h"

#include "platform/pulse/PulseFormat.h"

#include <QMetaObject>

#include <pulse/error.h>

#include <algorithm>
#include <array>
#include <utility>

namespace palomet {

namespace {

/// Of several channels the first one alone is wanted: mixed together, an array's microphones take each other's voices
/// out. PulseAudio gives it for the one flag, PipeWire for the other, whatever the channels are called.
constexpr int firstChannelOnly = PA_STREAM_NO_REMAP_CHANNELS | PA_STREAM_NO_REMIX_CHANNELS;

} // namespace

PulseCapture::PulseCapture(PulseConnection &connection, const QString &device, SoundStreams &streams,
                           const PulseSpeakers &speakers, Events events)
    : m_connection(connection)
    , m_streams(streams)
    , m_speakers(speakers)
    , m_events(std::move(events)) {
    const PulseMainloop::Lock lock(connection.mainloop());
    m_volume.emplace(connection, PA_STREAM_RECORD, streams);
    m_stream = connection.newStream();
    if (!m_stream) {
        end(Ending::Failed, pa_context_errno(connection.context()));
        return;
    }
    pa_stream_set_state_callback(m_stream.get(), &PulseCapture::onState, this);
    pa_stream_set_moved_callback(m_stream.get(), &PulseCapture::onDevice, this);
    pa_stream_set_suspended_callback(m_stream.get(), &PulseClock::onBreak, &m_clock);
    pa_stream_set_read_callback(m_stream.get(), &PulseCapture::onSamples, this);
    pa_buffer_attr attributes = serversBuffer;
    attributes.maxlength = pulseBytes(std::chrono::seconds{1});
    attributes.fragsize = pulseBytes(std::chrono::milliseconds{20});
    // When the microphone goes, the stream goes with it: what is heard instead is for the program to decide.
    constexpr auto flags = static_cast<pa_stream_flags_t>(PulseClock::flags | PA_STREAM_DONT_MOVE | firstChannelOnly);
    if (pa_stream_connect_record(m_stream.get(), device.toUtf8().constData(), &attributes, flags) < 0)
        end(Ending::Failed, pa_context_errno(connection.context()));
}

PulseCapture::~PulseCapture() {
    const PulseMainloop::Lock lock(m_connection.mainloop());
    m_asking.reset();
    m_volume.reset();
    m_stream.reset();
}

void PulseCapture::end(Ending ending, int error) {
    m_isMicrophone = false;
    if (!std::exchange(m_hasEnded, true)) {
        QMetaObject::invokeMethod(
            &m_receiver, [ended = m_events.ended, ending, error] { ended(ending, error); }, Qt::QueuedConnection);
    }
}

void PulseCapture::onState(pa_stream *stream, void *self) {
    auto &capture = *static_cast<PulseCapture *>(self);
    switch (pa_stream_get_state(stream)) {
    case PA_STREAM_UNCONNECTED:
    case PA_STREAM_CREATING:
        break;
    case PA_STREAM_READY:
        onDevice(stream, self);
        break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED: {
        const int error = pa_context_errno(pa_stream_get_context(stream));
        capture.end(error == PA_ERR_ACCESS     ? Ending::AccessDenied
                    : error == PA_ERR_NOENTITY ? Ending::NoMicrophone
                                               : Ending::Failed,
                    error);
        break;
    }
    }
}

void PulseCapture::onDevice(pa_stream *stream, void *self) {
    auto &capture = *static_cast<PulseCapture *>(self);
    // Left without a microphone, a server may put the stream on a monitor, so it is asked where it has put it; PipeWire
    // knows that only some time after the stream was made.
    capture.m_isMicrophone = false;
    capture.m_clock.restart();
    const auto device = pa_stream_get_device_index(stream);
    if (device == PA_INVALID_INDEX)
        return;
    capture.m_asking.reset(
        pa_context_get_source_info_by_index(pa_stream_get_context(stream), device, &PulseCapture::onSource, self));
}

void PulseCapture::onSource(pa_context *, const pa_source_info *source, int, void *self) {
    auto &capture = *static_cast<PulseCapture *>(self);
    if (source) {
        capture.m_isMicrophone = source->monitor_of_sink == PA_INVALID_INDEX;
        capture.m_volume->follow(capture.m_stream.get());
        return;
    }
    if (!capture.m_isMicrophone)
        capture.end(Ending::NoMicrophone, PA_ERR_NOENTITY);
}

void PulseCapture::onSamples(pa_stream *stream, std::size_t, void *self) {
    auto &capture = *static_cast<PulseCapture *>(self);
    capture.m_clock.keep(stream);
    const void *data = nullptr;
    std::size_t bytes = 0;
    while (pa_stream_peek(stream, &data, &bytes) == 0 && bytes > 0) {
        if (capture.m_isMicrophone) {
            // PipeWire may confirm a stream and never feed it: only samples prove that it is open.
            if (!std::exchange(capture.m_isOpen, true))
                QMetaObject::invokeMethod(&capture.m_receiver, capture.m_events.open, Qt::QueuedConnection);
            capture.deliver(static_cast<const float *>(data), bytes / sizeof(float));
        }
        pa_stream_drop(stream);
    }
}

void PulseCapture::deliver(const float *samples, std::size_t count) const noexcept {
    const auto delay = PulseClock::latency(m_stream.get()) + m_speakers.latency();
    if (samples) {
        m_streams.captured({samples, count}, delay);
        return;
    }
    // A hole: the server lost these samples, but their time has passed.
    static constexpr std::array<float, 1024> silence{};
    for (; count > 0; count -= std::min(count, silence.size()))
        m_streams.captured({silence.data(), std::min(count, silence.size())}, delay);
}

} // namespace palomet
