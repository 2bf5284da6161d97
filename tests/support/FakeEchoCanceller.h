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
    void reset() noexcept override {}
    [[nodiscard]] EchoCancellerState state() const override { return {QStringLiteral("none"), false, {}, {}}; }
};

/// The calls that an echo canceller got.
struct EchoCancellerCalls {
    std::vector<std::vector<float>> references;
    std::vector<int> delayHints;
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
        m_calls.delayHints.push_back(delayHintMs);
        PassingEchoCanceller::capture(in, delayHintMs, out);
        m_hasHeard = true;
    }
    /// Converged from its first frame on.
    [[nodiscard]] EchoCancellerState state() const override { return {QStringLiteral("fake"), m_hasHeard, {}, {}}; }

private:
    EchoCancellerCalls &m_calls;
    bool m_hasHeard = false;
};

} // namespace palomet::test
