#pragma once

#include "command/RemoteService.h"

namespace palomet::test {

/// A door at which the test knocks by calling `onCommand` and `onActivate`.
class FakeRemoteService final : public RemoteService {
public:
    [[nodiscard]] Claim claim(const QString &) override { return Claim::Primary; }
    void publish(const RemoteStatus &status) override { published = status; }

    RemoteStatus published;
};

} // namespace palomet::test
