#include "tests/palomet/ProgramTest.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;
using test::hasEnded;

namespace {

class PalometTest : public test::ProgramTest {
protected:
    /// The windows of the program that can be seen.
    [[nodiscard]] qsizetype windows() const {
        const auto found =
            desktop.display.run(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--class"_s, u"palomet"_s});
        return found.count('\n');
    }
    /// Another start of the program; its exit code.
    int startAgain(const QStringList &arguments = {}) const {
        QProcess again;
        again.setProcessEnvironment(environment);
        again.start(u"" PALOMET_EXECUTABLE ""_s, arguments);
        EXPECT_TRUE(eventually([&] { return again.state() == QProcess::NotRunning; }));
        return again.exitStatus() == QProcess::NormalExit ? again.exitCode() : -1;
    }
};

} // namespace

TEST_F(PalometTest, RunsTheBackendAndShowsItsItem) {
    desktop.tray.appear();
    start();
    const auto backend = awaitBackend();
    EXPECT_TRUE(eventually([this] { return desktop.tray.items().size() == 1; }));
    ASSERT_TRUE(eventually([this] { return !desktop.tray.menu().empty(); }));
    EXPECT_EQ(desktop.tray.menu().size(), 9U);
    EXPECT_FALSE(log().contains("bandeja"));
    ASSERT_TRUE(desktop.tray.click(u"Quit Palomet"_s));
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, RunsWithoutATrayAndShowsItsItemWhenOneAppears) {
    start();
    const auto backend = awaitBackend();
    EXPECT_TRUE(eventually([this] { return log().contains("\nbandeja: "); }));
    desktop.tray.appear();
    EXPECT_TRUE(eventually([this] { return desktop.tray.items().size() == 1; }));
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, RunsWithoutASessionBus) {
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nowhere"_s);
    start();
    const auto backend = awaitBackend();
    EXPECT_TRUE(eventually([this] { return log().contains("\nbandeja: "); }));
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, QuitsOnceHoweverOftenItIsAsked) {
    environment.insert(u"FAKE_BACKEND"_s, u"stubborn"_s);
    start();
    const auto backend = awaitBackend();
    sendSignal(SIGTERM);
    ASSERT_TRUE(eventually([this] { return log().contains("saindo: parando"); }));
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sendSignal(number);
    expectOrderlyEnd(backend, End::Forced);
}

TEST_F(PalometTest, TakesItsBackendAndAllThatThisHasStartedWithItWhenItIsKilled) {
    environment.insert(u"FAKE_BACKEND"_s, u"parent"_s);
    start();
    const auto backend = awaitBackend();
    EXPECT_EQ(test::statusOf(backend, "PPid").toLongLong(), program.processId());
    const auto children = test::processesNamed("filho", log());
    ASSERT_EQ(children.size(), 2);
    program.kill();
    EXPECT_TRUE(eventually([&] { return hasEnded(backend) && hasEnded(children[0]) && hasEnded(children[1]); }));
}

TEST_F(PalometTest, GivesTheBackendOnlyItsLogAndACleanMask) {
    desktop.tray.appear();
    start();
    const auto backend = awaitBackend();
    const auto path = LogFile::pathBelow(desktop.home.path());
    EXPECT_EQ(test::descriptorsOf(backend), (QStringList{u"0 -> /dev/null"_s, u"1 -> "_s + path, u"2 -> "_s + path}));
    EXPECT_EQ(test::statusOf(backend, "SigBlk"), "0000000000000000");
    EXPECT_EQ(test::statusOf(backend, "SigIgn"), "0000000000000000");
}

TEST_F(PalometTest, StartsItsBackendAgainTwoSecondsAfterItWasKilled) {
    start();
    const auto first = awaitBackend();
    kill(static_cast<pid_t>(first), SIGKILL);
    EXPECT_TRUE(eventually([this] { return test::processesNamed("pronto", log()).size() == 2; }));
    sendSignal(SIGTERM);
    ASSERT_TRUE(awaitEnd());
    EXPECT_EQ(program.exitCode(), 0);
}

TEST_F(PalometTest, GoesThroughXWaylandOnAWaylandSessionAndKeepsThatToItself) {
    environment.insert(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-nowhere"_s);
    start();
    const auto backend = awaitBackend();
    EXPECT_FALSE(test::processFile(backend, u"environ"_s).contains("QT_QPA_PLATFORM"));
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, RunsWithAResourceFolderThatIsMissing) {
    environment.insert(u"PALOMET_RESOURCES"_s, u"/nowhere"_s);
    desktop.tray.appear();
    start();
    EXPECT_TRUE(eventually([this] { return desktop.tray.items().size() == 1; }));
    sendSignal(SIGTERM);
    ASSERT_TRUE(awaitEnd());
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(log(), "");
}

TEST_F(PalometTest, TellsItsVersionAndItsUseWithoutADisplay) {
    environment.remove(u"DISPLAY"_s);
    start({u"--version"_s});
    ASSERT_TRUE(awaitEnd());
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(program.readAllStandardOutput(), "palomet " PALOMET_VERSION "\n");
    start({u"--help"_s});
    ASSERT_TRUE(awaitEnd());
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(program.readAllStandardOutput().startsWith("Usage: palomet"));
}

TEST_F(PalometTest, SaysThatThereIsNoDisplay) {
    const Outcome noDisplay{1, "", "palomet: there is no display\n"};
    for (const auto &name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s})
        environment.remove(name);
    EXPECT_EQ(command({}), noDisplay);
    EXPECT_EQ(command({u"--preview"_s, u"voice"_s}), noDisplay);
    EXPECT_EQ(log(), "");
}

TEST_F(PalometTest, OpensTheWindowOfTheOneThatRunsWithoutADisplayOfItsOwn) {
    desktop.tray.appear();
    start();
    const auto backend = awaitBackend();
    for (const auto &name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s})
        environment.remove(name);
    EXPECT_EQ(command({}), (Outcome{0, "", ""}));
    EXPECT_TRUE(eventually([this] { return windows() == 1; }));
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, RefusesAnArgumentThatItDoesNotKnow) {
    start({u"--lisen"_s});
    ASSERT_TRUE(awaitEnd());
    EXPECT_EQ(program.exitCode(), 2);
    EXPECT_EQ(program.readAllStandardError(), "palomet: unknown argument: --lisen\n");
    EXPECT_EQ(program.readAllStandardOutput(), "");
}

