#include "base/QtScheduler.h"
#include "tests/support/Eventually.h"
#include "tests/support/ManualScheduler.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;

TEST(Scheduler, RunsAnActionOnceFromTheEventLoop) {
    QtScheduler scheduler;
    int runs = 0;
    const auto handle = scheduler.after(1ms, [&] { ++runs; });
    EXPECT_EQ(runs, 0);
    EXPECT_TRUE(handle->isActive());
    EXPECT_TRUE(test::eventually([&] { return runs == 1; }));
    EXPECT_FALSE(handle->isActive());
}

TEST(Scheduler, RunsAPeriodicActionUntilItsHandleEnds) {
    QtScheduler scheduler;
    int runs = 0;
    Scheduler::Handle handle = scheduler.every(1ms, [&] {
        if (++runs == 3)
            handle.reset();
    });
    EXPECT_TRUE(test::eventually([&] { return runs == 3; }));
    EXPECT_EQ(handle, nullptr);
}

TEST(Scheduler, ACancelledActionNeverRuns) {
    test::ManualScheduler scheduler;
    int runs = 0;
    auto handle = scheduler.after(5ms, [&] { ++runs; });
    handle.reset();
    scheduler.advance(1h);
    EXPECT_EQ(runs, 0);
}
