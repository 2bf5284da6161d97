#include "base/OnThread.h"

#include "base/SpscRing.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

using namespace palomet;

namespace {

/// Assertions are off in a release, and with them the checks.
void expectToBeCaught(const std::function<void()> &act) {
    EXPECT_DEBUG_DEATH(std::thread(act).join(), "belongs to another thread");
}

} // namespace

TEST(OnThread, LetsTheThreadThatCameFirstComeAgain) {
    OnThread owner;
    std::thread([&] {
        owner.check();
        owner.check();
    }).join();
}

TEST(OnThread, CatchesAnotherThread) {
    OnThread owner;
    owner.check();
    expectToBeCaught([&] { owner.check(); });
}

TEST(OnThread, LetsAnotherThreadFollowAfterTheRelease) {
    OnThread owner;
    owner.check();
    owner.release();
    std::thread([&] { owner.check(); }).join();
}

TEST(SpscRing, CatchesAThirdThread) {
    SpscRing<int> ring(4);
    int item = 0;
    EXPECT_TRUE(ring.push(1));
    EXPECT_TRUE(ring.pop(item));
    expectToBeCaught([&] { ring.push(2); });
    expectToBeCaught([&] { ring.pop(item); });
}

TEST(SpscRing, LetsOtherThreadsFollowWhenItIsHandedOver) {
    SpscRing<int> ring(4);
    ring.push(1);
    ring.handOver();
    std::thread([&] {
        int item = 0;
        EXPECT_TRUE(ring.push(2));
        EXPECT_TRUE(ring.pop(item));
    }).join();
}
