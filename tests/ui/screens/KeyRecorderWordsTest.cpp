#include "localization/Localization.h"
#include "tests/ui/screens/KeyRecorderTest.h"

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

TEST_F(KeyRecorderTest, CallsItsKeyAsTheLayoutThatIsActiveDoes) {
    shortcuts.setListen(Shortcut(keyK, Shortcut::control));
    stop.toggle();
    stop.handle(keyK, Shortcut::control);
    int changed = 0;
    QObject::connect(&listen, &KeyRecorder::changed, [&] { ++changed; });
    layout.become({{keyK, u"л"_s}});
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(listen.caps(), QStringList({u"icon:chevron-up"_s, u"Л"_s}));
    EXPECT_EQ(listen.spoken(), u"Ctrl + Л"_s);
    EXPECT_EQ(stop.message(), u"⌃Л already does “Listen”."_s);
}

TEST_F(KeyRecorderTest, SaysItsShortcutInCapsAndInWords) {
    EXPECT_EQ(listen.caps(), Shortcuts::defaultListen.caps(layout));
    EXPECT_EQ(listen.spoken(), u"Alt + Space"_s);
    EXPECT_EQ(stop.spoken(), u"Esc"_s);
    shortcuts.setListen(Shortcut(keyK, Shortcut::relevant));
    EXPECT_EQ(listen.spoken(), u"Ctrl + Alt + Shift + Super + K"_s);
}

TEST_F(KeyRecorderTest, TellsWhatAPressDoesNow) {
    EXPECT_EQ(listen.help(), L("recorder.help.idle"));
    listen.toggle();
    EXPECT_EQ(listen.help(), L("recorder.help.recording"));
    listen.toggle();
}

TEST_F(KeyRecorderTest, ShowsTheKeysThatTheDesktopGrantedInPlaceOfTheStoredOnes) {
    int announcements = 0;
    QObject::connect(&listen, &KeyRecorder::changed, [&] { ++announcements; });
    shortcuts.setGranted(u"Meta+1"_s, {});
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(listen.caps(), QStringList(u"Meta+1"_s));
    EXPECT_EQ(listen.spoken(), u"Meta+1"_s);
    EXPECT_EQ(stop.caps(), Shortcuts::defaultStop.caps(layout));
    shortcuts.setGranted({}, {});
    EXPECT_EQ(listen.caps(), Shortcuts::defaultListen.caps(layout));
}
