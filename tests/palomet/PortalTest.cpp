#include "tests/palomet/FollowingTest.h"
#include "tests/platform/dbus/RealPortal.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;
using test::RealPortal;

namespace {

/// The program in a Wayland session, where keys are the portal's.
class PortalTest : public test::FollowingTest {
protected:
    void SetUp() override {
        if (!RealPortal::isInstalled())
            GTEST_SKIP() << "xdg-desktop-portal is not installed";
        setVariable("XDG_SESSION_TYPE", u"wayland"_s);
    }

    bool saysThatTheKeyIsTaken() {
        return eventually([this] {
            const auto status = QJsonDocument::fromJson(command({u"--status"_s, u"--json"_s}).output);
            return status[u"hotKeyProblem"_s] == u"The desktop did not grant ⌥Space. Try other keys."_s;
        });
    }

    RealPortal portal{desktop.bus.connect(), desktop.bus.address()};
};

} // namespace

TEST_F(PortalTest, AnActivationPostsListen) {
    ASSERT_TRUE(portal.start());
    startAndFollow();
    ASSERT_TRUE(eventually([this] { return portal.calls.contains(u"BindShortcuts"_s); }));
    // Again and again: the user cannot know when the program has read the answer.
    EXPECT_TRUE(eventually([this] {
        portal.activate(u"1"_s);
        return backend.http.count("/listen") > 0;
    }));
    EXPECT_EQ(portal.calls.count(u"BindShortcuts"_s), 1);
}

TEST_F(PortalTest, ARefusalIsSaid) {
    portal.answer = RealPortal::Answer::RefuseBinding;
    ASSERT_TRUE(portal.start());
    startAndFollow();
    EXPECT_TRUE(saysThatTheKeyIsTaken());
}

TEST_F(PortalTest, AnAbsentPortalIsSaidAndCommandsAreLeft) {
    startAndFollow();
    EXPECT_TRUE(saysThatTheKeyIsTaken());
    EXPECT_EQ(command({u"--listen"_s}), (Outcome{0, "", ""}));
    EXPECT_TRUE(eventually([this] { return backend.http.count("/listen") == 1; }));
}
