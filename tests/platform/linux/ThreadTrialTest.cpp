#include "platform/linux/ThreadTrial.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace palomet;

TEST(ThreadTrial, FindsNothingWrongWhereThreadsMayRunAndLeavesNone) {
    EXPECT_FALSE(trialOfThreads(32));
    EXPECT_FALSE(trialOfThreads(32));
}

TEST(ThreadTrial, SaysWhyAThreadMayNotRun) {
    const auto tryWithFew = [] {
        // Nothing is refused to root, and of this user there are no other processes.
        constexpr uid_t somebody = 54321;
        if (setresuid(somebody, somebody, somebody) != 0)
            _exit(2);
        const rlimit few{8, 8};
        setrlimit(RLIMIT_NPROC, &few);
        const auto problem = trialOfThreads(32);
        _exit(problem &&
                      problem->reason == QStringLiteral("the system refuses a thread: Resource temporarily unavailable")
                  ? 0
                  : 1);
    };
    if (geteuid() != 0)
        GTEST_SKIP() << "only the administrator can be somebody else";
    EXPECT_EXIT(tryWithFew(), testing::ExitedWithCode(0), "");
}
