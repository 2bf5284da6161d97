#include "ui/strip/StripController.h"

#include "tests/ui/support/UiTest.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;

namespace {

class FakePanel final : public StripPanel {
public:
    [[nodiscard]] bool isVisible() const override { return m_isVisible; }
    [[nodiscard]] std::vector<ScreenArea> screens() const override { return m_screens; }
    [[nodiscard]] std::optional<QPoint> pointer() const override { return m_pointer; }
    void orderFront(std::optional<QPoint> origin) override {
        m_isVisible = true;
        m_origins.push_back(origin);
    }
    void orderOut() override { m_isVisible = false; }

    std::vector<ScreenArea> m_screens{{{0, 0, 1920, 1080}, {0, 0, 1920, 1040}, true},
                                      {{1920, 0, 1280, 800}, {1920, 30, 1280, 770}, false}};
    std::optional<QPoint> m_pointer = QPoint{10, 10};
    bool m_isVisible = false;
    std::vector<std::optional<QPoint>> m_origins;
};

class StripControllerTest : public test::UiTest {
protected:
    StripControllerTest() {
        m_controller.onEscapeNeeded = [this](bool isNeeded) { m_escapes.push_back(isNeeded); };
    }

    FakePanel m_panel;
    StripController m_controller{model(), m_panel, scheduler()};
    std::vector<bool> m_escapes;
};

} // namespace

TEST_F(StripControllerTest, ShowsTheStripWhileTheLoopIsBusy) {
    for (const auto *state : {"listening", "hearing", "drafting", "thinking", "speaking"}) {
        m_panel.m_isVisible = false;
        setState(state);
        EXPECT_TRUE(m_panel.m_isVisible) << state;
    }
}

TEST_F(StripControllerTest, HidesTheStripFiveSecondsAfterTheLoopCameToRest) {
    for (const auto *state : {"waiting", "offline", "nonsense"}) {
        setState("thinking");
        setState(state);
        scheduler().advance(4999ms);
        EXPECT_TRUE(m_panel.m_isVisible) << state;
        scheduler().advance(1ms);
        EXPECT_FALSE(m_panel.m_isVisible) << state;
    }
}

TEST_F(StripControllerTest, KeepsTheStripHiddenWhenThereIsNothingToShow) {
    setState("waiting");
    setState("offline");
    EXPECT_TRUE(m_panel.m_origins.empty());
    EXPECT_EQ(scheduler().pendingCount(), 0U);
}

TEST_F(StripControllerTest, HidesTheStripWhenTheUserMuted) {
    setState("listening");
    setState("muted", [](Snapshot &snapshot) { snapshot.isMuted = true; });
    EXPECT_TRUE(m_panel.m_isVisible);
    scheduler().advance(5s);
    EXPECT_FALSE(m_panel.m_isVisible);
}

TEST_F(StripControllerTest, ShowsTheStripWhenTheBackendIsMutedForAnotherReason) {
    setState("muted", [](Snapshot &snapshot) { snapshot.isMuted = false; });
    EXPECT_TRUE(m_panel.m_isVisible);
}

TEST_F(StripControllerTest, HidesTheStripWhenTheBackendIsLost) {
    setState("listening");
    model().setSnapshot(nullptr);
    scheduler().advance(5s);
    EXPECT_FALSE(m_panel.m_isVisible);
}

TEST_F(StripControllerTest, CallsAPendingHideOffAndLeavesTheStripWhereItWas) {
    setState("thinking");
    setState("waiting");
    scheduler().advance(3s);
    m_panel.m_pointer = QPoint{2000, 100};
    setState("speaking");
    scheduler().advance(10s);
    EXPECT_TRUE(m_panel.m_isVisible);
    EXPECT_EQ(m_panel.m_origins.size(), 1U);
}

TEST_F(StripControllerTest, HidesOnceHoweverOftenItIsAsked) {
    setState("thinking");
    setState("waiting");
    scheduler().advance(3s);
    setState("offline");
    EXPECT_EQ(scheduler().pendingCount(), 1U);
    scheduler().advance(2s);
    EXPECT_FALSE(m_panel.m_isVisible);
}

TEST_F(StripControllerTest, CanHideAgainAfterItHid) {
    setState("thinking");
    setState("waiting");
    scheduler().advance(5s);
    setState("thinking");
    EXPECT_TRUE(m_panel.m_isVisible);
    setState("waiting");
    scheduler().advance(5s);
    EXPECT_FALSE(m_panel.m_isVisible);
}

TEST_F(StripControllerTest, NeedsTheEscapeKeyOnlyWhileItThinksOrSpeaks) {
    for (const auto *state : {"waiting", "listening", "hearing", "drafting", "thinking", "speaking", "muted"})
        setState(state);
    model().setSnapshot(nullptr);
    EXPECT_EQ(m_escapes, (std::vector{false, false, false, false, true, true, false, false}));
}

TEST_F(StripControllerTest, DecidesAgainWhenTheMicrophonesAuthorisationChanges) {
    setState("thinking");
    m_escapes.clear();
    model().setMicAuthorized(false);
    EXPECT_EQ(m_escapes, std::vector{true});
}

TEST_F(StripControllerTest, StandsCentredAtTheEndOfTheScreenWithThePointer) {
    m_panel.m_pointer = QPoint{2500, 700};
    setState("listening");
    ASSERT_EQ(m_panel.m_origins.size(), 1U);
    EXPECT_EQ(m_panel.m_origins[0], QPoint(1920 + 640 - 220, 800 - 48 - 40));
}

TEST_F(StripControllerTest, StandsOnTheMainScreenWhereThePointerIsNotKnown) {
    m_panel.m_pointer = std::nullopt;
    setState("listening");
    ASSERT_EQ(m_panel.m_origins.size(), 1U);
    EXPECT_EQ(m_panel.m_origins[0], QPoint(960 - 220, 1040 - 48 - 40));
}

TEST_F(StripControllerTest, StandsOnTheMainScreenWhenThePointerIsOnNone) {
    m_panel.m_pointer = QPoint{-50, 5000};
    setState("listening");
    ASSERT_EQ(m_panel.m_origins.size(), 1U);
    EXPECT_EQ(m_panel.m_origins[0], QPoint(960 - 220, 1040 - 48 - 40));
}

TEST_F(StripControllerTest, ShowsTheStripWhereItWasWhenThereIsNoScreen) {
    m_panel.m_screens.clear();
    setState("listening");
    EXPECT_TRUE(m_panel.m_isVisible);
    ASSERT_EQ(m_panel.m_origins.size(), 1U);
    EXPECT_EQ(m_panel.m_origins[0], std::nullopt);
}