TEST_F(PalometTest, OpensItsWindowWhenItIsStartedAgain) {
    desktop.tray.appear();
    start();
    const auto backend = awaitBackend();
    EXPECT_EQ(windows(), 0);
    EXPECT_EQ(startAgain(), 0);
    EXPECT_TRUE(eventually([this] { return windows() == 1; }));
    EXPECT_EQ(startAgain({u"--open"_s, u"voice"_s}), 0);
    EXPECT_EQ(startAgain({u"--open"_s, u"cellar"_s}), 2);
    EXPECT_EQ(windows(), 1);
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, OpensItsWindowByItselfWithoutATray) {
    start();
    const auto backend = awaitBackend();
    EXPECT_TRUE(eventually([this] { return windows() == 1; }));
    EXPECT_EQ(log().count("\nbandeja: "), 1);
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, OpensItsWindowWhenItsItemIsClicked) {
    desktop.tray.appear();
    start();
    const auto backend = awaitBackend();
    ASSERT_TRUE(eventually([this] { return desktop.tray.items().size() == 1; }));
    EXPECT_EQ(windows(), 0);
    desktop.tray.activate();
    EXPECT_TRUE(eventually([this] { return windows() == 1; }));
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, StartsAsEverWhenOnlyACaptureIsAskedFor) {
    desktop.tray.appear();
    start({u"--capture"_s, desktop.home.filePath(u"x.png"_s)});
    const auto backend = awaitBackend();
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
    EXPECT_FALSE(QFile::exists(desktop.home.filePath(u"x.png"_s)));
}

TEST_F(PalometTest, PreviewsBesideARunningInstanceAndEndsAtOnceAndWithoutATraceWhenItIsAsked) {
    desktop.tray.appear();
    start();
    const auto backend = awaitBackend();
    const QTemporaryDir temporary;
    auto besideIt = environment;
    besideIt.insert(u"TMPDIR"_s, temporary.path());
    QProcess beside;
    beside.setProcessEnvironment(besideIt);
    beside.start(u"" PALOMET_EXECUTABLE ""_s, {u"--preview"_s, u"brain"_s});
    EXPECT_TRUE(eventually([this] { return windows() == 1; }));
    EXPECT_FALSE(QDir(temporary.path()).isEmpty());
    beside.terminate();
    EXPECT_TRUE(eventually([&] { return beside.state() == QProcess::NotRunning; }));
    EXPECT_EQ(beside.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(beside.exitCode(), 0);
    EXPECT_TRUE(QDir(temporary.path()).isEmpty());
    EXPECT_FALSE(log().contains("saindo"));
    sendSignal(SIGTERM);
    expectOrderlyEnd(backend);
}

TEST_F(PalometTest, ItsItemInTheTrayHasItsName) {
    desktop.tray.appear();
    start();
    ASSERT_TRUE(eventually([this] { return !desktop.tray.menu().empty(); }));
    EXPECT_EQ(desktop.tray.property(u"Title"_s).toString(), u"Palomet"_s);
}
