#pragma once

#include "model/MicrophonePermission.h"

#include <utility>
#include <vector>

namespace palomet::test {

/// A user who answers when the test says so.
class FakeMicrophonePermission final : public MicrophonePermission {
public:
    explicit FakeMicrophonePermission(MicrophoneStatus status = MicrophoneStatus::Authorized)
        : m_status(status) {}

    [[nodiscard]] MicrophoneStatus status() const override { return m_status; }
    void request(std::function<void()> answered) override { m_askers.push_back(std::move(answered)); }

    [[nodiscard]] std::size_t requests() const { return m_askers.size(); }
    void answer(MicrophoneStatus status) {
        m_status = status;
        for (const auto &answered : std::exchange(m_askers, {}))
            answered();
    }

private:
    MicrophoneStatus m_status;
    std::vector<std::function<void()>> m_askers;
};

} // namespace palomet::test
