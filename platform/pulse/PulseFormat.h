#pragma once

#include "audio/SoundServer.h"

#include <pulse/def.h>
#include <pulse/sample.h>

#include <chrono>
#include <cstdint>

namespace palomet {

/// The format of both streams.
inline constexpr pa_sample_spec pulseFormat{PA_SAMPLE_FLOAT32NE, SoundStreams::sampleRate, 1};

/// All sizes left to the server.
inline constexpr pa_buffer_attr serversBuffer{UINT32_MAX, UINT32_MAX, UINT32_MAX, UINT32_MAX, UINT32_MAX};

constexpr std::uint32_t pulseBytes(std::chrono::milliseconds duration) {
    return static_cast<std::uint32_t>(duration.count() * SoundStreams::sampleRate / 1000 * sizeof(float));
}

} // namespace palomet
