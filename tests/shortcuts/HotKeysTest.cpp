#include "shortcuts/HotKeys.h"

#include "tests/support/FakeHotKeyGrabber.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace palomet;

namespace {

class HotKeysTest : public testing::Test {
protected:
    static void settle() { QCoreApplication::sendPostedEvents(); }

    test::FakeHotKeyGrabber *grabber = new test::FakeHotKeyGrabber;
    HotKeys hotKeys{std::unique_ptr<HotKeyGrabber>(grabber)};
    int first = 0;
    int second = 0;
};

} // namespace

TEST_F(HotKeysTest, RunTheActionOfThePressedIdLaterNotAtOnce) {
    EXPECT_TRUE(hotKeys.registerHotKey(1, 49, 0x800, [&] { ++first; }));
    EXPECT_TRUE(hotKeys.registerHotKey(2, 53, 0, [&] { ++second; }));
    grabber->onPressed(1);
    EXPECT_EQ(first, 0);
    settle();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
}

TEST_F(HotKeysTest, RegisteredTwiceUnderOneIdStayAsTheyWere) {
    EXPECT_TRUE(hotKeys.registerHotKey(1, 49, 0x800, [&] { ++first; }));
    EXPECT_TRUE(hotKeys.registerHotKey(1, 40, 0x1000, [&] { ++second; }));
    EXPECT_EQ(grabber->held.at(1).keyCode, 49U);
    grabber->onPressed(1);
    settle();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
}

TEST_F(HotKeysTest, NeverRegisteredAreUnregisteredWithoutEffect) {
    hotKeys.unregisterHotKey(7);
    EXPECT_TRUE(grabber->held.empty());
}

TEST_F(HotKeysTest, UnregisteredWhileAPressIsQueuedDoNotRun) {
    EXPECT_TRUE(hotKeys.registerHotKey(1, 49, 0x800, [&] { ++first; }));
    grabber->onPressed(1);
    hotKeys.unregisterHotKey(1);
    settle();
    EXPECT_EQ(first, 0);
    EXPECT_TRUE(grabber->held.empty());
}

TEST(HotKeysOfTheDesktop, AreLeftToIt) {
    struct WindowMenu final : DesktopKeys {
        QString actionOn(quint32 keyCode, quint32 modifiers) override {
            return keyCode == 49 && modifiers == 0x800 ? QStringLiteral("window menu") : QString();
        }
    };
    auto *grabber = new test::FakeHotKeyGrabber;
    HotKeys hotKeys(std::unique_ptr<HotKeyGrabber>(grabber), std::make_unique<WindowMenu>());
    EXPECT_FALSE(hotKeys.registerHotKey(1, 49, 0x800, [] {}));
    EXPECT_EQ(grabber->grabs, 0);
    EXPECT_TRUE(hotKeys.registerHotKey(1, 49, 0x1800, [] {}));
}

TEST_F(HotKeysTest, RefusedAreNotStored) {
    grabber->refuses = true;
    EXPECT_FALSE(hotKeys.registerHotKey(1, 49, 0x800, [&] { ++first; }));
    hotKeys.unregisterHotKey(1);
    grabber->onPressed(1);
    settle();
    EXPECT_EQ(first, 0);
    grabber->refuses = false;
    EXPECT_TRUE(hotKeys.registerHotKey(1, 49, 0x800, [&] { ++first; }));
}

TEST_F(HotKeysTest, RefusedLaterAreTold) {
    EXPECT_TRUE(hotKeys.registerHotKey(1, 49, 0x800, [&] { ++first; }));
    quint32 refused = 0;
    QObject::connect(&hotKeys, &HotKeys::refused, [&](quint32 id) { refused = id; });
    grabber->onRefused(1);
    EXPECT_EQ(refused, 1U);
    grabber->onPressed(1);
    settle();
    EXPECT_EQ(first, 0);
}

TEST_F(HotKeysTest, OfAnActionThatUnregistersItselfEndInOrder) {
    EXPECT_TRUE(hotKeys.registerHotKey(1, 49, 0x800, [&] {
        ++first;
        hotKeys.unregisterHotKey(1);
    }));
    grabber->onPressed(1);
    grabber->onPressed(1);
    settle();
    EXPECT_EQ(first, 1);
}

TEST_F(HotKeysTest, EndTheProcessForNumbersThatCannotBe) {
    EXPECT_DEATH(hotKeys.registerHotKey(3, -1, 0, [] {}), "32 bits");
    EXPECT_DEATH(hotKeys.registerHotKey(3, 1, 0x1'0000'0000, [] {}), "32 bits");
}
