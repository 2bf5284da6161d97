#include "platform/dbus/PortalFolderChooser.h"

#include "tests/platform/dbus/FakeFileChooser.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"

#include <QDir>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

class PortalFolderChooserTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_FALSE(bus.address().isEmpty()); }

    void ask() {
        chooser->ask(
            {.title = u"Escolher pastas"_s, .acceptLabel = u"Adicionar"_s, .home = folder.path(), .owner = 0x2a0000b},
            [this](const QStringList &folders) { picked.append(folders); }, [this] { ++missing; });
    }
    bool isOpen(int times = 1) {
        return eventually([&] { return portal.opened == times; });
    }

    QTemporaryDir folder;
    test::PrivateBus bus;
    test::FakeFileChooser portal{bus.connect()};
    std::unique_ptr<PortalFolderChooser> chooser = std::make_unique<PortalFolderChooser>(bus.connect(), true);
    QList<QStringList> picked;
    int missing = 0;
};

} // namespace

TEST_F(PortalFolderChooserTest, AsksForSeveralFoldersInFrontOfTheWindow) {
    portal.appear();
    ask();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(portal.parentWindow, u"x11:2a0000b"_s);
    EXPECT_EQ(portal.title, u"Escolher pastas"_s);
    EXPECT_EQ(portal.options[u"accept_label"_s], u"Adicionar"_s);
    for (const auto &option : {u"modal"_s, u"multiple"_s, u"directory"_s})
        EXPECT_EQ(portal.options[option], true) << option.toStdString();
    EXPECT_EQ(portal.options[u"current_folder"_s].toByteArray(), folder.path().toLocal8Bit() + '\0');
    EXPECT_EQ(missing, 0);
}

TEST_F(PortalFolderChooserTest, GivesOnWhatWasPickedAndStillExists) {
    portal.appear();
    QDir(folder.path()).mkdir(u"a b\u00E9"_s);
    const auto there = folder.filePath(u"a b\u00E9"_s);
    ask();
    ASSERT_TRUE(isOpen());
    portal.respond(0, {QUrl::fromLocalFile(there).toString(QUrl::FullyEncoded),
                       QUrl::fromLocalFile(folder.filePath(u"gone"_s)).toString(), u"sftp://host/folder"_s,
                       QUrl::fromLocalFile(folder.path()).toString()});
    EXPECT_TRUE(eventually([&] { return picked == QList<QStringList>{{there, folder.path()}}; }));
    ask();
    EXPECT_TRUE(isOpen(2)) << "it can be asked again";
}

TEST_F(PortalFolderChooserTest, GivesNothingOnWhenTheUserCancels) {
    portal.appear();
    ask();
    ASSERT_TRUE(isOpen());
    portal.respond(1);
    // The next question comes through, so the answer before it has come.
    ASSERT_TRUE(eventually([&] {
        ask();
        return portal.opened == 2;
    }));
    EXPECT_TRUE(picked.isEmpty());
    EXPECT_EQ(missing, 0);
}

TEST_F(PortalFolderChooserTest, OpensOneDialogAtATime) {
    portal.appear();
    ask();
    ask();
    ASSERT_TRUE(isOpen());
    ask();
    portal.respond(0, {QUrl::fromLocalFile(folder.path()).toString()});
    ASSERT_TRUE(eventually([&] { return !picked.isEmpty(); }));
    EXPECT_EQ(portal.opened, 1);
    EXPECT_EQ(picked.size(), 1);
}

TEST_F(PortalFolderChooserTest, SaysThatThereIsNoneWithoutAPortalOrWithOneThatDoesNotKnowFolders) {
    ask();
    EXPECT_TRUE(eventually([&] { return missing == 1; })) << "no portal";
    portal.appear();
    portal.version = 2;
    ask();
    EXPECT_TRUE(eventually([&] { return missing == 2; })) << "one of before folders";
    portal.version = 0;
    ask();
    EXPECT_TRUE(eventually([&] { return missing == 3; })) << "one without a file chooser";
    portal.version = 4;
    portal.isRefusing = true;
    ask();
    EXPECT_TRUE(eventually([&] { return missing == 4; })) << "one that refuses";
    EXPECT_EQ(portal.opened, 0);
}

TEST_F(PortalFolderChooserTest, SaysThatThereIsNoneWhenTheDialogCouldNotBeShown) {
    portal.appear();
    ask();
    ASSERT_TRUE(isOpen());
    portal.respond(2);
    EXPECT_TRUE(eventually([&] { return missing == 1; }));
}

TEST_F(PortalFolderChooserTest, ForgetsADialogWhosePortalEnds) {
    portal.appear();
    ask();
    ASSERT_TRUE(isOpen());
    portal.vanish();
    portal.appear();
    EXPECT_TRUE(eventually([&] {
        ask();
        return portal.opened == 2;
    }));
    EXPECT_EQ(missing, 0);
}

TEST_F(PortalFolderChooserTest, ClosesTheDialogWhenTheProgramEnds) {
    portal.appear();
    ask();
    ASSERT_TRUE(isOpen());
    chooser.reset();
    EXPECT_TRUE(eventually([&] { return portal.closed == 1; }));
}

TEST_F(PortalFolderChooserTest, NamesNoWindowWhereWindowsAreNotX11s) {
    chooser = std::make_unique<PortalFolderChooser>(bus.connect(), false);
    portal.appear();
    ask();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(portal.parentWindow, QString());
}
