#include "app/KeyBindings.h"

#include "localization/Localization.h"
#include "model/PalometModel.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeHotKeyGrabber.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 controlOption = Shortcut::control | Shortcut::option;

using Held = test::FakeHotKeyGrabber::Held;
const Held optionSpace{49, 0x800};
const Held escape{53, 0};

class KeyBindingsTest : public testing::Test {
protected:
    KeyBindingsTest() {
        localization::load(u"" PALOMET_SOURCE_DIR "/resources"_s, {u"en"_s});
        backend.serve("/listen", {});
        backend.serve("/stop", {});
    }

    [[nodiscard]] bool holds(quint32 id, const Held &combination) const {
        const auto found = grabber->held.find(id);
        return found != grabber->held.end() && found->second == combination;
    }

    test::ManualScheduler scheduler;
    test::FakeMicrophonePermission permission;
    test::ScriptedBackend backend;
    PalometModel model{scheduler, permission, backend.base()};
    test::FakeHotKeyGrabber *grabber = new test::FakeHotKeyGrabber;
    HotKeys hotKeys{std::unique_ptr<HotKeyGrabber>(grabber)};
    QTemporaryDir folder;
    QSettings settings{folder.filePath(u"palomet.conf"_s), QSettings::IniFormat};
    Shortcuts shortcuts{settings};
    test::FixedKeyboardLayout layout{{{40, u"k"_s}}};
    QKeySequence listenKey;
    QKeySequence stopKey;
    QString stopWords;
    KeyBindings bindings{{
        .model = model,
        .hotKeys = hotKeys,
        .shortcuts = shortcuts,
        .layout = layout,
        .showInMenu =
            [this](const auto &listen, const auto &stop) {
                listenKey = listen;
                stopKey = stop;
            },
        .showStopKey = [this](const auto &words) { stopWords = words; },
    }};
};

} // namespace

TEST_F(KeyBindingsTest, TakesTheListenKeyAtOnceAndPostsListenWhenItIsPressed) {
    bindings.start();
    EXPECT_TRUE(holds(1, optionSpace));
    grabber->onPressed(1);
    EXPECT_TRUE(test::eventually([&] { return backend.count("/listen") == 1; }));
}

TEST_F(KeyBindingsTest, TakesEscapeOnlyWhileThereIsSomethingToStop) {
    bindings.start();
    EXPECT_FALSE(grabber->held.contains(2));
    bindings.setStopNeeded(true);
    EXPECT_TRUE(holds(2, escape));
    grabber->onPressed(2);
    EXPECT_TRUE(test::eventually([&] { return backend.count("/stop") == 1; }));
    bindings.setStopNeeded(false);
    EXPECT_FALSE(grabber->held.contains(2));
}

TEST_F(KeyBindingsTest, TakesNothingWhilePausedButShowsTheKeysInTheMenu) {
    bindings.start();
    shortcuts.setPaused(true);
    EXPECT_TRUE(grabber->held.empty());
    shortcuts.setListen(Shortcut(40, controlOption));
    EXPECT_TRUE(grabber->held.empty());
    EXPECT_EQ(listenKey, QKeySequence(u"Ctrl+Alt+K"_s));
    bindings.setStopNeeded(true);
    EXPECT_TRUE(grabber->held.empty());
    EXPECT_EQ(stopKey, QKeySequence(Qt::Key_Escape));
    shortcuts.setPaused(false);
    EXPECT_TRUE(holds(1, {40, 0x1800}));
    EXPECT_TRUE(holds(2, escape));
}

TEST_F(KeyBindingsTest, ShowsARefusedListenKeyAsAProblemAndKeepsItInTheMenu) {
    grabber->refuses = true;
    bindings.start();
    EXPECT_EQ(model.hotKeyProblem(), L("shortcut.taken", Shortcut(49, Shortcut::option).text(layout)));
    EXPECT_EQ(listenKey, QKeySequence(u"Alt+Space"_s));
    grabber->refuses = false;
    shortcuts.setListen(Shortcut(40, controlOption));
    EXPECT_EQ(model.hotKeyProblem(), std::nullopt);
}

