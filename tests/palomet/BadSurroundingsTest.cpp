#include "tests/palomet/BackendAtItsPort.h"
#include "tests/palomet/ProgramTest.h"
#include "tests/support/OtherUsersListener.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

/// The program where something is not as it should be.
class BadSurroundingsTest : public test::ProgramTest {
protected:
    /// It runs, shows itself, answers and ends in order.
    void expectToLive() {
        EXPECT_TRUE(eventually([this] { return desktop.tray.items().size() == 1; }));
        EXPECT_EQ(command({u"--status"_s}), (Outcome{0, "offline\n", ""}));
        EXPECT_EQ(command({u"--quit"_s}), (Outcome{0, "", ""}));
        ASSERT_TRUE(awaitEnd());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
    }

    QString below(const QString &path) const { return desktop.home.filePath(path); }
};

struct Stranger {
    const char *name;
    QByteArray greeting;
};

class StrangerAtThePort : public BadSurroundingsTest, public ::testing::WithParamInterface<Stranger> {};

} // namespace

TEST_F(BadSurroundingsTest, ARuntimeThatIsAFolderIsNoRuntime) {
    QFile::remove(below(u"resources/bun"_s));
    QDir().mkdir(below(u"resources/bun"_s));
    desktop.tray.appear();
    start();
    expectToLive();
    EXPECT_EQ(log(), "");
}

TEST_F(BadSurroundingsTest, AResourceFolderThatIsAFileHasNothingInIt) {
    setVariable("PALOMET_RESOURCES", u"" PALOMET_EXECUTABLE ""_s);
    desktop.tray.appear();
    start();
    expectToLive();
    EXPECT_EQ(log(), "");
}

TEST_F(BadSurroundingsTest, ALogFolderThatCannotBeMadeCostsTheBackendOnly) {
    QFile obstacle(below(u"Library"_s));
    ASSERT_TRUE(obstacle.open(QFile::WriteOnly));
    desktop.tray.appear();
    start();
    expectToLive();
}

TEST_F(BadSurroundingsTest, AFullDiskCostsTheLogOnly) {
    QDir().mkpath(QFileInfo(LogFile::pathBelow(desktop.home.path())).path());
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, LogFile::pathBelow(desktop.home.path())));
    desktop.tray.appear();
    start();
    expectToLive();
}

TEST_F(BadSurroundingsTest, ASettingsFolderThatCannotBeMadeCostsTheMemoryOfTheKeysOnly) {
    QFile obstacle(below(u".config"_s));
    ASSERT_TRUE(obstacle.open(QFile::WriteOnly));
    desktop.tray.appear();
    start();
    expectToLive();
}

TEST_F(BadSurroundingsTest, ASessionBusThatDiesTakesNothingWithIt) {
    test::BackendAtItsPort backend;
    start();
    const auto process = awaitBackend();
    ASSERT_TRUE(backend.isFollowed());
    desktop.bus.end();
    // It goes on: the next fetch is one that was asked for after the end.
    const int before = backend.http.count("/state");
    backend.tell("turn");
    EXPECT_TRUE(eventually([&] { return backend.http.count("/state") > before; }));
    sendSignal(SIGTERM);
    expectOrderlyEnd(process);
}

TEST_F(BadSurroundingsTest, ASessionBusThatHangsHoldsNeitherTheStartNorTheEnd) {
    desktop.bus.hang();
    start();
    const auto process = awaitBackend();
    sendSignal(SIGTERM);
    expectOrderlyEnd(process);
    desktop.bus.end(); // For the test itself, which has to leave it.
}

TEST_F(BadSurroundingsTest, ASessionBusThatBeginsToHangDoesNotHoldTheEnd) {
    desktop.tray.appear();
    start();
    const auto process = awaitBackend();
    ASSERT_TRUE(eventually([this] { return !desktop.tray.menu().empty(); }));
    desktop.bus.hang();
    sendSignal(SIGTERM);
    expectOrderlyEnd(process);
    desktop.bus.end(); // For the test itself, which has to leave it.
}

