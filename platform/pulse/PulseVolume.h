#pragma once

#include "audio/SoundServer.h"
#include "platform/pulse/PulseConnection.h"
#include "platform/pulse/PulseHandles.h"

#include <pulse/def.h>
#include <pulse/stream.h>

#include <cstdint>
#include <optional>

namespace palomet {

/// How loud the server makes a stream: its own volume, times that of the device which it is on. Tells
/// `SoundStreams::turned` when somebody turns either, but not how loud it was to begin with, nor that another device is
/// another loudness; nor of a device whose volume has no decibels, for that says nothing of how loud it is. Within its
/// connection and under the main loop's lock.
class PulseVolume final : private PulseWatcher {
public:
    PulseVolume(PulseConnection &connection, pa_stream_direction_t direction, SoundStreams &streams);
    ~PulseVolume();
    PulseVolume(const PulseVolume &) = delete;
    PulseVolume &operator=(const PulseVolume &) = delete;

    /// The stream has been made, or was moved: what was known before is forgotten.
    void follow(pa_stream *stream);

private:
    void changed(pa_subscription_event_type_t event, std::uint32_t index) override;
    void askForDevice();
    void askForStream();
    template <typename Info>
    static void onDevice(pa_context *context, const Info *device, int end, void *self);
    template <typename Info>
    static void onStream(pa_context *context, const Info *stream, int end, void *self);
    void tell();

    PulseConnection &m_connection;
    const bool m_isRecord;
    SoundStreams &m_streams;
    pa_stream *m_stream = nullptr;
    /// Gains, as factors of the amplitude; none while they are not known.
    std::optional<float> m_ofDevice;
    std::optional<float> m_ofStream;
    std::optional<float> m_told;   ///< The last of all that was not silence.
    bool m_isWholeStreams = false; ///< The stream's own volume holds the device's, as where volumes are flat.
    PulseOperation m_askingDevice;
    PulseOperation m_askingStream;
};

} // namespace palomet
