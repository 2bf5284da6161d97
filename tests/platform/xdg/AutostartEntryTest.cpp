#include "platform/xdg/AutostartEntry.h"

#include "tests/support/Processes.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

const auto program = u"/opt/my apps/palomet"_s;

class AutostartEntryTest : public ::testing::Test {
protected:
    void write(const QByteArray &content) const {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] bool isOn() const {
        const auto answer = entry.isOn();
        EXPECT_TRUE(answer.isOk());
        return answer && *answer;
    }

    QTemporaryDir configuration;
    QString path = configuration.filePath(u"autostart/org.palomet.Palomet.desktop"_s);
    AutostartEntry entry{configuration.path(), program};
};

} // namespace

TEST_F(AutostartEntryTest, IsOffWhereThereIsNone) {
    EXPECT_FALSE(isOn());
    EXPECT_EQ(entry.turnOff(), std::nullopt);
}

TEST_F(AutostartEntryTest, IsThereWhenTurnedOnAndGoneWhenTurnedOff) {
    EXPECT_EQ(entry.turnOn(), std::nullopt);
    EXPECT_TRUE(isOn());
    EXPECT_EQ(test::contentOf(path), AutostartEntry::entryFor(program));
    EXPECT_EQ(entry.turnOn(), std::nullopt);
    // Nothing half-written lies beside it.
    EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden).size(), 1);
    EXPECT_EQ(entry.turnOff(), std::nullopt);
    EXPECT_FALSE(isOn());
    EXPECT_FALSE(QFileInfo::exists(path));
}

TEST_F(AutostartEntryTest, NamesTheProgramAsDesktopsReadIt) {
    const auto entryText = QString::fromUtf8(AutostartEntry::entryFor(u"/a b/50% \"x\" $y\\z"_s));
    EXPECT_TRUE(entryText.contains(u"\nTryExec=/a b/50% \"x\" $y\\\\z\n"_s)) << qPrintable(entryText);
    EXPECT_TRUE(entryText.contains(u"\nExec=\"/a b/50%% \\\\\"x\\\\\" \\\\$y\\\\\\\\z\"\n"_s)) << qPrintable(entryText);
}

TEST_F(AutostartEntryTest, IsOffWhenTheDesktopHasSwitchedItOff) {
    for (const QByteArray line : {"Hidden=true", "X-GNOME-Autostart-enabled=false"}) {
        write("[Desktop Entry]\nType=Application\n" + line + "\n");
        EXPECT_FALSE(isOn()) << line.toStdString();
        EXPECT_EQ(entry.turnOn(), std::nullopt);
        EXPECT_TRUE(isOn());
    }
    write("[Desktop Entry]\nType=Application\n[Desktop Action x]\nHidden=true\n");
    EXPECT_TRUE(isOn());
}

TEST_F(AutostartEntryTest, SaysWhyItCannotBeReadOrWritten) {
    QDir().mkpath(path + u"/inside"_s);
    EXPECT_FALSE(entry.isOn().isOk());
    for (const auto &problem : {entry.turnOn(), entry.turnOff()}) {
        ASSERT_TRUE(problem);
        EXPECT_TRUE(problem->reason.contains(path)) << qPrintable(problem->reason);
    }
    AutostartEntry nowhere(u"/proc/nowhere"_s, program);
    EXPECT_TRUE(nowhere.turnOn());
}

TEST_F(AutostartEntryTest, ReadsNoMoreOfAnEntryThanOneMayBeLong) {
    write("[Desktop Entry]\n" + QByteArray(qsizetype{1024} * 1024, '#') + "\nHidden=true\n");
    EXPECT_TRUE(isOn());
}
