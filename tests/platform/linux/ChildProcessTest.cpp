#include "tests/platform/linux/ChildProcessTest.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

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
    frontEnd.start(u"/bin/sh"_s,
                   {u"-c"_s, u"exec \"$@\" <&- >&- 2>&-"_s, u"sh"_s, u"" PALOMET_FRONT_END ""_s, fakeBackend, path});
    ASSERT_TRUE(eventually([this] { return log().contains("pronto "); }));
    const auto backend = test::processesNamed("pronto", log()).constFirst();
    EXPECT_EQ(test::descriptorsOf(backend), (QStringList{u"0 -> /dev/null"_s, u"1 -> "_s + path, u"2 -> "_s + path}));
    frontEnd.kill();
    frontEnd.waitForFinished();
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
