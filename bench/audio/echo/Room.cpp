#include "bench/audio/echo/Room.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace palomet::bench {
namespace {

constexpr double speedOfSound = 343;
constexpr double imagesUntil = 0.1; // Seconds.
constexpr double wallDistance = 0.4;

double between(Noise &noise, double least, double most) {
    return least + (most - least) * (static_cast<double>(noise()) + 1) / 2;
}

/// Images all have one sign, so that what is below every voice adds up where it would not in a room. Allen and Berkley
/// (Image method for efficiently simulating small-room acoustics, JASA 65, 1979) take it out by a high pass, and so do
/// microphones: Butterworth's of the second order, by the bilinear transform.
Signal withoutRumble(Signal response) {
    constexpr double cutOff = 60;
    const double k = std::tan(std::numbers::pi * cutOff / sampleRate);
    const double norm = 1 / (1 + std::numbers::sqrt2 * k + k * k);
    const double a1 = 2 * (k * k - 1) * norm;
    const double a2 = (1 - std::numbers::sqrt2 * k + k * k) * norm;
    double first = 0;
    double second = 0;
    for (float &sample : response) {
        const double in = static_cast<double>(sample) * norm;
        const double out = in + first;
        first = -2 * in - a1 * out + second;
        second = in - a2 * out;
        sample = static_cast<float>(out);
    }
    return response;
}

double distance(const Place &a, const Place &b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

} // namespace

Room::Room(double reverberation, std::uint32_t seed)
    : m_reverberation(reverberation)
    , m_seed(seed) {
    Noise noise(seed);
    m_size = {between(noise, 3.2, 6), between(noise, 2.8, 4.6), between(noise, 2.3, 2.9)};
}

Place Room::place(std::uint32_t seed) const {
    Noise noise(m_seed + 7919 * seed);
    Place place{};
    for (std::size_t axis = 0; axis < 3; ++axis)
        place[axis] = between(noise, wallDistance, m_size[axis] - wallDistance);
    return place;
}

Place Room::beside(const Place &place, double distance, std::uint32_t seed) const {
    Noise noise(m_seed + 104729 * seed);
    const double angle = between(noise, 0, 2 * std::numbers::pi);
    Place other = place;
    other[0] += distance * std::cos(angle);
    other[1] += distance * std::sin(angle);
    other[2] += distance * between(noise, -0.3, 0.3);
    for (std::size_t axis = 0; axis < 3; ++axis)
        other[axis] = std::clamp(other[axis], wallDistance / 2, m_size[axis] - wallDistance / 2);
    return other;
}

Signal Room::response(const Place &source, const Place &microphone) const {
    const double volume = m_size[0] * m_size[1] * m_size[2];
    const double surface = 2 * (m_size[0] * m_size[1] + m_size[1] * m_size[2] + m_size[0] * m_size[2]);
    // Eyring's equation, from the reverberation time to what a wall sends back (H. Kuttruff, Room Acoustics, 5.1).
    const double reflection = std::exp(-0.161 * volume / (2 * surface * m_reverberation));

    const double direct = std::max(distance(source, microphone), 0.05);
    const double reach = direct + imagesUntil * speedOfSound;
    Signal response(samplesIn(std::max(m_reverberation, 2 * imagesUntil)));
    const auto images = [&](std::size_t axis) {
        std::vector<std::pair<double, int>> offsets; // From the microphone, and how often it was reflected.
        const int most = static_cast<int>(reach / m_size[axis]) + 1;
        for (int n = -most; n <= most; ++n) {
            const double shift = 2 * n * m_size[axis] - microphone[axis];
            offsets.emplace_back(shift + source[axis], std::abs(2 * n));
            offsets.emplace_back(shift - source[axis], std::abs(2 * n - 1));
        }
        return offsets;
    };
    for (const auto &[x, timesX] : images(0)) {
        for (const auto &[y, timesY] : images(1)) {
            for (const auto &[z, timesZ] : images(2)) {
                const double far = std::max(std::hypot(x, y, z), 0.05);
                const auto at = samplesIn(std::max(far - direct, 0.0) / speedOfSound);
                if (far < reach && at < response.size())
                    response[at] += static_cast<float>(0.5 / far * std::pow(reflection, timesX + timesY + timesZ));
            }
        }
    }
    const auto join = samplesIn(imagesUntil);
    const auto before = join - samplesIn(0.03);
    const double level = std::sqrt(3 * meanSquare(std::span(response).subspan(before, join - before)));
    Noise noise(m_seed + 31 * static_cast<std::uint32_t>(1000 * source[0]));
    for (std::size_t i = join; i < response.size(); ++i) {
        const double fall = -3 * static_cast<double>(i - before) / (m_reverberation * sampleRate);
        response[i] = noise() * static_cast<float>(level * std::pow(10, fall));
    }
    return withoutRumble(std::move(response));
}

Signal heardInMotion(const Signal &signal, const std::vector<Signal> &responses, double from, double to) {
    Signal result(signal.size());
    for (std::size_t step = 0; step < responses.size(); ++step) {
        const auto heard = convolve(signal, responses[step]);
        for (std::size_t i = 0; i < result.size(); ++i) {
            const double time = static_cast<double>(i) / sampleRate;
            const double way = std::clamp((time - from) / (to - from), 0.0, 1.0);
            const double off = std::abs(way * static_cast<double>(responses.size() - 1) - static_cast<double>(step));
            result[i] += heard[i] * static_cast<float>(std::max(0.0, 1 - off));
        }
    }
    return result;
}

} // namespace palomet::bench
