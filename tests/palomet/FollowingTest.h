#pragma once

#include "tests/palomet/BackendAtItsPort.h"
#include "tests/palomet/ProgramTest.h"

namespace palomet::test {

/// The program with a whole backend at its port, which it follows.
class FollowingTest : public ProgramTest {
protected:
    void startAndFollow() {
        start();
        awaitBackend();
        ASSERT_TRUE(backend.isFollowed());
    }

    BackendAtItsPort backend;
};

} // namespace palomet::test
