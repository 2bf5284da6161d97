#include "platform/linux/GroupGuard.h"
#include "platform/linux/startChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/Processes.h"

#include <QProcess>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::EnvironmentVariable;
using test::eventually;
using test::hasEnded;
using test::processFile;

namespace {

const QString fakeBackend = QStringLiteral(PALOMET_FAKE_BACKEND);
const QString guardPath = QStringLiteral(PALOMET_GUARD);

/// Makes this process the parent of all below it who have lost theirs, which a guard has from the start.
class Foster {
public:
    Foster() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
    Foster(const Foster &) = delete;
    Foster &operator=(const Foster &) = delete;
    ~Foster() {
        prctl(PR_SET_CHILD_SUBREAPER, 0);
        EXPECT_TRUE(eventually([] {
            while (waitpid(-1, nullptr, WNOHANG) > 0) {
            }
            return processFile(getpid(), u"task/%1/children"_s.arg(getpid())).isEmpty();
        }));
    }

    /// The guard that has come to this process, or 0.
    [[nodiscard]] qint64 guard() const {
        for (const auto &word : processFile(getpid(), u"task/%1/children"_s.arg(getpid())).split(' ')) {
            const auto process = word.toLongLong();
            if (processFile(process, u"comm"_s) == "group-guard\n" && !hasEnded(process))
                return process;
        }
        return 0;
    }
};

class ChildProcessTest : public ::testing::Test {
protected:
    ChildProcessTest() {
        m_log.setFileName(folder.filePath(u"log"_s));
        EXPECT_TRUE(m_log.open(QFile::WriteOnly | QFile::Append | QFile::Unbuffered));
    }

    ChildProcess::Launch launch() {
        return {.program = fakeBackend,
                .arguments = {u"src/main.ts"_s},
                .workingDirectory = folder.path(),
                .environment = {},
                .output = m_log.handle()};
    }

    void start(std::function<void()> onExit = [] {}) { start(launch(), std::move(onExit)); }
    void start(
        const ChildProcess::Launch &what, std::function<void()> onExit = [] {}) {
        auto started = startChildProcess(what, std::move(onExit), guard);
        ASSERT_TRUE(started) << qPrintable(started.reason());
        child = std::move(*started);
        EXPECT_TRUE(eventually([this] { return log().contains("pronto "); }));
    }

    QString reasonOf(const ChildProcess::Launch &what) {
        const auto started = startChildProcess(
            what, [] { ADD_FAILURE() << "nothing was started"; }, guard);
        return started ? QString() : started.reason();
    }

    /// Starts a front end of its own, which starts the backend, and gives the backend's process once it is there.
    qint64 startFrontEnd(const QString &itsGuard) {
        QFile::resize(m_log.fileName(), 0);
        frontEnd.start(QStringLiteral(PALOMET_FRONT_END), {fakeBackend, m_log.fileName(), itsGuard});
        EXPECT_TRUE(eventually([this] { return log().contains("pronto "); }));
        return test::processesNamed("pronto", log()).value(0, -1);
    }

    QByteArray log() const { return test::contentOf(m_log.fileName()); }
    QList<qint64> children() const { return test::processesNamed("filho", log()); }

    QTemporaryDir folder;
    std::shared_ptr<GroupGuard> guard = std::make_shared<GroupGuard>(guardPath);
    std::unique_ptr<ChildProcess> child;
    QProcess frontEnd;

private:
    QFile m_log;
};

} // namespace

TEST_F(ChildProcessTest, RunsTheProgramWithItsArgumentsInItsFolder) {
    start();
    EXPECT_TRUE(child->isRunning());
    EXPECT_EQ(test::processesNamed("pronto", log()), QList{child->processId()});
    EXPECT_EQ(processFile(child->processId(), u"cmdline"_s), fakeBackend.toUtf8() + '\0' + "src/main.ts" + '\0');
    EXPECT_EQ(QFile::symLinkTarget(u"/proc/%1/cwd"_s.arg(child->processId())), folder.path());
}

