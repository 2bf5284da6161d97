#include "platform/posix/PosixChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/Processes.h"

#include <QProcess>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace palomet;
using test::EnvironmentVariable;
using test::eventually;
using test::hasEnded;
using test::processFile;

namespace {

const QString fakeBackend = QStringLiteral(PALOMET_FAKE_BACKEND);

class ChildProcessTest : public ::testing::Test {
protected:
    ChildProcessTest() {
        m_log.setFileName(folder.filePath(QStringLiteral("log")));
        EXPECT_TRUE(m_log.open(QFile::WriteOnly | QFile::Append | QFile::Unbuffered));
    }

    ChildProcess::Launch launch() {
        return {.program = fakeBackend,
                .arguments = {QStringLiteral("src/main.ts")},
                .workingDirectory = folder.path(),
                .environment = {},
                .output = m_log.handle()};
    }

    void start(std::function<void()> onExit = [] {}) { start(launch(), std::move(onExit)); }
    void start(
        const ChildProcess::Launch &what, std::function<void()> onExit = [] {}) {
        auto started = startChildProcess(what, std::move(onExit));
        ASSERT_TRUE(started) << qPrintable(started.reason());
        child = std::move(*started);
        EXPECT_TRUE(eventually([this] { return log().contains("pronto "); }));
    }

    QString reasonOf(const ChildProcess::Launch &what) {
        const auto started = startChildProcess(what, [] { ADD_FAILURE() << "nothing was started"; });
        return started ? QString() : started.reason();
    }

    QByteArray log() const { return test::contentOf(m_log.fileName()); }
    QList<qint64> children() const { return test::processesNamed("filho", log()); }

    QTemporaryDir folder;
    std::unique_ptr<ChildProcess> child;

private:
    QFile m_log;
};

} // namespace

TEST_F(ChildProcessTest, RunsTheProgramWithItsArgumentsInItsFolder) {
    start();
    EXPECT_TRUE(child->isRunning());
    EXPECT_EQ(test::processesNamed("pronto", log()), QList{child->processId()});
    EXPECT_EQ(processFile(child->processId(), QStringLiteral("cmdline")),
              fakeBackend.toUtf8() + '\0' + "src/main.ts" + '\0');
    EXPECT_EQ(QFile::symLinkTarget(QStringLiteral("/proc/%1/cwd").arg(child->processId())), folder.path());
}

TEST_F(ChildProcessTest, SetsVariablesOverACopyOfItsOwnEnvironment) {
    const EnvironmentVariable kept("PALOMET_TEST_KEPT", "not UTF-8: \xff");
    const EnvironmentVariable replaced("PALOMET_TEST_REPLACED", "ours");
    auto what = launch();
    what.environment = {{QStringLiteral("PALOMET_TEST_REPLACED"), QStringLiteral("para você")},
                        {QStringLiteral("PALOMET_TEST"), QString()}};
    start(what);
    const auto variables = processFile(child->processId(), QStringLiteral("environ")).split('\0');
    EXPECT_TRUE(variables.contains("PALOMET_TEST_KEPT=not UTF-8: \xff"));
    EXPECT_TRUE(variables.contains("PALOMET_TEST_REPLACED=para você"));
    EXPECT_FALSE(variables.contains("PALOMET_TEST_REPLACED=ours"));
    EXPECT_TRUE(variables.contains("PALOMET_TEST="));
}

TEST_F(ChildProcessTest, GivesItAnEmptyInputAndTheLogAndNoOtherDescriptor) {
    const int stray = open("/dev/zero", O_RDONLY);
    ASSERT_GE(stray, 0);
    start();
    const auto path = folder.filePath(QStringLiteral("log"));
    EXPECT_EQ(test::descriptorsOf(child->processId()),
              (QStringList{QStringLiteral("0 -> /dev/null"), QStringLiteral("1 -> ") + path,
                           QStringLiteral("2 -> ") + path}));
    close(stray);
}

TEST_F(ChildProcessTest, StartsItEvenFromAProgramWithoutStandardDescriptors) {
    const auto path = folder.filePath(QStringLiteral("log"));
    QProcess frontEnd;
    frontEnd.start(QStringLiteral("/bin/sh"),
                   {QStringLiteral("-c"), QStringLiteral("exec \"$@\" <&- >&- 2>&-"), QStringLiteral("sh"),
                    QStringLiteral(PALOMET_FRONT_END), fakeBackend, path});
    ASSERT_TRUE(eventually([this] { return log().contains("pronto "); }));
    const auto backend = test::processesNamed("pronto", log()).constFirst();
    EXPECT_EQ(test::descriptorsOf(backend),
              (QStringList{QStringLiteral("0 -> /dev/null"), QStringLiteral("1 -> ") + path,
                           QStringLiteral("2 -> ") + path}));
    frontEnd.kill();
    frontEnd.waitForFinished();
}

TEST_F(ChildProcessTest, NeverOutlivesAFrontEndThatWasKilled) {
    QProcess frontEnd;
    frontEnd.start(QStringLiteral(PALOMET_FRONT_END), {fakeBackend, folder.filePath(QStringLiteral("log"))});
    ASSERT_TRUE(eventually([this] { return log().contains("pronto "); }));
    const auto backend = test::processesNamed("pronto", log()).constFirst();
    EXPECT_FALSE(hasEnded(backend));
    frontEnd.kill();
    frontEnd.waitForFinished();
    EXPECT_TRUE(eventually([&] { return hasEnded(backend); }));
}

