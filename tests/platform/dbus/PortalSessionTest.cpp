#include "tests/platform/dbus/PortalHotKeys.h"

#include <QSet>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::FakePortal;

/// When the desktop's user is asked, and by which name the desktop knows the program again.
using PortalSessionTest = test::PortalHotKeys;

TEST_F(PortalSessionTest, AsksNobodyForKeysThatTheDesktopKnows) {
    portal.known = {{u"1"_s, u"Meta+1"_s}, {u"2"_s, QString()}};
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    EXPECT_TRUE(grabber->isKnown(1));
    EXPECT_FALSE(grabber->isKnown(2));
    EXPECT_FALSE(grabber->grab(2, 53, 0)) << "it is known, and has no keys";
    EXPECT_FALSE(portal.calls.contains(u"BindShortcuts"_s));
}

TEST_F(PortalSessionTest, TakesAKeyThatTheDesktopKnowsWithoutAnyForARefusal) {
    portal.known = {{u"1"_s, QString()}, {u"2"_s, QString()}};
    portal.appear();
    begin();
    EXPECT_TRUE(isTaken);
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    EXPECT_FALSE(portal.calls.contains(u"BindShortcuts"_s));
    EXPECT_TRUE(grabber->isPossible());
}

TEST_F(PortalSessionTest, AsksForKeysOfWhichTheDesktopDoesNotKnowOne) {
    portal.known = {{u"1"_s, u"Meta+9"_s}};
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    EXPECT_EQ(portal.bound.size(), 2);
}

TEST_F(PortalSessionTest, AsksOnceMoreWhenTheUserChoosesTheSameAgain) {
    portal.known = {{u"1"_s, QString()}, {u"2"_s, QString()}};
    portal.appear();
    begin();
    ASSERT_TRUE(test::eventually([&] { return !refused.empty(); }));
    grabber->offer(offers, Occasion::Chosen);
    EXPECT_TRUE(isBound());
    EXPECT_EQ(portal.calls.count(u"BindShortcuts"_s), 1);
}

TEST_F(PortalSessionTest, KeepsOneNameForItsSessionsWhateverIsChosen) {
    portal.appear();
    begin();
    for (const quint32 key : {40U, 49U, 40U}) {
        ASSERT_TRUE(isBound());
        offers[0].keyCode = key;
        grabber->offer(offers, Occasion::Chosen);
        EXPECT_TRUE(grabber->grab(1, key, option)) << "true while the answer is pending";
    }
    ASSERT_TRUE(isBound());
    EXPECT_EQ(QSet<QString>(portal.sessionTokens.begin(), portal.sessionTokens.end()), QSet<QString>{u"palomet"_s});
    EXPECT_EQ(portal.sessionTokens.size(), 4);
    EXPECT_EQ(portal.collisions, 0);
    EXPECT_TRUE(refused.empty());
}

TEST_F(PortalSessionTest, BindsWhatWasChosenLastWhileTheSessionWasBeingMade) {
    portal.answer = FakePortal::Answer::Nothing;
    portal.appear();
    begin();
    ASSERT_TRUE(test::eventually([&] { return portal.pending.has_value(); }));
    for (const quint32 key : {49U, 40U}) {
        offers[0].keyCode = key;
        grabber->offer(offers, Occasion::Chosen);
    }
    portal.answer = FakePortal::Answer::Bind;
    portal.respond(portal.pending->first, 0, portal.pending->second);
    ASSERT_TRUE(isBound());
    EXPECT_EQ(portal.bound[0].properties[u"preferred_trigger"_s], u"ALT+k"_s);
    EXPECT_EQ(portal.collisions, 0);
}

TEST_F(PortalSessionTest, BindsAtAPortalThatDoesNotListAndReadsTheListOfOneThatAnswersWithNothing) {
    portal.answer = FakePortal::Answer::ListNothing;
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    portal.answer = FakePortal::Answer::BindWithoutResults;
    grabber->offer(offers, Occasion::Chosen);
    ASSERT_TRUE(isBound());
    EXPECT_EQ(portal.calls.last(), u"ListShortcuts"_s);
}

TEST_F(PortalSessionTest, IsNotPossibleWhereThePortalMakesNoSession) {
    portal.answer = FakePortal::Answer::RefuseSession;
    portal.appear();
    begin();
    EXPECT_TRUE(grabber->isPossible()) << "as long as nothing else is known";
    bool isTold = false;
    grabber->onTriggersChanged = [&] { isTold = !grabber->isPossible(); };
    EXPECT_TRUE(test::eventually([&] { return isTold; }));
    portal.answer = FakePortal::Answer::RefuseBinding;
    grabber->offer(offers, Occasion::Chosen);
    EXPECT_TRUE(test::eventually([&] { return portal.calls.contains(u"BindShortcuts"_s); }));
    EXPECT_TRUE(grabber->isPossible());
}

TEST_F(PortalSessionTest, BindsAnewOnlyWhenWhatIsOfferedChanged) {
    portal.appear();
    begin();
    ASSERT_TRUE(isBound());
    grabber->offer(offers, Occasion::Known);
    offers[0].keyCode = 40;
    grabber->offer(offers, Occasion::Chosen);
    ASSERT_TRUE(isBound());
    EXPECT_EQ(portal.calls.count(u"CreateSession"_s), 2);
    EXPECT_EQ(portal.calls.count(u"Close"_s), 1);
    EXPECT_EQ(portal.bound[0].properties[u"preferred_trigger"_s], u"ALT+k"_s);
}

TEST_F(PortalSessionTest, BelievesAPortalThatBindsByTheSessionOnlyWhenItTellsAgain) {
    portal.truth = {{u"1"_s, QString()}, {u"2"_s, QString()}};
    portal.appear();
    begin();
    EXPECT_TRUE(test::eventually([&] { return refused == std::vector<quint32>({1}); }));
    EXPECT_EQ(portal.sessionTokens.size(), 2);
    EXPECT_EQ(portal.collisions, 0);
    EXPECT_FALSE(portal.calls.contains(u"BindShortcuts"_s));
    // The user makes room for the key in the desktop's settings.
    portal.truth = {{u"1"_s, u"Meta+1"_s}, {u"2"_s, QString()}};
    portal.change(*portal.truth);
    EXPECT_TRUE(isBound());
}