TEST_F(KeyBindingsTest, NeverReportsARefusedStopKey) {
    bindings.start();
    grabber->refuses = true;
    bindings.setStopNeeded(true);
    grabber->refuses = false;
    EXPECT_NE(model.hotKeyProblem(), std::nullopt); // The listen key was refused with it.
    bindings.setStopNeeded(false);
    bindings.setStopNeeded(true);
    EXPECT_EQ(model.hotKeyProblem(), std::nullopt);
    grabber->onRefused(2);
    EXPECT_EQ(model.hotKeyProblem(), std::nullopt);
    grabber->onRefused(1);
    EXPECT_NE(model.hotKeyProblem(), std::nullopt);
}

TEST_F(KeyBindingsTest, OffersBothKeysToADesktopWhoseUserDecides) {
    bindings.start();
    ASSERT_EQ(grabber->offered.size(), 2U);
    EXPECT_EQ(grabber->offered[0], (HotKeyOffer{1, L("menu.listen"), 49, 0x800}));
    EXPECT_EQ(grabber->offered[1], (HotKeyOffer{2, L("menu.stop"), 53, 0}));
}

TEST_F(KeyBindingsTest, ShowsNoKeyForAShortcutThatWasCleared) {
    bindings.start();
    shortcuts.setListen(std::nullopt);
    EXPECT_TRUE(listenKey.isEmpty());
    EXPECT_FALSE(grabber->held.contains(1));
    EXPECT_EQ(stopKey, QKeySequence(Qt::Key_Escape));
}

TEST_F(KeyBindingsTest, ShowsEveryKindOfKeyInTheMenu) {
    const auto shown = [&](quint32 code, quint64 flags) {
        return KeyBindings::keySequence(Shortcut(code, flags), layout);
    };
    EXPECT_EQ(shown(96, 0), QKeySequence(Qt::Key_F5));
    EXPECT_EQ(shown(90, Shortcut::shift), QKeySequence(Qt::SHIFT | Qt::Key_F20));
    EXPECT_EQ(shown(126, Shortcut::command), QKeySequence(Qt::META | Qt::Key_Up));
    EXPECT_EQ(shown(76, Shortcut::control), QKeySequence(Qt::CTRL | Qt::Key_Enter));
    EXPECT_EQ(shown(10, Shortcut::control), QKeySequence());
}

TEST_F(KeyBindingsTest, KeepsItsKeysAndNamesThemAnewWhenAnotherLayoutIsActive) {
    shortcuts.setListen(Shortcut(40, controlOption));
    bindings.start();
    bindings.setStopNeeded(true);
    const int grabs = grabber->grabs;
    const int releases = grabber->releases;
    layout.become({{40, u"л"_s}});
    EXPECT_EQ(listenKey, QKeySequence(u"Ctrl+Alt+Л"_s));
    EXPECT_TRUE(holds(1, {40, 0x1800}));
    EXPECT_TRUE(holds(2, escape));
    EXPECT_EQ(grabber->grabs, grabs) << "a press between giving back and taking anew would be lost";
    EXPECT_EQ(grabber->releases, releases);
}

TEST_F(KeyBindingsTest, NamesTheKeyThatWasRefusedAnewAndDoesNotTakeItWhenAnotherLayoutIsActive) {
    shortcuts.setListen(Shortcut(40, controlOption));
    grabber->refuses = true;
    bindings.start();
    EXPECT_EQ(model.hotKeyProblem(), L("shortcut.taken", u"⌃⌥K"_s));
    // The other program lets go of it for a moment, to take it anew under the new layout.
    grabber->refuses = false;
    layout.become({{40, u"л"_s}});
    EXPECT_TRUE(grabber->held.empty());
    EXPECT_EQ(model.hotKeyProblem(), L("shortcut.taken", u"⌃⌥Л"_s));
}

TEST_F(KeyBindingsTest, TakesARefusedKeyThatTheDesktopsUserGrantsLater) {
    grabber->refuses = true;
    bindings.start();
    EXPECT_NE(model.hotKeyProblem(), std::nullopt);
    grabber->refuses = false;
    grabber->onGranted(1);
    EXPECT_TRUE(holds(1, optionSpace));
    EXPECT_EQ(model.hotKeyProblem(), std::nullopt);
    shortcuts.setPaused(true);
    grabber->onGranted(1);
    EXPECT_TRUE(grabber->held.empty()) << "not while paused";
}

