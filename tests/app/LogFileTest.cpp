#include "app/LogFile.h"

#include "tests/support/Processes.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class LogFileTest : public ::testing::Test {
protected:
    QByteArray content() const { return test::contentOf(log.path()); }

    QTemporaryDir home;
    const LogFile log{LogFile::pathBelow(home.path())};
};

} // namespace

TEST_F(LogFileTest, LiesInTheLogsOfTheUser) {
    EXPECT_EQ(LogFile::pathBelow(u"/home/ana"_s), u"/home/ana/Library/Logs/loquent/palomet.log"_s);
}

TEST_F(LogFileTest, IsMadeWithItsFoldersReadableForAllAndWritableForItsOwner) {
    ASSERT_TRUE(log.open());
    EXPECT_EQ(content(), "");
    const auto owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(log.path()) | QFile::ReadUser | QFile::WriteUser,
              owner | QFile::ReadGroup | QFile::ReadOther);
}

TEST_F(LogFileTest, KeepsWhatWasInItAndWhoMayReadIt) {
    ASSERT_TRUE(log.open()->write("before\n"));
    QFile::setPermissions(log.path(), QFile::ReadOwner | QFile::WriteOwner);
    const auto permissions = QFile::permissions(log.path());
    ASSERT_TRUE(log.open()->write("after\n"));
    EXPECT_EQ(content(), "before\nafter\n");
    EXPECT_EQ(QFile::permissions(log.path()), permissions);
}

TEST_F(LogFileTest, GetsANoteAsALineOfItsOwn) {
    ASSERT_TRUE(log.open());
    log.note(u"áudio: 1"_s);
    log.note(u"saindo: pronto"_s);
    EXPECT_EQ(content(), "áudio: 1\nsaindo: pronto\n");
}

TEST_F(LogFileTest, IsNeverMadeByANote) {
    log.note(u"perdida"_s);
    EXPECT_FALSE(QFile::exists(log.path()));
    EXPECT_TRUE(home.isValid() && QDir(home.path()).isEmpty());
}

TEST_F(LogFileTest, DropsANoteThatCannotBeWritten) {
    LogFile(u"/dev/full"_s).note(u"perdida"_s);
    LogFile(home.path()).note(u"perdida"_s);
    EXPECT_FALSE(LogFile(home.path()).open());
    EXPECT_TRUE(LogFile(u"/dev/full"_s).open());
}

TEST_F(LogFileTest, HoldsTheLinesOfManyThreadsWhole) {
    ASSERT_TRUE(log.open());
    constexpr int threads = 4;
    constexpr int lines = 500;
    {
        std::vector<std::jthread> writers;
        for (int thread = 0; thread < threads; ++thread)
            writers.emplace_back([this, line = QString(150, QChar(u'a' + thread))] {
                for (int count = 0; count < lines; ++count)
                    log.note(line);
            });
    }
    auto found = content().split('\n');
    EXPECT_EQ(found.takeLast(), "");
    EXPECT_EQ(found.size(), threads * lines);
    for (const auto &line : found)
        EXPECT_EQ(line, QByteArray(150, line.front()));
}
