#include "platform/pulse/RealTimeThread.h"

#include "platform/pulse/PulseMainloop.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <QDBusContext>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pulse/mainloop-api.h>
#include <sched.h>

#include <atomic>
#include <thread>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

/// Writes down whom it was asked for.
class RealtimeKitDouble : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.RealtimeKit1")

public:
    std::vector<std::pair<quint64, quint32>> asked;

public Q_SLOTS:
    void MakeThreadRealtime(qulonglong thread, uint priority) { asked.emplace_back(thread, priority); }
};

} // namespace

TEST(RealTimeThread, IsAskedForWhereTheUserMayNotTakeIt) {
    test::PrivateBus bus;
    if (bus.address().isEmpty())
        GTEST_SKIP() << "no dbus-daemon";
    RealtimeKitDouble kit;
    auto service = bus.connect();
    service.registerObject(u"/org/freedesktop/RealtimeKit1"_s, &kit, QDBusConnection::ExportAllSlots);
    ASSERT_TRUE(service.registerService(u"org.freedesktop.RealtimeKit1"_s));
    askForRealTime(bus.connect(), 77);
    EXPECT_TRUE(test::eventually([&] { return !kit.asked.empty(); }));
    EXPECT_THAT(kit.asked, testing::ElementsAre(std::pair(quint64{77}, quint32{4})));
}

TEST(RealTimeThread, IsTheSoundThreadWhereTheUserMayTakeIt) {
    bool mayBe = false;
    std::thread([&] { mayBe = makeThisThreadRealTime(); }).join();
    if (!mayBe)
        GTEST_SKIP() << "not allowed here";
    std::atomic<int> policy{-1};
    PulseMainloop mainloop; // ends before what it answers into
    const auto ask = [&] {
        const PulseMainloop::Lock lock(mainloop);
        pa_mainloop_api_once(
            mainloop.api(),
            [](pa_mainloop_api *, void *result) { *static_cast<std::atomic<int> *>(result) = sched_getscheduler(0); },
            &policy);
    };
    // The first answer may come before the thread has begun to be more than an ordinary one.
    EXPECT_TRUE(test::eventually([&] {
        ask();
        return policy >= 0 && (policy & ~SCHED_RESET_ON_FORK) == SCHED_RR;
    }));
}

#include "RealTimeThreadTest.moc"
