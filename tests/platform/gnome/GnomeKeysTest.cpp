#include "platform/gnome/GnomeKeys.h"

#include "shortcuts/HotKeyGrabber.h"
#include "shortcuts/Keys.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/support/Eventually.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

constexpr quint32 option = HotKeyGrabber::Option;
constexpr quint32 command = HotKeyGrabber::Command;

/// Some of what GNOME has.
constexpr auto schemas = R"(<schemalist>
  <schema id="org.gnome.desktop.wm.keybindings" path="/org/gnome/desktop/wm/keybindings/">
    <key name="activate-window-menu" type="as"><default>['&lt;Alt&gt;space']</default></key>
    <key name="minimize" type="as"><default>[]</default></key>
  </schema>
  <schema id="org.gnome.shell.keybindings" path="/org/gnome/shell/keybindings/">
    <key name="focus-active-notification" type="as"><default>['&lt;Super&gt;n']</default></key>
  </schema>
  <schema id="org.gnome.settings-daemon.plugins.media-keys" path="/org/gnome/settings-daemon/plugins/media-keys/">
    <key name="custom-keybindings" type="as"><default>[]</default></key>
    <key name="screensaver" type="as"><default>['F13', '&lt;Super&gt;l']</default></key>
    <key name="max-screencast-length" type="u"><default>30</default></key>
  </schema>
  <schema id="org.gnome.settings-daemon.plugins.media-keys.custom-keybinding">
    <key name="name" type="s"><default>''</default></key>
    <key name="binding" type="s"><default>''</default></key>
  </schema>
</schemalist>)";

/// The library's own file of settings stands in for the desktop's database.
class GnomeKeysTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        static const QTemporaryDir folder;
        write(folder.filePath(u"test.gschema.xml"_s), schemas);
        ASSERT_EQ(QProcess::execute(u"glib-compile-schemas"_s, {folder.path()}), 0);
        qputenv("GSETTINGS_SCHEMA_DIR", folder.path().toUtf8());
        qputenv("GSETTINGS_BACKEND", "keyfile");
        qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
        ASSERT_TRUE(QDir(folder.path()).mkpath(u"glib-2.0/settings"_s));
        file = folder.filePath(u"glib-2.0/settings/keyfile"_s);
        set("");
    }
    void SetUp() override {
        // The library hears of the file from the event loop.
        set("");
        const auto isAsEver = [this] {
            return keys.actionOn(Key::J, command).isEmpty() && !keys.actionOn(Key::Space, option).isEmpty();
        };
        ASSERT_TRUE(eventually(isAsEver));
    }

    static void write(const QString &path, const QByteArray &text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
    }
    static void set(const QByteArray &text) { write(file, text); }

    static QString file;
    test::FixedKeyboardLayout layout{{{Key::N, u"n"_s}, {Key::L, u"l"_s}, {Key::J, u"j"_s}}};
    GnomeKeys keys{layout};
};

QString GnomeKeysTest::file;

} // namespace

TEST_F(GnomeKeysTest, NameWhatTheDesktopDoesOnAKey) {
    EXPECT_EQ(keys.actionOn(Key::Space, option), u"activate window menu"_s);
    EXPECT_EQ(keys.actionOn(Key::N, command), u"focus active notification"_s);
    EXPECT_EQ(keys.actionOn(Key::L, command), u"screensaver"_s);
}

TEST_F(GnomeKeysTest, NameNothingOnAKeyThatIsFree) {
    EXPECT_EQ(keys.actionOn(Key::J, command), QString());
    EXPECT_EQ(keys.actionOn(Key::Space, option | command), QString());
}

TEST_F(GnomeKeysTest, FollowTheUsersSettings) {
    EXPECT_EQ(keys.actionOn(Key::J, command), QString());
    set("[org/gnome/desktop/wm/keybindings]\nactivate-window-menu=@as []\nminimize=['<Super>j']\n");
    EXPECT_TRUE(eventually([&] { return keys.actionOn(Key::J, command) == u"minimize"_s; }));
    EXPECT_EQ(keys.actionOn(Key::Space, option), QString());
}

TEST_F(GnomeKeysTest, NameTheUsersOwnCommandsAsTheUserDoes) {
    // A place that is none, one where nothing is, and one with a command.
    set("[org/gnome/settings-daemon/plugins/media-keys]\n"
        "custom-keybindings=['nowhere', '/a/empty/', '/a/command/']\n"
        "[a/command]\nname='Take a note'\nbinding='<Super>j'\n");
    EXPECT_TRUE(eventually([&] { return keys.actionOn(Key::J, command) == u"Take a note"_s; }));
}

TEST_F(GnomeKeysTest, NameACommandThatHasNoName) {
    set("[org/gnome/settings-daemon/plugins/media-keys]\ncustom-keybindings=['/a/unnamed/']\n"
        "[a/unnamed]\nbinding='<Super>j'\n");
    EXPECT_TRUE(eventually([&] { return !keys.actionOn(Key::J, command).isEmpty(); }));
}

TEST(GnomeKeysOfADesktop, AreThereWhereItIsOneOfGnome) {
    EXPECT_TRUE(GnomeKeys::isFor(u"GNOME"_s));
    EXPECT_TRUE(GnomeKeys::isFor(u"ubuntu:GNOME"_s));
    EXPECT_FALSE(GnomeKeys::isFor(u"KDE"_s));
    EXPECT_FALSE(GnomeKeys::isFor(QString()));
}
