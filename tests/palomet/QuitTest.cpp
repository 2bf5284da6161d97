#include "tests/palomet/ProgramTest.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

/// A way in which a user or the system ends the program.
struct Entrance {
    const char *name;
    int signal = 0; ///< Or 0 for another way.
};

class QuitTest : public test::ProgramTest, public ::testing::WithParamInterface<Entrance> {
protected:
    void quit() {
        const QByteArray way(GetParam().name);
        if (GetParam().signal != 0)
            sendSignal(GetParam().signal);
        else if (way == "Menu")
            EXPECT_TRUE(desktop.tray.click(u"Quit Palomet"_s));
        else
            EXPECT_EQ(command({u"--quit"_s}), (Outcome{0, "", ""}));
    }

    void startWithItem() {
        desktop.tray.appear();
        start();
        ASSERT_TRUE(eventually([this] { return !desktop.tray.menu().empty(); }));
    }
};

class DisplayEndTest : public test::ProgramTest {
protected:
    void loseDisplay(End end) {
        start();
        const auto backend = awaitBackend();
        desktop.display.end();
        expectOrderlyEnd(backend, end);
    }
};

} // namespace

TEST_P(QuitTest, EndsInOrderWithZero) {
    startWithItem();
    const auto backend = awaitBackend();
    quit();
    expectOrderlyEnd(backend);
}

TEST_P(QuitTest, EndsInOrderWithZeroAlsoWhenTheBackendHasToBeForced) {
    setVariable("FAKE_BACKEND", u"stubborn"_s);
    startWithItem();
    const auto backend = awaitBackend();
    quit();
    expectOrderlyEnd(backend, End::Forced);
}

TEST_P(QuitTest, EndsWithZeroWithoutABackend) {
    QFile::remove(desktop.home.filePath(u"resources/bun"_s));
    startWithItem();
    quit();
    ASSERT_TRUE(awaitEnd());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(log(), "");
}

TEST_F(DisplayEndTest, EndsInOrderWhenItsDisplayGoes) {
    loseDisplay(End::Polite);
}

TEST_F(DisplayEndTest, ForcesABackendThatDoesNotListenWhenItsDisplayGoes) {
    setVariable("FAKE_BACKEND", u"stubborn"_s);
    loseDisplay(End::Forced);
}

TEST_F(DisplayEndTest, FinishesAnEndThatHadBegunWhenItsDisplayGoes) {
    setVariable("FAKE_BACKEND", u"stubborn"_s);
    start();
    const auto backend = awaitBackend();
    sendSignal(SIGTERM);
    ASSERT_TRUE(eventually([this] { return farewell().size() == 2; }));
    desktop.display.end();
    expectOrderlyEnd(backend, End::Forced);
}

TEST_F(DisplayEndTest, EndsWithoutABackendWhenItsDisplayGoes) {
    QFile::remove(desktop.home.filePath(u"resources/bun"_s));
    desktop.tray.appear();
    start();
    ASSERT_TRUE(eventually([this] { return !desktop.tray.menu().empty(); }));
    desktop.display.end();
    EXPECT_TRUE(awaitEnd());
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

INSTANTIATE_TEST_SUITE_P(By, QuitTest,
                         ::testing::Values(Entrance{"Menu"}, Entrance{"Command"}, Entrance{"Terminate", SIGTERM},
                                           Entrance{"Interrupt", SIGINT}, Entrance{"HangUp", SIGHUP}),
                         [](const auto &tested) { return tested.param.name; });
