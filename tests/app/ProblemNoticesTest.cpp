#include "app/ProblemNotices.h"

#include "localization/Localization.h"
#include "model/PalometModel.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/FakeNotifier.h"
#include "tests/support/ManualScheduler.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

struct Opening {
    Pane pane;
    QString activation;

    bool operator==(const Opening &) const = default;
};

class ProblemNoticesTest : public ::testing::Test {
protected:
    /// What the backend says; nothing when it is away.
    void hear(bool isMicDead = false, bool isMuted = false) {
        auto snapshot = std::make_shared<Snapshot>();
        snapshot->state = u"waiting"_s;
        snapshot->isMicDead = isMicDead;
        snapshot->isMuted = isMuted;
        model.setSnapshot(std::move(snapshot));
    }
    void loseBackend() { model.setSnapshot(nullptr); }

    [[nodiscard]] QStringList showing() const {
        QStringList titles;
        for (const auto &[id, notice] : notifier.showing)
            titles.append(notice.title);
        return titles;
    }

    const QStringList none;
    const QStringList noMicrophone{L("notice.microphone")};
    const QStringList noBackend{L("notice.backend")};
    const QStringList portTaken{L("notice.port")};

    test::ManualScheduler scheduler;
    test::ManualScheduler modelScheduler;
    test::FakeMicrophonePermission permission{MicrophoneStatus::Authorized};
    PalometModel model{modelScheduler, permission, QUrl(u"http://127.0.0.1:1"_s)};
    test::FakeNotifier notifier;
    bool isPortTaken = false;
    bool isWindowShown = false;
    std::vector<Opening> openings;
    ProblemNotices notices{{
        .model = model,
        .notifier = notifier,
        .scheduler = scheduler,
        .isPortTaken = [this] { return isPortTaken; },
        .isWindowShown = [this] { return isWindowShown; },
        .open =
            [this](Pane pane, const QString &activation) {
                openings.push_back({pane, activation});
            },
        .port = 4780,
    }};
};

} // namespace

TEST_F(ProblemNoticesTest, SaysNothingWhileAllIsWell) {
    notices.start();
    hear();
    scheduler.advance(24h);
    EXPECT_TRUE(notifier.said.empty());
}

TEST_F(ProblemNoticesTest, SaysThatTheMicrophoneHasBeenLostForAMinute) {
    hear();
    notices.start();
    hear(true);
    scheduler.advance(59s);
    EXPECT_EQ(showing(), none);
    scheduler.advance(1s);
    EXPECT_EQ(showing(), noMicrophone);
    EXPECT_EQ(notifier.showing.begin()->second,
              (Notifier::Notice{L("notice.microphone"), L("notice.microphone.text"), L("menu.open")}));
}

TEST_F(ProblemNoticesTest, SaysThatTheMicrophoneIsNotAllowed) {
    hear();
    notices.start();
    model.setMicAuthorized(false);
    scheduler.advance(1min);
    EXPECT_EQ(showing(), noMicrophone);
}

TEST_F(ProblemNoticesTest, SaysNothingOfAMicrophoneThatTheUserMuted) {
    hear();
    notices.start();
    hear(true, true);
    scheduler.advance(1h);
    EXPECT_EQ(showing(), none);
}

TEST_F(ProblemNoticesTest, CountsTheMinuteAnewAfterAMomentWithoutTheProblem) {
    hear(true);
    notices.start();
    scheduler.advance(50s);
    hear();
    hear(true);
    scheduler.advance(50s);
    EXPECT_EQ(showing(), none);
    // What else changes does not put it off.
    hear(true);
    scheduler.advance(10s);
    EXPECT_EQ(showing(), noMicrophone);
}

TEST_F(ProblemNoticesTest, SaysThatTheBackendDoesNotAnswer) {
    notices.start();
    scheduler.advance(1min);
    EXPECT_EQ(showing(), noBackend);
}

TEST_F(ProblemNoticesTest, SaysThatAnotherProgramHasThePort) {
    isPortTaken = true;
    notices.start();
    scheduler.advance(1min);
    EXPECT_EQ(showing(), portTaken);
    EXPECT_EQ(notifier.showing.begin()->second.text, L("notice.port.text", u"4780"_s));
}

TEST_F(ProblemNoticesTest, TakesAwayWhatIsOver) {
    notices.start();
    scheduler.advance(1min);
    hear(true);
    EXPECT_EQ(showing(), none);
    scheduler.advance(1min);
    EXPECT_EQ(showing(), noMicrophone);
    hear();
    EXPECT_EQ(showing(), none);
}

TEST_F(ProblemNoticesTest, SaysItOnceHoweverLongItLasts) {
    notices.start();
    scheduler.advance(48h);
    EXPECT_EQ(notifier.said.size(), 1U);
}

TEST_F(ProblemNoticesTest, SaysEachAtMostOnceAnHour) {
    notices.start();
    for (int minute = 0; minute < 30; ++minute) {
        loseBackend();
        scheduler.advance(1min);
        hear();
        scheduler.advance(1min);
    }
    EXPECT_EQ(notifier.said.size(), 1U);
    // Another one is said all the same.
    hear(true);
    scheduler.advance(1min);
    EXPECT_EQ(showing(), noMicrophone);
}

TEST_F(ProblemNoticesTest, SaysItOnceTheHourIsOverIfItIsStillThere) {
    notices.start();
    scheduler.advance(1min);
    hear();
    loseBackend();
    scheduler.advance(59min);
    EXPECT_EQ(notifier.said.size(), 1U);
    scheduler.advance(2min);
    EXPECT_EQ(notifier.said.size(), 2U);
    EXPECT_EQ(showing(), noBackend);
}

TEST_F(ProblemNoticesTest, SaysNothingToWhomSeesTheWindow) {
    isWindowShown = true;
    notices.start();
    scheduler.advance(1min);
    isWindowShown = false;
    scheduler.advance(1h);
    EXPECT_TRUE(notifier.said.empty()) << "it was seen";
    hear();
    loseBackend();
    scheduler.advance(1min);
    EXPECT_EQ(showing(), noBackend);
}

TEST_F(ProblemNoticesTest, OpensThePaneThatHelps) {
    hear(true);
    notices.start();
    scheduler.advance(1min);
    notifier.choose(u"token"_s);
    loseBackend();
    scheduler.advance(1min);
    notifier.choose();
    hear();
    isPortTaken = true;
    loseBackend();
    scheduler.advance(1min);
    notifier.choose();
    EXPECT_EQ(openings, (std::vector<Opening>{{Pane::Listening, u"token"_s}, {Pane::Brain, {}}, {Pane::Brain, {}}}));
}

TEST_F(ProblemNoticesTest, SaysNothingAnyMoreOnceItIsStopped) {
    notices.start();
    scheduler.advance(1min);
    notices.stop();
    EXPECT_EQ(showing(), none);
    hear();
    loseBackend();
    scheduler.advance(2h);
    EXPECT_EQ(notifier.said.size(), 1U);
}