TEST_F(ChildProcessTest, SetsVariablesOverACopyOfItsOwnEnvironment) {
    const EnvironmentVariable kept("PALOMET_TEST_KEPT", "not UTF-8: \xff");
    const EnvironmentVariable replaced("PALOMET_TEST_REPLACED", "ours");
    auto what = launch();
    what.environment = {{u"PALOMET_TEST_REPLACED"_s, u"para você"_s}, {u"PALOMET_TEST"_s, QString()}};
    start(what);
    const auto variables = processFile(child->processId(), u"environ"_s).split('\0');
    EXPECT_TRUE(variables.contains("PALOMET_TEST_KEPT=not UTF-8: \xff"));
    EXPECT_TRUE(variables.contains("PALOMET_TEST_REPLACED=para você"));
    EXPECT_FALSE(variables.contains("PALOMET_TEST_REPLACED=ours"));
    EXPECT_TRUE(variables.contains("PALOMET_TEST="));
}

TEST_F(ChildProcessTest, GivesItAnEmptyInputAndTheLogAndNoOtherDescriptor) {
    const int stray = open("/dev/zero", O_RDONLY);
    ASSERT_GE(stray, 0);
    start();
    const auto path = folder.filePath(u"log"_s);
    EXPECT_EQ(test::descriptorsOf(child->processId()),
              (QStringList{u"0 -> /dev/null"_s, u"1 -> "_s + path, u"2 -> "_s + path}));
    close(stray);
}

TEST_F(ChildProcessTest, StartsItEvenFromAProgramWithoutStandardDescriptors) {
    const auto path = folder.filePath(u"log"_s);
    frontEnd.start(u"/bin/sh"_s, {u"-c"_s, u"exec \"$@\" <&- >&- 2>&-"_s, u"sh"_s, QStringLiteral(PALOMET_FRONT_END),
                                  fakeBackend, path});
    ASSERT_TRUE(eventually([this] { return log().contains("pronto "); }));
    const auto backend = test::processesNamed("pronto", log()).constFirst();
    EXPECT_EQ(test::descriptorsOf(backend), (QStringList{u"0 -> /dev/null"_s, u"1 -> "_s + path, u"2 -> "_s + path}));
    frontEnd.kill();
    frontEnd.waitForFinished();
}

TEST_F(ChildProcessTest, NeverOutlivesAFrontEndThatWasKilledAlsoWithoutAGuard) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "stubborn");
    const auto backend = startFrontEnd({});
    EXPECT_FALSE(hasEnded(backend));
    frontEnd.kill();
    frontEnd.waitForFinished();
    EXPECT_TRUE(eventually([&] { return hasEnded(backend); }));
}

TEST_F(ChildProcessTest, EndsWithAllThatItHasStartedHoweverTheFrontEndEnds) {
    for (const auto *behaviour : {"family", "parent"}) {
        const EnvironmentVariable variable("FAKE_BACKEND", behaviour);
        for (const int number : {SIGKILL, SIGSEGV, SIGABRT}) {
            const auto backend = startFrontEnd(guardPath);
            ASSERT_EQ(children().size(), 2);
            kill(static_cast<pid_t>(frontEnd.processId()), number);
            frontEnd.waitForFinished();
            EXPECT_TRUE(eventually([&] { return hasEnded(children()[0]) && hasEnded(children()[1]); })) << behaviour;
            EXPECT_TRUE(eventually([&] { return hasEnded(backend); })) << behaviour;
        }
    }
}

TEST_F(ChildProcessTest, IsAskedToEndBeforeItIsEndedWhenTheFrontEndHasEnded) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "farewell");
    const auto backend = startFrontEnd(guardPath);
    frontEnd.kill();
    frontEnd.waitForFinished();
    EXPECT_TRUE(eventually([&] { return hasEnded(backend); }));
    EXPECT_TRUE(log().contains("adeus\n"));
}

