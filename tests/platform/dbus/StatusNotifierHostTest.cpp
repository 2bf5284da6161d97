#include "platform/dbus/StatusNotifierHost.h"

#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TrayHostDouble.h"

#include <gtest/gtest.h>

using namespace palomet;
using test::eventually;
using Host = test::TrayHostDouble::Host;
using Status = TrayHost::Status;

namespace {

class StatusNotifierHostTest : public ::testing::Test {
protected:
    void create() {
        host.emplace(bus.connect());
        host->onChange = [this] { seen.push_back(host->status()); };
        EXPECT_EQ(host->status(), Status::NotDetermined);
    }

    bool becomes(Status status) {
        return eventually([&] { return host->status() == status; });
    }

    test::PrivateBus bus;
    test::TrayHostDouble tray{bus.connect()};
    std::optional<StatusNotifierHost> host;
    std::vector<Status> seen;
};

} // namespace

TEST_F(StatusNotifierHostTest, IsAbsentWithoutAWatcher) {
    create();
    EXPECT_TRUE(becomes(Status::Absent));
}

TEST_F(StatusNotifierHostTest, IsAbsentAtAWatcherWithoutAHost) {
    tray.appear(Host::Absent);
    create();
    EXPECT_TRUE(becomes(Status::Absent));
}

TEST_F(StatusNotifierHostTest, IsAbsentWithoutABus) {
    host.emplace(QDBusConnection::connectToBus(QStringLiteral("unix:path=/nowhere"), QStringLiteral("nowhere")));
    EXPECT_TRUE(becomes(Status::Absent));
}

TEST_F(StatusNotifierHostTest, IsFoundWhenItIsThereFromTheStart) {
    tray.appear();
    create();
    EXPECT_TRUE(becomes(Status::Present));
    EXPECT_EQ(seen, std::vector{Status::Present});
}

TEST_F(StatusNotifierHostTest, IsNoticedWhenItsWatcherStartsLater) {
    create();
    ASSERT_TRUE(becomes(Status::Absent));
    tray.appear();
    EXPECT_TRUE(becomes(Status::Present));
}

TEST_F(StatusNotifierHostTest, IsNoticedWhenItRegistersAndWhenItLeaves) {
    tray.appear(Host::Absent);
    create();
    ASSERT_TRUE(becomes(Status::Absent));
    tray.setHost(Host::Present);
    EXPECT_TRUE(becomes(Status::Present));
    tray.setHost(Host::Absent);
    EXPECT_TRUE(becomes(Status::Absent));
}

TEST_F(StatusNotifierHostTest, IsThereAgainAfterItsWatcherWasRestarted) {
    tray.appear();
    create();
    ASSERT_TRUE(becomes(Status::Present));
    for (int restart = 0; restart < 20; ++restart) {
        tray.vanish();
        EXPECT_TRUE(becomes(Status::Absent));
        tray.appear();
        EXPECT_TRUE(becomes(Status::Present));
    }
    EXPECT_EQ(seen.size(), 41U);
}