TEST_F(ChildProcessTest, BeginsWithNoSignalBlockedOrIgnored) {
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigaddset(&blocked, SIGCHLD);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const auto formerPipe = signal(SIGPIPE, SIG_IGN);
    const auto formerHangUp = signal(SIGHUP, SIG_IGN);
    start();
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    signal(SIGPIPE, formerPipe);
    signal(SIGHUP, formerHangUp);

    EXPECT_EQ(test::statusOf(child->processId(), "SigBlk"), "0000000000000000");
    EXPECT_EQ(test::statusOf(child->processId(), "SigIgn"), "0000000000000000");
}

TEST_F(ChildProcessTest, LeadsAGroupOfItsOwn) {
    start();
    EXPECT_EQ(getpgid(static_cast<pid_t>(child->processId())), child->processId());
}

TEST_F(ChildProcessTest, EndsWhenItIsAskedToAndSaysSoOnce) {
    int exits = 0;
    start([&] { ++exits; });
    child->terminate();
    EXPECT_EQ(exits, 0);
    EXPECT_TRUE(eventually([&] { return exits == 1; }));
    EXPECT_FALSE(child->isRunning());
    const auto process = child->processId();
    child.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(exits, 1);
    EXPECT_FALSE(QFile::exists(QStringLiteral("/proc/%1").arg(process)));
}

TEST_F(ChildProcessTest, MayBeDestroyedWhenItHasEnded) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "exit");
    start([this] { child.reset(); });
    EXPECT_TRUE(eventually([this] { return child == nullptr; }));
}

TEST_F(ChildProcessTest, EndsWhatIsLeftOfItsGroupWhenItHasEnded) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "orphans");
    bool hasExited = false;
    start([&] { hasExited = true; });
    EXPECT_TRUE(eventually([&] { return hasExited && children().size() == 2; }));
    EXPECT_TRUE(eventually([this] { return hasEnded(children()[0]); }));
    // Who has left the group is nobody of ours any more.
    EXPECT_FALSE(hasEnded(children()[1]));
    kill(static_cast<pid_t>(children()[1]), SIGKILL);
}

TEST_F(ChildProcessTest, IsKilledWithItsChildrenWhereverTheyAre) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "family");
    bool hasExited = false;
    start([&] { hasExited = true; });
    ASSERT_TRUE(eventually([this] { return children().size() == 2; }));
    child->killWithChildren();
    EXPECT_TRUE(eventually([&] { return hasExited && hasEnded(children()[0]) && hasEnded(children()[1]); }));
}

TEST_F(ChildProcessTest, EndsWithItsGroupWhenItIsDestroyed) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "family");
    start([] { ADD_FAILURE() << "nobody is there to be told"; });
    ASSERT_TRUE(eventually([this] { return children().size() == 2; }));
    const auto process = child->processId();
    child.reset();
    EXPECT_TRUE(hasEnded(process));
    EXPECT_TRUE(eventually([this] { return hasEnded(children()[0]); }));
    kill(static_cast<pid_t>(children()[1]), SIGKILL);
}

TEST_F(ChildProcessTest, SaysWhatIsWrongWithAFolderThatIsMissing) {
    auto what = launch();
    what.workingDirectory = QStringLiteral("/nowhere/at/all");
    EXPECT_EQ(reasonOf(what), QStringLiteral("/nowhere/at/all: No such file or directory"));
}

TEST_F(ChildProcessTest, SaysWhatIsWrongWithAProgramThatIsMissing) {
    auto what = launch();
    what.program = QStringLiteral("/nowhere/bun");
    EXPECT_EQ(reasonOf(what), QStringLiteral("/nowhere/bun: No such file or directory"));
}

TEST_F(ChildProcessTest, SaysWhatIsWrongWithAFileThatIsNoProgram) {
    auto what = launch();
    what.program = folder.filePath(QStringLiteral("bun"));
    QFile file(what.program);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("words");
    file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    file.close();
    EXPECT_EQ(reasonOf(what), what.program + QStringLiteral(": Exec format error"));
}

TEST_F(ChildProcessTest, SaysWhatIsWrongWithAnOutputThatIsNotOpen) {
    auto what = launch();
    what.output = -1;
    EXPECT_EQ(reasonOf(what), fakeBackend + QStringLiteral(": Bad file descriptor"));
}

TEST_F(ChildProcessTest, LeavesNoDescriptorAndNoProcessBehind) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "exit");
    auto wrong = launch();
    wrong.program = QStringLiteral("/nowhere/bun");
    qsizetype before = 0;
    for (int round = 0; round < 20; ++round) {
        bool hasExited = false;
        start([&] { hasExited = true; });
        ASSERT_TRUE(eventually([&] { return hasExited; }));
        child.reset();
        EXPECT_FALSE(reasonOf(wrong).isEmpty());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto open = test::descriptorsOf(getpid()).size();
        if (round == 0)
            before = open;
        EXPECT_EQ(open, before);
    }
    EXPECT_EQ(processFile(getpid(), QStringLiteral("task/%1/children").arg(getpid())), QByteArray());
}