TEST_F(BadSurroundingsTest, ANewSessionBusFindsTheProgramThatRunsAndLetsNoSecondOneRun) {
    start();
    awaitBackend();
    desktop.bus.end();
    EXPECT_EQ(command({u"--status"_s}).exitCode, 1);
    desktop.bus.beginAgain();
    EXPECT_TRUE(eventually([&] { return command({u"--status"_s}) == (Outcome{0, "offline\n", ""}); }));
    EXPECT_EQ(command({}), (Outcome{0, "", ""})) << "a second one shows the first, and ends";
    EXPECT_EQ(command({u"--quit"_s}), (Outcome{0, "", ""}));
    EXPECT_TRUE(awaitEnd());
}

TEST_F(BadSurroundingsTest, ADisplayThatHasGoneIsNone) {
    const Outcome noDisplay{1, "", "palomet: there is no display\n"};
    setVariable("DISPLAY", u":4780"_s);
    setVariable("WAYLAND_DISPLAY", u"wayland-nowhere"_s);
    EXPECT_EQ(command({}), noDisplay);
    EXPECT_EQ(command({u"--preview"_s, u"voice"_s}), noDisplay);
    setVariable("XDG_SESSION_TYPE", u"wayland"_s);
    EXPECT_EQ(command({}), noDisplay);
    setVariable("QT_QPA_PLATFORM", u"xcb"_s);
    EXPECT_EQ(command({}), noDisplay);
}

TEST_F(BadSurroundingsTest, AnotherUsersProgramAtThePortIsToldNothingUntilTheBackendIsThere) {
    if (!test::OtherUsersListener::isPossible())
        GTEST_SKIP() << "only the administrator can be somebody else";
    const QByteArray line = "\nrede: a porta 4780 é de um programa de outro usuário; o Palomet não fala com ele\n";
    auto stranger = std::make_optional<test::OtherUsersListener>(4780);
    ASSERT_EQ(stranger->port(), 4780);
    start();
    ASSERT_TRUE(eventually([&] { return log().contains(line); }));
    EXPECT_EQ(command({u"--say"_s, u"a secret"_s}), (Outcome{0, "", ""}));
    EXPECT_EQ(command({u"--status"_s}), (Outcome{0, "offline\n", ""}));
    const auto doctor = command({u"--doctor"_s});
    EXPECT_TRUE(doctor.output.contains("\n!!  port 4780: held by the program of another user, "))
        << doctor.output.data();
    EXPECT_EQ(stranger->heard(), "");
    stranger.reset();
    test::BackendAtItsPort backend;
    EXPECT_TRUE(eventually([&] { return command({u"--status"_s}).output.startsWith("waiting"); }));
    EXPECT_TRUE(eventually([&] { return !backend.audio.events(u"hello"_s).empty(); }));
    EXPECT_EQ(log().count(line), 1);
}

TEST_P(StrangerAtThePort, IsOfflineToTheProgramUntilTheBackendIsThere) {
    test::BackendAtItsPort backend;
    backend.http.onConnection([](QTcpSocket &socket) {
        socket.write(GetParam().greeting);
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [&socket] {
            socket.readAll();
            socket.write(GetParam().greeting);
        });
    });
    start();
    awaitBackend();
    ASSERT_TRUE(eventually([&] { return backend.http.connectionCount() >= 4; })) << "events, state, audio, again";
    EXPECT_EQ(command({u"--status"_s}), (Outcome{0, "offline\n", ""}));
    EXPECT_EQ(command({u"--listen"_s}), (Outcome{0, "", ""}));
    EXPECT_EQ(command({u"--status"_s}), (Outcome{0, "offline\n", ""}));
    EXPECT_EQ(backend.audio.connections, 0);

    backend.http.goDown();
    backend.http.onConnection(nullptr);
    backend.http.comeUp();
    EXPECT_TRUE(eventually([&] { return command({u"--status"_s}).output.startsWith("waiting"); }));
    EXPECT_TRUE(eventually([&] { return !backend.audio.events(u"hello"_s).empty(); }));
}

INSTANTIATE_TEST_SUITE_P(
    Strangers, StrangerAtThePort,
    ::testing::Values(Stranger{"ThatGreetsFirst", "SSH-2.0-Stranger_1.0\r\n"}, Stranger{"ThatSaysNothing", ""},
                      Stranger{"WithZeros", QByteArray(100'000, '\0')},
                      Stranger{"WithAnotherPage", "HTTP/1.1 200 OK\r\ncontent-length: 5\r\n\r\nhello"}),
    [](const auto &tested) { return tested.param.name; });