TEST_F(KeyBindingsTest, TellsTheKeysThatTheDesktopGrantedWhereTheyAreNotTheWishedOnes) {
    bindings.start();
    EXPECT_EQ(shortcuts.grantedListen(), QString());
    grabber->triggers = {{1, u"Meta+1"_s}, {2, u"Esc"_s}};
    grabber->onTriggersChanged();
    EXPECT_EQ(shortcuts.grantedListen(), u"Meta+1"_s);
    EXPECT_EQ(shortcuts.grantedStop(), QString());
    grabber->triggers = {{1, u"Alt+Space"_s}, {2, u"the key at the top left"_s}};
    grabber->onTriggersChanged();
    EXPECT_EQ(shortcuts.grantedListen(), QString());
    EXPECT_EQ(shortcuts.grantedStop(), u"the key at the top left"_s);
}

TEST_F(KeyBindingsTest, ShowsTheKeysThatTheDesktopGrantedInTheMenu) {
    bindings.start();
    grabber->triggers = {{1, u"Meta+1, Meta+2"_s}, {2, u"the key at the top left"_s}};
    grabber->onTriggersChanged();
    EXPECT_EQ(listenKey, QKeySequence(u"Meta+1"_s));
    EXPECT_EQ(stopKey, QKeySequence()) << "words that are no key";
    grabber->triggers.clear();
    grabber->onTriggersChanged();
    EXPECT_EQ(listenKey, QKeySequence(u"Alt+Space"_s));
    EXPECT_EQ(stopKey, QKeySequence(Qt::Key_Escape));
}

TEST_F(KeyBindingsTest, SaysTheStopKeyOnlyWhileItWorks) {
    bindings.start();
    EXPECT_EQ(stopWords, QString()) << "there is nothing to stop";
    bindings.setStopNeeded(true);
    EXPECT_EQ(stopWords, u"esc"_s);
    grabber->triggers = {{2, u"Meta+2"_s}};
    grabber->onTriggersChanged();
    EXPECT_EQ(stopWords, u"Meta+2"_s);
    grabber->onRefused(2);
    EXPECT_EQ(stopWords, QString());
    grabber->triggers.clear();
    shortcuts.setStop(Shortcut(40, controlOption));
    EXPECT_EQ(stopWords, u"Ctrl+Alt+K"_s);
    shortcuts.setStop(std::nullopt);
    EXPECT_EQ(stopWords, QString());
}

TEST_F(KeyBindingsTest, SaysNoStopKeyWhileTheDesktopsAnswerIsPending) {
    grabber->pending = {2};
    bindings.start();
    bindings.setStopNeeded(true);
    EXPECT_EQ(stopWords, QString());
    grabber->pending.clear();
    grabber->onTriggersChanged();
    EXPECT_EQ(stopWords, u"esc"_s);
    grabber->refuses = true;
    bindings.setStopNeeded(false);
    bindings.setStopNeeded(true);
    EXPECT_EQ(stopWords, QString());
}

TEST_F(KeyBindingsTest, HasTheDesktopsUserAskedAnewOnlyWhenAKeyWasChosen) {
    using Occasion = HotKeyGrabber::Occasion;
    bindings.start();
    bindings.setStopNeeded(true);
    shortcuts.setPaused(true);
    shortcuts.setPaused(false);
    shortcuts.setStop(std::nullopt);
    EXPECT_EQ(std::ranges::count(grabber->occasions, Occasion::Chosen), 0);
    shortcuts.setListen(Shortcuts::defaultListen);
    EXPECT_EQ(grabber->occasions.back(), Occasion::Chosen) << "the same again";
    bindings.setStopNeeded(false);
    EXPECT_EQ(grabber->occasions.back(), Occasion::Known);
}

TEST_F(KeyBindingsTest, SaysWhetherTheDesktopGrantsKeysAtAll) {
    bindings.start();
    EXPECT_TRUE(shortcuts.isGrantable());
    grabber->isGrantable = false;
    grabber->onTriggersChanged();
    EXPECT_FALSE(shortcuts.isGrantable());
}
