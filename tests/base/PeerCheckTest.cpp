#include "base/PeerCheck.h"

#include <gtest/gtest.h>

using namespace palomet;

namespace {

struct PeerCheckTest : testing::Test {
    SocketOwner owner = SocketOwner::Ours;
    quint16 askedFrom = 0;
    int strangers = 0;
    PeerCheck check{[this](quint16, quint16 from) {
                        askedFrom = from;
                        return owner;
                    },
                    [this] { ++strangers; }};
};

} // namespace

TEST_F(PeerCheckTest, AdmitsOnesOwnProgramsAndThoseWhoseUserCannotBeTold) {
    EXPECT_TRUE(check.admits(4780, 0));
    owner = SocketOwner::Unknown;
    EXPECT_TRUE(check.admits(4780, 50000));
    EXPECT_EQ(askedFrom, 50000);
    EXPECT_EQ(strangers, 0);
}

TEST_F(PeerCheckTest, AdmitsNoProgramOfAnotherUserAndSaysSoOnceUntilOneOfItsOwnWasThere) {
    owner = SocketOwner::Others;
    EXPECT_FALSE(check.admits(4780, 0));
    EXPECT_FALSE(check.admits(4780, 0));
    EXPECT_EQ(strangers, 1);
    // Nobody, for a moment.
    owner = SocketOwner::Unknown;
    EXPECT_TRUE(check.admits(4780, 0));
    owner = SocketOwner::Others;
    EXPECT_FALSE(check.admits(4780, 0));
    EXPECT_EQ(strangers, 1);
    owner = SocketOwner::Ours;
    EXPECT_TRUE(check.admits(4780, 0));
    owner = SocketOwner::Others;
    EXPECT_FALSE(check.admits(4780, 0));
    EXPECT_EQ(strangers, 2);
}
