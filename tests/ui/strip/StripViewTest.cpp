#include "ui/strip/StripView.h"

#include "tests/ui/support/UiTest.h"

#include <QSignalSpy>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class StripViewTest : public test::UiTest {
protected:
    void level(const char *event, const char *value) {
        // The levels come by the event stream only.
        backend().last("/events")->event(event, value);
    }
    void follow() {
        backend().on("/events", [](auto exchange) { exchange->beginEvents(); });
        model().start();
        EXPECT_TRUE(test::eventually([this] { return backend().count("/events") == 1; }));
    }

    int m_opened = 0;
    StripView m_view{model(), [this] { ++m_opened; }};
};

} // namespace

TEST_F(StripViewTest, SaysTheStateInAWord) {
    setState("thinking");
    EXPECT_EQ(m_view.loopState(), u"thinking");
    EXPECT_EQ(m_view.word(), u"Thinking");
    model().setSnapshot(nullptr);
    EXPECT_EQ(m_view.loopState(), u"offline");
}

TEST_F(StripViewTest, ShowsTheBeginningOfATextThatIsFarTooLong) {
    const auto show = [this](const QString &text) {
        setState("thinking",
                 [&](Snapshot &snapshot) { snapshot.conversation.rows.push_back(test::row("user", text)); });
    };
    show(u"what\nis it"_s);
    EXPECT_EQ(m_view.line(), u"what is it");
    show(QString(10'000'000, u'x'));
    EXPECT_EQ(m_view.line(), QString(500, u'x') + u'\u2026');
}

TEST_F(StripViewTest, NamesTheStopKeyOnlyWhileThereIsSomethingToStop) {
    for (const auto *state : {"waiting", "listening", "hearing", "drafting", "muted"}) {
        setState(state);
        EXPECT_FALSE(m_view.isStoppable()) << state;
    }
    for (const auto *state : {"thinking", "speaking"}) {
        setState(state);
        EXPECT_TRUE(m_view.isStoppable()) << state;
    }
}

TEST_F(StripViewTest, NamesTheKeyThatWorksOrNone) {
    EXPECT_EQ(m_view.stopKey(), u"esc"_s);
    m_view.setShown(true);
    QSignalSpy changes(&m_view, &StripView::changed);
    m_view.setStopKey(QString());
    m_view.setStopKey(QString());
    EXPECT_EQ(m_view.stopKey(), QString());
    EXPECT_EQ(changes.count(), 1);
    m_view.setStopKey(u"Meta+F1"_s);
    EXPECT_EQ(m_view.stopKey(), u"Meta+F1"_s);
}

TEST_F(StripViewTest, ShowsTheOutputsLevelWhileItSpeaksAndTheInputsOtherwise) {
    follow();
    level("level", "0.25");
    level("outLevel", "0.5");
    ASSERT_TRUE(test::eventually([this] { return model().outLevel() > 0; }));
    setState("hearing");
    EXPECT_EQ(m_view.level(), 0.25);
    setState("speaking");
    EXPECT_EQ(m_view.level(), 0.5);
    setState("listening");
    EXPECT_EQ(m_view.level(), 0.25);
}

TEST_F(StripViewTest, FollowsTheModelOnlyWhileItCanBeSeen) {
    follow();
    QSignalSpy changes(&m_view, &StripView::changed);
    QSignalSpy levels(&m_view, &StripView::levelChanged);
    setState("thinking");
    level("level", "0.25");
    ASSERT_TRUE(test::eventually([this] { return model().inLevel() > 0; }));
    EXPECT_EQ(changes.count() + levels.count(), 0);
    m_view.setShown(true);
    EXPECT_EQ(changes.count(), 1);
    setState("speaking");
    EXPECT_EQ(changes.count(), 2);
    m_view.setShown(false);
    setState("waiting");
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(StripViewTest, OpensTheWindow) {
    m_view.open();
    EXPECT_EQ(m_opened, 1);
}
