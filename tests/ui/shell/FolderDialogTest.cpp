#include "ui/shell/FolderDialog.h"

#include "tests/support/Eventually.h"
#include "ui/shell/ToolkitWords.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QTemporaryDir>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

class FolderDialogTest : public ::testing::Test {
protected:
    FolderDialogTest() {
        askForFolders(nullptr, m_folder.path(), [this](const QStringList &folders) { m_picked.append(folders); });
        for (auto *widget : QApplication::topLevelWidgets()) {
            if (auto *dialog = qobject_cast<QFileDialog *>(widget))
                m_dialog = dialog;
        }
    }
    ~FolderDialogTest() override { delete m_dialog; }

    QTemporaryDir m_folder;
    QPointer<QFileDialog> m_dialog;
    QList<QStringList> m_picked;
};

} // namespace

TEST_F(FolderDialogTest, BeginsInTheFolderThatItIsGivenAndShowsFoldersOnly) {
    ASSERT_TRUE(m_dialog);
    EXPECT_EQ(m_dialog->directory(), QDir(m_folder.path()));
    EXPECT_EQ(m_dialog->fileMode(), QFileDialog::Directory);
    EXPECT_TRUE(m_dialog->testOption(QFileDialog::ShowDirsOnly));
}

TEST(ToolkitWords, AreThoseOfTheUsersLanguage) {
    translateToolkit(*QCoreApplication::instance(), u"pt-BR"_s);
    EXPECT_EQ(QFileDialog::tr("&New Folder"), u"&Nova pasta"_s);
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
    translateToolkit(*QCoreApplication::instance(), u"en"_s);
    EXPECT_EQ(QFileDialog::tr("&New Folder"), u"&New Folder"_s);
}

TEST_F(FolderDialogTest, GivesSeveralFoldersOn) {
    ASSERT_TRUE(m_dialog);
    QDir(m_folder.path()).mkdir(u"a"_s);
    QDir(m_folder.path()).mkdir(u"b"_s);
    const QStringList chosen{m_folder.filePath(u"a"_s), m_folder.filePath(u"b"_s)};
    Q_EMIT m_dialog->filesSelected(chosen);
    EXPECT_EQ(m_picked, QList<QStringList>{chosen});
}

TEST_F(FolderDialogTest, LeavesAFolderOutThatHasVanished) {
    ASSERT_TRUE(m_dialog);
    Q_EMIT m_dialog->filesSelected({m_folder.filePath(u"gone"_s), m_folder.path()});
    EXPECT_EQ(m_picked, QList<QStringList>{{m_folder.path()}});
    Q_EMIT m_dialog->filesSelected({m_folder.filePath(u"gone"_s)});
    EXPECT_EQ(m_picked.size(), 1);
}

TEST_F(FolderDialogTest, GivesNothingOnWhenItIsLeft) {
    ASSERT_TRUE(m_dialog);
    m_dialog->reject();
    EXPECT_TRUE(eventually([this] { return m_dialog.isNull(); }));
    EXPECT_TRUE(m_picked.isEmpty());
}
