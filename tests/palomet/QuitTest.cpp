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

INSTANTIATE_TEST_SUITE_P(By, QuitTest,
                         ::testing::Values(Entrance{"Menu"}, Entrance{"Command"}, Entrance{"Terminate", SIGTERM},
                                           Entrance{"Interrupt", SIGINT}, Entrance{"HangUp", SIGHUP}),
                         [](const auto &tested) { return tested.param.name; });
