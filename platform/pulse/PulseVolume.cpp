#include "platform/pulse/PulseVolume.h"

#include <pulse/volume.h>

#include <type_traits>

namespace palomet {

namespace {

template <typename Info>
float gainOf(const Info &info) {
    return info.mute ? 0.0F : static_cast<float>(pa_sw_volume_to_linear(pa_cvolume_avg(&info.volume)));
}

} // namespace

PulseVolume::PulseVolume(PulseConnection &connection, pa_stream_direction_t direction, SoundStreams &streams)
    : m_connection(connection)
    , m_isRecord(direction == PA_STREAM_RECORD)
    , m_streams(streams) {
    m_connection.add(*this);
}

PulseVolume::~PulseVolume() {
    m_connection.remove(*this);
}

void PulseVolume::follow(pa_stream *stream) {
    m_stream = stream;
    m_ofDevice.reset();
    m_ofStream.reset();
    m_told.reset();
    askForDevice();
    askForStream();
}

void PulseVolume::changed(pa_subscription_event_type_t event, std::uint32_t index) {
    if (!m_stream || (event & PA_SUBSCRIPTION_EVENT_TYPE_MASK) != PA_SUBSCRIPTION_EVENT_CHANGE)
        return;
    const auto facility = event & PA_SUBSCRIPTION_EVENT_FACILITY_MASK;
    if (facility == (m_isRecord ? PA_SUBSCRIPTION_EVENT_SOURCE : PA_SUBSCRIPTION_EVENT_SINK) &&
        index == pa_stream_get_device_index(m_stream))
        askForDevice();
    if (facility == (m_isRecord ? PA_SUBSCRIPTION_EVENT_SOURCE_OUTPUT : PA_SUBSCRIPTION_EVENT_SINK_INPUT) &&
        index == pa_stream_get_index(m_stream))
        askForStream();
}

void PulseVolume::askForDevice() {
    auto *context = m_connection.context();
    const auto device = pa_stream_get_device_index(m_stream);
    m_askingDevice.reset(
        m_isRecord ? pa_context_get_source_info_by_index(context, device, &PulseVolume::onDevice<pa_source_info>, this)
                   : pa_context_get_sink_info_by_index(context, device, &PulseVolume::onDevice<pa_sink_info>, this));
}

void PulseVolume::askForStream() {
    auto *context = m_connection.context();
    const auto stream = pa_stream_get_index(m_stream);
    m_askingStream.reset(
        m_isRecord
            ? pa_context_get_source_output_info(context, stream, &PulseVolume::onStream<pa_source_output_info>, this)
            : pa_context_get_sink_input_info(context, stream, &PulseVolume::onStream<pa_sink_input_info>, this));
}

template <typename Info>
void PulseVolume::onDevice(pa_context *, const Info *device, int, void *self) {
    auto &volume = *static_cast<PulseVolume *>(self);
    constexpr bool isSource = std::is_same_v<Info, pa_source_info>;
    constexpr auto inDecibels =
        isSource ? static_cast<int>(PA_SOURCE_DECIBEL_VOLUME) : static_cast<int>(PA_SINK_DECIBEL_VOLUME);
    constexpr auto flat = isSource ? static_cast<int>(PA_SOURCE_FLAT_VOLUME) : static_cast<int>(PA_SINK_FLAT_VOLUME);
    if (!device || (device->flags & inDecibels) == 0)
        return;
    volume.m_isWholeStreams = (device->flags & flat) != 0;
    volume.m_ofDevice = gainOf(*device);
    volume.tell();
}

template <typename Info>
void PulseVolume::onStream(pa_context *, const Info *stream, int, void *self) {
    auto &volume = *static_cast<PulseVolume *>(self);
    if (!stream)
        return;
    volume.m_ofStream = stream->has_volume ? gainOf(*stream) : 1.0F;
    volume.tell();
}

/// What is muted has no echo, and is as loud as before when it is heard again.
void PulseVolume::tell() {
    if (!m_ofDevice || !m_ofStream)
        return;
    const bool isMuted = *m_ofDevice == 0 || *m_ofStream == 0;
    const float gain = m_isWholeStreams ? *m_ofStream : *m_ofDevice * *m_ofStream;
    if (isMuted || gain == m_told)
        return;
    if (m_told)
        m_streams.turned(gain / *m_told);
    m_told = gain;
}

} // namespace palomet
