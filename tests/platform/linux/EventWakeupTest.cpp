#include "platform/linux/EventWakeup.h"

#include "tests/support/Eventually.h"

#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>
#include <vector>

using namespace palomet;

TEST(EventWakeup, IsHeardOnTheThreadThatMadeIt) {
    QThread *heardOn = nullptr;
    const auto bell = EventWakeup::make([&] { heardOn = QThread::currentThread(); });
    std::thread ringer([&] { bell->raise(); });
    ringer.join();
    EXPECT_EQ(heardOn, nullptr);
    EXPECT_TRUE(test::eventually([&] { return heardOn != nullptr; }));
    EXPECT_EQ(heardOn, QThread::currentThread());
}

TEST(EventWakeup, HearsRingsThatComeTogetherAsOne) {
    int heard = 0;
    const auto bell = EventWakeup::make([&] { ++heard; });
    for (int i = 0; i < 1000; ++i)
        bell->raise();
    EXPECT_TRUE(test::eventually([&] { return heard > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, 1);
}

TEST(EventWakeup, NeverMissesTheLastOfManyRingsFromManyThreads) {
    constexpr int threadCount = 4;
    constexpr int ringCount = 5000;
    std::array<std::atomic<int>, threadCount> written{};
    std::array<int, threadCount> seen{};
    const auto bell = EventWakeup::make([&] {
        for (std::size_t i = 0; i < threadCount; ++i)
            seen[i] = written[i].load(std::memory_order_relaxed);
    });
    std::vector<std::thread> ringers;
    for (std::size_t i = 0; i < threadCount; ++i) {
        ringers.emplace_back([&, i] {
            for (int ring = 1; ring <= ringCount; ++ring) {
                written[i].store(ring, std::memory_order_relaxed);
                bell->raise();
            }
        });
    }
    const bool isComplete = test::eventually(
        [&] { return std::all_of(seen.begin(), seen.end(), [](int count) { return count == ringCount; }); });
    for (auto &ringer : ringers)
        ringer.join();
    EXPECT_TRUE(isComplete);
}

TEST(EventWakeup, IsHeardAgainWhenRungWhileItIsHeard) {
    int heard = 0;
    std::unique_ptr<Wakeup> bell;
    bell = EventWakeup::make([&] {
        if (++heard == 1)
            bell->raise();
    });
    bell->raise();
    EXPECT_TRUE(test::eventually([&] { return heard == 2; }));
}

TEST(EventWakeup, MayBeDestroyedByItsReceiver) {
    bool isHeard = false;
    std::unique_ptr<Wakeup> bell;
    bell = EventWakeup::make([&, proof = std::make_shared<int>(7)] {
        bell.reset();
        isHeard = *proof == 7;
    });
    bell->raise();
    EXPECT_TRUE(test::eventually([&] { return isHeard; }));
}

TEST(EventWakeup, IsNotHeardAfterItsEnd) {
    int heard = 0;
    auto bell = EventWakeup::make([&] { ++heard; });
    bell->raise();
    bell.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, 0);
}
