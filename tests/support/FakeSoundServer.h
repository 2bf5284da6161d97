#pragma once

#include "audio/SoundServer.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// A sound server that does what the test says: which devices there are, whether the microphone opens, what it hears,
/// when the speakers ask and what they have played. The test's thread is its real-time thread.
class FakeSoundServer final : public SoundServer {
public:
    // The devices that there are.
    std::vector<InputDevice> devices{{u"mic.a"_s, u"Mic A"_s}, {u"mic.b"_s, u"Mic B"_s}};
    std::optional<QString> defaultId = u"mic.a"_s;
    /// The answer of `openCapture`, at once; `opensAtOnce` off leaves it to `finishOpening`.
    std::optional<Failure> captureFailure;
    bool opensAtOnce = true;
    bool isAlive = true;
    bool hasToldDevices = true; ///< Off leaves that to `tellDevices`.

    // The requests that it got.
    std::vector<QString> defaultsSet;
    int captureOpenings = 0;
    int playbackOpenings = 0;

    void start(SoundStreams &streams) override { m_streams = &streams; }

    [[nodiscard]] std::vector<InputDevice> inputDevices() const override {
        return isAlive && hasToldDevices ? devices : std::vector<InputDevice>{};
    }
    [[nodiscard]] std::optional<QString> defaultInput() const override {
        return isAlive && hasToldDevices ? defaultId : std::nullopt;
    }

    void setDefaultInput(const QString &id) override {
        defaultsSet.push_back(id);
        defaultId = id;
    }

    void openCapture(Done done) override {
        ++captureOpenings;
        closeCapture();
        m_opening = std::move(done);
        if (!isAlive)
            finishOpening(Failure{u"no server"_s});
        else if (opensAtOnce)
            finishOpening(captureFailure);
    }
    void closeCapture() override {
        m_isCaptureOpen = false;
        finishOpening(Failure{u"abandoned"_s});
    }
    [[nodiscard]] bool isCaptureOpen() const override { return m_isCaptureOpen; }

    void openPlayback() override {
        if (!isAlive || m_isPlaybackOpen)
            return;
        ++playbackOpenings;
        m_isPlaybackOpen = true;
        m_streams->playbackOpened();
    }
    void closePlayback() override { m_isPlaybackOpen = false; }
    [[nodiscard]] bool isPlaybackOpen() const { return m_isPlaybackOpen; }

    // Events.
    [[nodiscard]] bool isOpening() const { return static_cast<bool>(m_opening); }

    void tellDevices() {
        hasToldDevices = true;
        onDevicesTold();
    }

    void finishOpening(std::optional<Failure> failure) {
        if (!m_opening)
            return;
        m_isCaptureOpen = !failure;
        std::exchange(m_opening, {})(failure);
    }

    void deliver(std::span<const float> samples, std::chrono::microseconds delay = std::chrono::milliseconds{40}) {
        if (m_isCaptureOpen)
            m_streams->captured(samples, delay);
    }

    /// The samples that the speakers get when they ask for `count`; none while they are closed.
    std::vector<float> pull(std::size_t count) {
        std::vector<float> samples(m_isPlaybackOpen ? count : 0, 9.0F);
        if (m_isPlaybackOpen)
            m_streams->fill(samples);
        return samples;
    }

    /// Somebody turns a volume.
    void turn(float factor) { m_streams->turned(factor); }

    void hear(std::int64_t frames) {
        if (m_isPlaybackOpen)
            m_streams->heard(frames);
    }

    void die() {
        isAlive = false;
        m_isPlaybackOpen = false;
        m_isCaptureOpen = false;
        onServerLost();
        finishOpening(Failure{u"no server"_s});
    }

    void comeBack() {
        isAlive = true;
        change();
    }

    void change() { onConfigurationChange(); }

private:
    SoundStreams *m_streams = nullptr;
    Done m_opening;
    bool m_isCaptureOpen = false;
    bool m_isPlaybackOpen = false;
};

} // namespace palomet::test
