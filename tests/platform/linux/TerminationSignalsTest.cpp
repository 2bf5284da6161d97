#include "platform/linux/TerminationSignals.h"

#include "tests/support/Eventually.h"
#include "tests/support/Processes.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <array>

using namespace palomet;
using test::eventually;

TEST(TerminationSignals, AreRequestsToQuitHeardOnTheEventLoop) {
    int requests = 0;
    const TerminationSignals signals([&] { ++requests; });
    int expected = 0;
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGTERM}) {
        raise(number);
        EXPECT_EQ(requests, expected);
        ++expected;
        EXPECT_TRUE(eventually([&] { return requests == expected; }));
    }
}

TEST(TerminationSignals, LeaveAHangUpIgnoredThatWasIgnoredFromTheStart) {
    const auto before = signal(SIGHUP, SIG_IGN);
    {
        int requests = 0;
        const TerminationSignals signals([&] { ++requests; });
        raise(SIGHUP);
        raise(SIGTERM);
        EXPECT_TRUE(eventually([&] { return requests > 0; }));
        EXPECT_EQ(requests, 1);
    }
    EXPECT_EQ(signal(SIGHUP, before), SIG_IGN);
}

TEST(TerminationSignals, BlockNothingAndIgnoreOnlyABrokenPipeAndAFileAtItsLimit) {
    const auto formerChild = signal(SIGCHLD, SIG_IGN);
    {
        const TerminationSignals signals([] {});
        EXPECT_EQ(test::statusOf(getpid(), "SigBlk"), "0000000000000000");
        raise(SIGPIPE);
        raise(SIGXFSZ);
        // An ignored end of a child, inherited from whoever started this, would hide the backend's.
        EXPECT_EQ(signal(SIGCHLD, formerChild), SIG_DFL);
    }
}