TEST_F(ChildProcessTest, IsGuardedAlsoWhenItsGuardWasKilled) {
    guard.reset();
    const Foster foster;
    const EnvironmentVariable behaviour("FAKE_BACKEND", "family");
    const auto backend = startFrontEnd(guardPath);
    const auto first = foster.guard();
    ASSERT_GT(first, 0);
    kill(static_cast<pid_t>(first), SIGKILL);
    qint64 next = 0;
    ASSERT_TRUE(eventually([&] {
        next = foster.guard();
        return next > 0 && next != first;
    }));
    frontEnd.kill();
    frontEnd.waitForFinished();
    EXPECT_TRUE(eventually([&] { return hasEnded(backend) && hasEnded(children()[0]) && hasEnded(children()[1]); }));
}

TEST_F(ChildProcessTest, HasAGuardThatKeepsNothingOfTheFrontEndsAndEndsWithItOnly) {
    guard.reset();
    const Foster foster;
    guard = std::make_shared<GroupGuard>(guardPath);
    const auto process = foster.guard();
    ASSERT_GT(process, 0);
    EXPECT_EQ(processFile(process, u"cmdline"_s), QByteArray("group-guard\0", 12));
    EXPECT_EQ(processFile(process, u"environ"_s), "");
    EXPECT_EQ(QFile::symLinkTarget(u"/proc/%1/cwd"_s.arg(process)), u"/"_s);
    const auto descriptors = test::descriptorsOf(process);
    ASSERT_EQ(descriptors.size(), 3);
    EXPECT_TRUE(descriptors[0].startsWith(u"0 -> "_s) && descriptors[0].contains(u"socket:"_s));
    EXPECT_EQ(descriptors.mid(1), (QStringList{u"1 -> /dev/null"_s, u"2 -> /dev/null"_s}));
    EXPECT_NE(getsid(static_cast<pid_t>(process)), getsid(0));
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGQUIT})
        kill(static_cast<pid_t>(process), number);
    start();
    child.reset();
    EXPECT_FALSE(hasEnded(process));
    guard.reset();
    EXPECT_TRUE(eventually([&] { return hasEnded(process); }));
}

TEST_F(ChildProcessTest, IsTheOnlyChild) {
    start();
    EXPECT_EQ(processFile(getpid(), u"task/%1/children"_s.arg(getpid())).trimmed().toLongLong(), child->processId());
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
    EXPECT_FALSE(QFile::exists(u"/proc/%1"_s.arg(process)));
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
    // A process that has left the group is not looked after any more.
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
    what.workingDirectory = u"/nowhere/at/all"_s;
    EXPECT_EQ(reasonOf(what), u"/nowhere/at/all: No such file or directory"_s);
}

TEST_F(ChildProcessTest, SaysWhatIsWrongWithAProgramThatIsMissing) {
    auto what = launch();
    what.program = u"/nowhere/bun"_s;
    EXPECT_EQ(reasonOf(what), u"/nowhere/bun: No such file or directory"_s);
}

TEST_F(ChildProcessTest, SaysWhatIsWrongWithAFileThatIsNoProgram) {
    auto what = launch();
    what.program = folder.filePath(u"bun"_s);
    QFile file(what.program);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("words");
    file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    file.close();
    EXPECT_EQ(reasonOf(what), what.program + u": Exec format error"_s);
}

TEST_F(ChildProcessTest, SaysWhatIsWrongWithAnOutputThatIsNotOpen) {
    auto what = launch();
    what.output = -1;
    EXPECT_EQ(reasonOf(what), fakeBackend + u": Bad file descriptor"_s);
}

TEST_F(ChildProcessTest, LeavesNoDescriptorAndNoProcessBehind) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "exit");
    auto wrong = launch();
    wrong.program = u"/nowhere/bun"_s;
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
    EXPECT_EQ(processFile(getpid(), u"task/%1/children"_s.arg(getpid())), QByteArray());
}
