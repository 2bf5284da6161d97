#include "tests/app/BackendTest.h"

#include <unistd.h>

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

TEST_F(BackendTest, LaunchesNothingWithoutAResourceFolder) {
    resources.reset();
    makeBackend();
    backend->start();
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(backend->problem(), std::nullopt);
    EXPECT_FALSE(QFile::exists(logPath()));
}

TEST_F(BackendTest, SaysThatTheBundleIsIncompleteWithoutTheRuntime) {
    QFile::remove(runtime());
    backend->start();
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(backend->problem(), u"incomplete bundle: bun is missing"_s);
    EXPECT_FALSE(QFile::exists(logPath()));
    scheduler.advance(1h);
    EXPECT_EQ(launches, 0);
}

TEST_F(BackendTest, TakesAFolderForNoRuntime) {
    QFile::remove(runtime());
    QDir().mkdir(runtime());
    backend->start();
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(backend->problem(), u"incomplete bundle: bun is missing"_s);
}

TEST_F(BackendTest, TakesAFileThatCannotBeRunForNoRuntime) {
    QFile::remove(runtime());
    QFile file(runtime());
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    backend->start();
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(backend->problem(), u"incomplete bundle: bun is missing"_s);
}

TEST_F(BackendTest, FindsNoRuntimeInAResourceFolderThatItMayNotRead) {
    QFile::setPermissions(*resources, {});
    const auto startAsNobody = [this] {
        // Nothing is forbidden to root.
        if (geteuid() == 0 && setresuid(nobody, nobody, nobody) != 0)
            exit(2);
        backend->start();
        exit(launches == 0 && backend->problem() == u"incomplete bundle: bun is missing"_s ? 0 : 1);
    };
    EXPECT_EXIT(startAsNobody(), ::testing::ExitedWithCode(0), "");
    QFile::setPermissions(*resources, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(BackendTest, LogsWhyTheBackendCouldNotBeLaunchedAndDoesNotTryAgain) {
    QDir().rmdir(*resources + u"/engine"_s);
    backend->start();
    EXPECT_EQ(log(), marker + "não consegui iniciar o assistente: " + resources->toUtf8() +
                         "/engine: No such file or directory\n");
    EXPECT_EQ(scheduler.pendingCount(), 0U);
    EXPECT_TRUE(stopWithin(0s));
}

TEST_F(BackendTest, LaunchesNothingWhenTheFolderOfTheLogCannotBeMade) {
    QFile obstacle(home() + u"/Library"_s);
    ASSERT_TRUE(obstacle.open(QFile::WriteOnly));
    backend->start();
    EXPECT_EQ(launches, 0);
    EXPECT_EQ(scheduler.pendingCount(), 0U);
    EXPECT_EQ(backend->problem(), std::nullopt);
    backend->note(u"perdida"_s);
}

TEST_F(BackendTest, LaunchesNothingWhenTheLogIsAFolder) {
    QDir().mkpath(logPath());
    backend->start();
    EXPECT_EQ(launches, 0);
    backend->note(u"perdida"_s);
}

TEST_F(BackendTest, RunsTheBackendWhenTheDiskIsFull) {
    QDir().mkpath(QFileInfo(logPath()).path());
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, logPath()));
    backend->start();
    EXPECT_EQ(launches, 1);
    backend->note(u"perdida"_s);
    EXPECT_TRUE(stopWithin(2s));
}
