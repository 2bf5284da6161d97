#pragma once

#include "audio/echo/EchoCanceller.h"

#include <algorithm>
#include <vector>

namespace palomet::test {

/// Cancels nothing: the microphone's samples pass as they are.
class PassingEchoCanceller : public EchoCanceller {
public:
    void render(std::span<const float, frameSize>) noexcept override {}
    void capture(std::span<const float, frameSize> in, int, std::span<float, frameSize> out) noexcept override {
        std::copy(in.begin(), in.end(), out.begin());
    }
};

/// The calls that an echo canceller got.
struct EchoCancellerCalls {
    std::vector<std::vector<float>> references;
    std::vector<std::vector<float>> microphones;
    std::vector<int> delayHints;
    std::vector<float> turned;
    int created = 0;
    int alive = 0;
};

/// One that writes its calls down.
class FakeEchoCanceller final : public PassingEchoCanceller {
public:
    explicit FakeEchoCanceller(EchoCancellerCalls &calls)
        : m_calls(calls) {
        ++m_calls.created;
        ++m_calls.alive;
    }
    ~FakeEchoCanceller() override { --m_calls.alive; }

    void render(std::span<const float, frameSize> reference) noexcept override {
        m_calls.references.emplace_back(reference.begin(), reference.end());
    }
    void capture(std::span<const float, frameSize> in, int delayHintMs,
                 std::span<float, frameSize> out) noexcept override {
        m_calls.microphones.emplace_back(in.begin(), in.end());
        m_calls.delayHints.push_back(delayHintMs);
        PassingEchoCanceller::capture(in, delayHintMs, out);
    }
    void turned(float factor) noexcept override { m_calls.turned.push_back(factor); }

private:
    EchoCancellerCalls &m_calls;
};

} // namespace palomet::test
