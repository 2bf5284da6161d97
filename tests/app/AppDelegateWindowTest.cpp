#include "tests/app/AppDelegateTest.h"
#include "ui/kit/Wishes.h"

#include <QTest>

#include <algorithm>

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

TEST_F(AppDelegateTest, MakesNeitherWindowNorStripBeforeTheyAreNeeded) {
    create();
    launch();
    EXPECT_EQ(QGuiApplication::allWindows().size(), 0);
}

TEST_F(AppDelegateTest, MakesOneWindowHoweverOftenItIsOpenedAndLoadsHistoryAndOptionsEachTime) {
    create();
    delegate->openWindow();
    const auto *shown = window();
    ASSERT_TRUE(shown);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->title(), u"Palomet");
    EXPECT_TRUE(eventually([this] { return server.count("/history") == 1 && server.count("/options") == 1; }));
    window()->close();
    EXPECT_FALSE(shown->isVisible());
    delegate->openWindow();
    EXPECT_EQ(window(), shown);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_TRUE(eventually([this] { return server.count("/history") == 2 && server.count("/options") == 2; }));
}

TEST_F(AppDelegateTest, ShowsEverythingWithTheContrastThatTheDesktopAsksForNowAndLater) {
    create();
    look->raiseContrast(true);
    delegate->applicationDidFinishLaunching();
    delegate->openWindow();
    auto &wishes = Wishes::of(*window()->engine());
    EXPECT_TRUE(wishes.isContrastRaised());
    look->raiseContrast(false);
    EXPECT_FALSE(wishes.isContrastRaised());
    look->raiseContrast(true);
    EXPECT_TRUE(wishes.isContrastRaised());
}

TEST_F(AppDelegateTest, ShowsEverythingWithTheMotionThatTheDesktopAsksForNowAndLater) {
    create();
    look->reduceMotion(true);
    delegate->applicationDidFinishLaunching();
    delegate->openWindow();
    auto &wishes = Wishes::of(*window()->engine());
    EXPECT_TRUE(wishes.isMotionReduced());
    look->reduceMotion(false);
    EXPECT_FALSE(wishes.isMotionReduced());
    look->reduceMotion(true);
    EXPECT_TRUE(wishes.isMotionReduced());
}

TEST_F(AppDelegateTest, OpensItsWindowFromTheMenuOnThePaneThatItHad) {
    create();
    delegate->openWindow(Pane::Brain);
    window()->close();
    for (auto *action : test::trayMenu().actions()) {
        if (action->shortcut() == QKeySequence(u"Ctrl+O"_s)) {
            EXPECT_TRUE(action->isEnabled());
            action->trigger();
        }
    }
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(view()->pane(), Pane::Brain);
}

TEST_F(AppDelegateTest, OpensItsWindowForOtherProgramsOnThePaneThatTheyName) {
    create();
    EXPECT_EQ(remote->onCommand({u"open"_s, u"voice"_s}), RemoteOutcome::Done);
    ASSERT_TRUE(window());
    EXPECT_EQ(view()->pane(), Pane::Voice);
    EXPECT_EQ(remote->onCommand({u"open"_s, std::nullopt}), RemoteOutcome::Done);
    EXPECT_EQ(view()->pane(), Pane::Voice);
    window()->close();
    EXPECT_EQ(remote->onCommand({u"open"_s, u"cellar"_s}), RemoteOutcome::Unknown);
    EXPECT_FALSE(window()->isVisible());
    remote->onActivate({});
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(view()->pane(), Pane::Voice);
}

TEST_F(AppDelegateTest, OpensItsWindowOnceWhenThereIsNoHost) {
    create(MicrophoneStatus::NotDetermined);
    delegate->applicationDidFinishLaunching();
    host->become(TrayHost::Status::Absent);
    EXPECT_EQ(window(), nullptr);
    permission->answer(MicrophoneStatus::Authorized);
    ASSERT_TRUE(window());
    EXPECT_TRUE(window()->isVisible());
    window()->close();
    host->become(TrayHost::Status::Present);
    host->become(TrayHost::Status::Absent);
    EXPECT_FALSE(window()->isVisible());
}

TEST_F(AppDelegateTest, OpensNoWindowByItselfWhereThereIsAHost) {
    create();
    host->become(TrayHost::Status::Present);
    launch();
    EXPECT_EQ(window(), nullptr);
}

TEST_F(AppDelegateTest, ShowsTheStripWhileItIsBusyAndOpensTheNowPaneByAClickOnIt) {
    create();
    launch();
    become(u"waiting"_s);
    EXPECT_FALSE(isStripShown());
    become(u"listening"_s);
    ASSERT_TRUE(isStripShown());
    EXPECT_EQ(window(), nullptr);
    delegate->openWindow(Pane::Voice);
    window()->close();
    QTest::mouseClick(test::stripWindows().constFirst(), Qt::LeftButton, {}, {200, 20});
    EXPECT_TRUE(window()->isVisible());
    EXPECT_EQ(view()->pane(), Pane::Now);
    become(u"waiting"_s);
    EXPECT_TRUE(isStripShown());
    scheduler->advance(5s);
    EXPECT_FALSE(isStripShown());
}

TEST_F(AppDelegateTest, HoldsTheStopKeyOnlyWhileThereIsSomethingToStop) {
    constexpr quint32 listenKey = 1;
    constexpr quint32 stopKey = 2;
    create();
    launch();
    EXPECT_TRUE(grabber->held.contains(listenKey));
    EXPECT_FALSE(grabber->held.contains(stopKey));
    for (const auto &[state, isStopHeld] : {std::pair{u"listening"_s, false}, std::pair{u"thinking"_s, true},
                                            std::pair{u"speaking"_s, true}, std::pair{u"waiting"_s, false}}) {
        become(state);
        EXPECT_TRUE(grabber->held.contains(listenKey)) << state.toStdString();
        EXPECT_EQ(grabber->held.contains(stopKey), isStopHeld) << state.toStdString();
    }
}

TEST_F(AppDelegateTest, OpensItsLogFromTheBrainPane) {
    create();
    delegate->openWindow(Pane::Brain);
    auto *app = view();
    ASSERT_TRUE(app);
    app->brain()->openLog();
    EXPECT_EQ(opened, QStringList{LogFile::pathBelow(folder.path())});
}

TEST_F(AppDelegateTest, AsksForFoldersInTheDesktopsDialogAndInItsOwnWhereThereIsNone) {
    create();
    delegate->openWindow(Pane::Brain);
    auto *app = view();
    ASSERT_TRUE(app);
    app->brain()->addFolder();
    ASSERT_EQ(chooser->asked.size(), 1);
    EXPECT_EQ(chooser->asked.front().owner, window()->winId());
    EXPECT_EQ(chooser->asked.front().home, folder.path());
    const auto dialogs = [] {
        const auto widgets = QApplication::topLevelWidgets();
        return std::count_if(widgets.begin(), widgets.end(),
                             [](auto *widget) { return widget->inherits("QFileDialog"); });
    };
    EXPECT_EQ(dialogs(), 0);
    chooser->isMissing = true;
    app->brain()->addFolder();
    EXPECT_EQ(dialogs(), 1);
    for (auto *widget : QApplication::topLevelWidgets())
        widget->close();
    EXPECT_TRUE(eventually([&] { return dialogs() == 0; }));
}

TEST_F(AppDelegateTest, OpensNothingAnyMoreOnceItQuits) {
    create();
    launch();
    delegate->applicationShouldTerminate();
    delegate->openWindow();
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(eventually([this] { return terminations > 0; }));
}
