#include "platform/xdg/SoundSettings.h"

#include "tests/support/Eventually.h"
#include "tests/support/Processes.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::EnvironmentVariable;
using test::eventually;

namespace {

/// A machine on which only those programs are installed that the test says; each notes how it was called.
class SoundSettingsTest : public ::testing::Test {
protected:
    SoundSettingsTest() { QDir(folder.path()).mkpath(u"bin"_s); }

    void installProgram(const QString &name) const {
        QFile file(folder.filePath(u"bin/"_s + name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("#!/bin/sh\necho \"$(/usr/bin/basename \"$0\") $*\" >'" +
                   QFile::encodeName(folder.filePath(u"new"_s)) + "'\n/bin/mv '" +
                   QFile::encodeName(folder.filePath(u"new"_s)) + "' '" + QFile::encodeName(called) + "'\n");
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void installGnomePanel() const {
        QDir(folder.path()).mkpath(u"share/applications"_s);
        QFile file(folder.filePath(u"share/applications/gnome-microphone-panel.desktop"_s));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\nName=Microphone\nExec=gnome-control-center microphone\n");
    }

    /// The program that is started on a desktop of that name; nothing when none is.
    [[nodiscard]] QString opened(const QString &desktop) const {
        QFile::remove(called);
        if (!openFirst(microphoneSettings(desktop)))
            return {};
        EXPECT_TRUE(eventually([this] { return QFile::exists(called); }));
        return QString::fromUtf8(test::contentOf(called)).trimmed();
    }

    QTemporaryDir folder;
    QString called = folder.filePath(u"called"_s);
    EnvironmentVariable path{"PATH", QFile::encodeName(folder.filePath(u"bin"_s))};
    EnvironmentVariable data{"XDG_DATA_DIRS", QFile::encodeName(folder.filePath(u"share"_s))};
    EnvironmentVariable ownData{"XDG_DATA_HOME", QFile::encodeName(folder.filePath(u"own"_s))};
};

} // namespace

TEST_F(SoundSettingsTest, OpenTheDesktopsOwnPanel) {
    for (const auto &name : {u"gnome-control-center"_s, u"systemsettings"_s, u"pavucontrol"_s})
        installProgram(name);
    EXPECT_EQ(opened(u"GNOME"_s), u"gnome-control-center sound"_s);
    EXPECT_EQ(opened(u"ubuntu:GNOME"_s), u"gnome-control-center sound"_s);
    EXPECT_EQ(opened(u"KDE"_s), u"systemsettings kcm_pulseaudio"_s);
    EXPECT_EQ(opened(u"XFCE"_s), u"pavucontrol -t 4"_s);
}

TEST_F(SoundSettingsTest, OpenThePanelForTheMicrophoneWhereGnomeHasOne) {
    installProgram(u"gnome-control-center"_s);
    installGnomePanel();
    EXPECT_EQ(opened(u"GNOME"_s), u"gnome-control-center microphone"_s);
}

TEST_F(SoundSettingsTest, OpenTheMixerWhereThePanelIsNotInstalledOrTheDesktopUnknown) {
    installProgram(u"pavucontrol"_s);
    for (const auto &desktop : {u"GNOME"_s, u"KDE"_s, u"sway"_s, QString()})
        EXPECT_EQ(opened(desktop), u"pavucontrol -t 4"_s) << qPrintable(desktop);
}

TEST_F(SoundSettingsTest, SayThatThereIsNothingToOpen) {
    EXPECT_EQ(opened(u"GNOME"_s), QString());
}
