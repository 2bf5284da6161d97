#include "tests/support/SoundRecorder.h"

#include "tests/support/Eventually.h"

#include <pulse/rtclock.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace palomet::test {

namespace {

constexpr int rate = 48000;

} // namespace

SoundRecorder::SoundRecorder(const std::string &server, const std::string &source) {
    const auto state = [this] {
        const PulseMainloop::Lock lock(m_mainloop);
        return pa_context_get_state(m_context.get());
    };
    {
        const PulseMainloop::Lock lock(m_mainloop);
        m_context.reset(pa_context_new(m_mainloop.api(), "recorder"));
        pa_context_connect(m_context.get(), server.c_str(), PA_CONTEXT_NOAUTOSPAWN, nullptr);
    }
    if (!eventually([&] { return state() == PA_CONTEXT_READY || !PA_CONTEXT_IS_GOOD(state()); }) ||
        state() != PA_CONTEXT_READY)
        throw std::runtime_error("the recorder cannot reach the sound server");
    {
        const PulseMainloop::Lock lock(m_mainloop);
        const pa_sample_spec format{PA_SAMPLE_FLOAT32NE, rate, 1};
        m_stream.reset(pa_stream_new(m_context.get(), "recorder", &format, nullptr));
        pa_stream_set_read_callback(
            m_stream.get(),
            [](pa_stream *stream, std::size_t, void *self) { static_cast<SoundRecorder *>(self)->take(stream); }, this);
        const auto any = static_cast<std::uint32_t>(-1);
        const pa_buffer_attr attributes{any, any, any, any, rate / 200 * sizeof(float)};
        pa_stream_connect_record(m_stream.get(), source.c_str(), &attributes, PA_STREAM_ADJUST_LATENCY);
    }
    if (!eventually([this] { return m_count > 0; }))
        throw std::runtime_error("the recorder hears nothing from " + source);
}

SoundRecorder::~SoundRecorder() {
    const PulseMainloop::Lock lock(m_mainloop);
    m_stream.reset();
    m_context.reset();
}

void SoundRecorder::take(pa_stream *stream) {
    const void *data = nullptr;
    std::size_t bytes = 0;
    while (pa_stream_peek(stream, &data, &bytes) == 0 && bytes > 0) {
        if (data) {
            const auto *samples = static_cast<const float *>(data);
            m_samples.insert(m_samples.end(), samples, samples + bytes / sizeof(float));
        } else {
            m_samples.insert(m_samples.end(), bytes / sizeof(float), 0);
        }
        pa_stream_drop(stream);
        m_arrivals[m_samples.size()] = Time{pa_rtclock_now()};
    }
    m_count = m_samples.size();
}

std::vector<float> SoundRecorder::samples() const {
    const PulseMainloop::Lock lock(m_mainloop);
    return m_samples;
}

SoundRecorder::Time SoundRecorder::timeOf(std::size_t index) const {
    const PulseMainloop::Lock lock(m_mainloop);
    // Pieces come when the machine has time for them; the one that came soonest of its second tells the truth.
    auto time = Time::max();
    const auto from = m_arrivals.lower_bound(index - std::min<std::size_t>(index, rate / 2));
    for (auto piece = from; piece != m_arrivals.end() && piece->first < index + rate / 2; ++piece) {
        const auto distance = static_cast<std::int64_t>(index) - static_cast<std::int64_t>(piece->first);
        time = std::min(time, piece->second + Time{distance * 1'000'000 / rate});
    }
    return time;
}

std::optional<std::size_t> SoundRecorder::firstLoud(float threshold, std::size_t start) const {
    const auto recorded = samples();
    for (std::size_t i = start; i < recorded.size(); ++i) {
        if (std::abs(recorded[i]) > threshold)
            return i;
    }
    return std::nullopt;
}

std::optional<std::size_t> SoundRecorder::lastLoud(float threshold, std::size_t start) const {
    const auto recorded = samples();
    for (std::size_t i = recorded.size(); i > start; --i) {
        if (std::abs(recorded[i - 1]) > threshold)
            return i - 1;
    }
    return std::nullopt;
}

} // namespace palomet::test
