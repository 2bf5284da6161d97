#include "app/LogFile.h"

#include "tests/support/Processes.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

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
    EXPECT_TRUE(home.isValid() && QDir(home.path()).isEmpty());
    const auto folder = QFileInfo(log.path()).path();
    ASSERT_TRUE(QDir().mkpath(folder));
    log.note(u"perdida"_s);
    EXPECT_TRUE(QDir(folder).isEmpty());
}

TEST_F(LogFileTest, IsPutAsideWhenItHasGrownTooLongAndOneOlderOneIsKept) {
    const auto older = log.path() + u".1"_s;
    log.open()->write("first\n");
    ASSERT_TRUE(QFile::resize(log.path(), LogFile::maximumBytes));
    log.open()->write("at the limit");
    EXPECT_FALSE(QFile::exists(older));
    EXPECT_TRUE(content().startsWith("first\n") && content().endsWith("at the limit"));
    log.open()->write("second\n");
    EXPECT_EQ(content(), "second\n");
    EXPECT_TRUE(test::contentOf(older).startsWith("first\n"));
    ASSERT_TRUE(QFile::resize(log.path(), LogFile::maximumBytes + 1));
    ASSERT_TRUE(log.open());
    EXPECT_EQ(content(), "");
    EXPECT_TRUE(test::contentOf(older).startsWith("second\n"));
    EXPECT_EQ(QDir(QFileInfo(log.path()).path()).entryList(QDir::Files).size(), 2);
}

TEST_F(LogFileTest, IsWhereALinkPointsHoweverLongThatIs) {
    const auto target = home.filePath(u"elsewhere"_s);
    QFile file(target);
    ASSERT_TRUE(file.open(QFile::WriteOnly) && file.resize(LogFile::maximumBytes + 1));
    QDir().mkpath(QFileInfo(log.path()).path());
    ASSERT_TRUE(QFile::link(target, log.path()));
    log.open()->write("more");
    EXPECT_TRUE(test::contentOf(target).endsWith("more"));
}

TEST_F(LogFileTest, HoldsUpNobodyWhereItIsAPipe) {
    QDir().mkpath(QFileInfo(log.path()).path());
    ASSERT_EQ(mkfifo(QFile::encodeName(log.path()).constData(), 0600), 0);
    // Somebody who waits for a reader would wait for ever; the alarm would end the test.
    alarm(20);
    EXPECT_FALSE(log.open());
    log.note(u"perdida"_s);
    alarm(0);
}

TEST_F(LogFileTest, CountsALineThatComesOverAndOver) {
    ASSERT_TRUE(log.open());
    for (int time = 0; time < 12'345; ++time)
        log.note(u"áudio: the same"_s);
    log.note(u"another"_s);
    log.note(u"áudio: the same"_s);
    auto expected = QByteArray("áudio: the same\n").repeated(100);
    expected += "áudio: the same (mais 900 vezes)\n"
                "áudio: the same (mais 9000 vezes)\n"
                "áudio: the same (mais 2345 vezes)\n"
                "another\n"
                "áudio: the same\n";
    EXPECT_EQ(content(), expected);
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
                    log.note(count % 2 == 0 ? line : line + line);
            });
    }
    auto found = content().split('\n');
    EXPECT_EQ(found.takeLast(), "");
    EXPECT_EQ(found.size(), threads * lines);
    for (const auto &line : found)
        EXPECT_EQ(line, QByteArray(line.size() == 150 ? 150 : 300, line.front()));
}
