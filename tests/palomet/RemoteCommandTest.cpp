#include "tests/palomet/FollowingTest.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

/// The program with its backend, and commands that are given to it as a user gives them.
class RemoteCommandTest : public test::FollowingTest {
protected:
    /// The one request that is a command.
    test::ScriptedBackend::ExchangePointer posted() {
        EXPECT_TRUE(eventually([this] { return !backend.commands().empty(); }));
        EXPECT_EQ(backend.commands().size(), 1U);
        return backend.commands().at(0);
    }
};

struct Command {
    const char *name;
    QStringList arguments;
    QByteArray target;
    QByteArray body;
};

class EachCommand : public RemoteCommandTest, public ::testing::WithParamInterface<Command> {};

} // namespace

TEST_P(EachCommand, PostsExactlyItsRequest) {
    startAndFollow();
    const auto &[name, arguments, target, body] = GetParam();
    EXPECT_EQ(command(arguments), (Outcome{0, "", ""}));
    const auto request = posted();
    EXPECT_TRUE(request->bytes().startsWith("POST " + target + " HTTP/1.1\r\nHost: 127.0.0.1:4780\r\n"))
        << request->bytes().constData();
    EXPECT_EQ(request->body(), body);
    EXPECT_EQ(request->header("content-length"), QByteArray::number(body.size()));
    EXPECT_EQ(request->header("content-type"),
              body.isEmpty() ? std::nullopt : std::optional<QByteArray>("application/json"));
    for (const auto *other : {"transfer-encoding", "origin", "cookie", "authorization", "expect"})
        EXPECT_EQ(request->header(other), std::nullopt) << other;
}

INSTANTIATE_TEST_SUITE_P(Remote, EachCommand,
                         ::testing::Values(Command{"Listen", {u"--listen"_s}, "/listen", ""},
                                           Command{"Stop", {u"--stop"_s}, "/stop", ""},
                                           Command{"Mute", {u"--mute"_s}, "/mute", ""},
                                           Command{"New", {u"--new"_s}, "/new", ""},
                                           Command{"Act", {u"--act"_s}, "/act", ""},
                                           Command{"ClearDraft", {u"--clear-draft"_s}, "/draft/clear", ""},
                                           Command{"Say", {u"--say"_s, u"oi"_s}, "/say", R"({"text":"oi"})"},
                                           Command{"SayOfManyScripts",
                                                   {u"--say"_s, u" “olá” \\ & <b>नमस्ते</b> 🚀\n"_s},
                                                   "/say",
                                                   R"({"text":"“olá” \\ & <b>नमस्ते</b> 🚀"})"}),
                         [](const auto &tested) { return tested.param.name; });

TEST_F(RemoteCommandTest, SaysAMebibyteFromStandardInput) {
    startAndFollow();
    const QByteArray text(1024 * 1024, 'a');
    EXPECT_EQ(command({u"--say"_s, u"-"_s}, text), (Outcome{0, "", ""}));
    EXPECT_EQ(posted()->body(), "{\"text\":\"" + text + "\"}");
}

TEST_F(RemoteCommandTest, SaysWhatStandardInputHoldsWithoutTheBlanksAroundIt) {
    startAndFollow();
    EXPECT_EQ(command({u"--say"_s, u"-"_s}, "\n  bom dia\n\n"), (Outcome{0, "", ""}));
    EXPECT_EQ(posted()->body(), R"({"text":"bom dia"})");
}

TEST_F(RemoteCommandTest, RefusesATextThatIsNoTextAndSendsNothing) {
    startAndFollow();
    const auto refused = [](const QByteArray &reason) { return Outcome{2, "", "palomet: " + reason + "\n"}; };
    const auto nothing = refused("there is no text to say");
    const auto tooLong = refused("the text is longer than 1 MiB");
    EXPECT_EQ(command({u"--say"_s}), refused("--say needs a text"));
    EXPECT_EQ(command({u"--say"_s, QString()}), nothing);
    EXPECT_EQ(command({u"--say"_s, u" \t\n\u00a0"_s}), nothing);
    EXPECT_EQ(command({u"--say"_s, u"-"_s}), nothing);
    EXPECT_EQ(command({u"--say"_s, u"-"_s}, "  \n"), nothing);
    EXPECT_EQ(command({u"--say"_s, u"-"_s}, QByteArray(1024 * 1024 + 1, 'a')), tooLong);
    EXPECT_EQ(command({u"--say"_s, u"-"_s}, QByteArray(5 * 1024 * 1024, 'a')), tooLong);
    EXPECT_EQ(command({u"--say"_s, u"-"_s}, "\xff\xfe"), refused("the text is not UTF-8"));
    // The event after them shows that they have not come.
    EXPECT_EQ(command({u"--listen"_s}).exitCode, 0);
    EXPECT_EQ(posted()->target(), "/listen");
}

TEST_F(RemoteCommandTest, EndsWithTwoOnAWrongArgument) {
    startAndFollow();
    for (const auto &arguments :
         {QStringList{u"--lisen"_s}, QStringList{u"--listen"_s, u"now"_s}, QStringList{u"--status"_s, u"--xml"_s},
          QStringList{u"--open"_s, u"kitchen"_s}, QStringList{u"listen"_s}}) {
        const auto outcome = command(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << qPrintable(arguments.join(u' '));
        EXPECT_EQ(outcome.output, "");
        EXPECT_TRUE(outcome.errors.startsWith("palomet: "));
        EXPECT_EQ(outcome.errors.count('\n'), 1);
    }
    EXPECT_TRUE(backend.commands().empty());
}

TEST_F(RemoteCommandTest, EndsWithOneAndALineWhenNoneRuns) {
    const Outcome noneRuns{1, "", "palomet: Palomet is not running\n"};
    for (const auto *option :
         {"--listen", "--stop", "--mute", "--new", "--act", "--clear-draft", "--open", "--status", "--quit"})
        EXPECT_EQ(command({QString::fromLatin1(option)}), noneRuns) << option;
    EXPECT_EQ(command({u"--say"_s, u"oi"_s}), noneRuns);
    EXPECT_EQ(command({u"--status"_s, u"--follow"_s}), noneRuns);
}

TEST_F(RemoteCommandTest, EndsWithOneAndALineWithoutASessionBus) {
    startAndFollow();
    const Outcome noBus{1, "", "palomet: there is no session bus\n"};
    setVariable("DBUS_SESSION_BUS_ADDRESS", u"unix:path=/nowhere"_s);
    EXPECT_EQ(command({u"--listen"_s}), noBus);
    EXPECT_EQ(command({u"--status"_s}), noBus);
    EXPECT_EQ(command({u"--quit"_s}), noBus);
    // Nothing that names one, and no display to find one by.
    environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    environment.remove(u"DISPLAY"_s);
    EXPECT_EQ(command({u"--listen"_s}), noBus);
    EXPECT_TRUE(backend.commands().empty());
}

TEST_F(RemoteCommandTest, NeedsNoDisplay) {
    startAndFollow();
    environment.remove(u"DISPLAY"_s);
    EXPECT_EQ(command({u"--listen"_s}), (Outcome{0, "", ""}));
    EXPECT_EQ(posted()->target(), "/listen");
}

TEST_F(RemoteCommandTest, ASecondLaunchEndsAtOnceAndStartsNothing) {
    startAndFollow();
    EXPECT_EQ(command({}).exitCode, 0);
    EXPECT_EQ(log().count("iniciando"), 1);
    EXPECT_EQ(program.state(), QProcess::Running);
}

TEST_F(RemoteCommandTest, TellsTheStateOnItsFirstLine) {
    startAndFollow();
    ASSERT_TRUE(eventually([this] { return !command({u"--status"_s}).output.startsWith("offline"); }));
    EXPECT_EQ(command({u"--status"_s}), (Outcome{0, "waiting\nMicrophone (USB Audio)\n", ""}));
}

TEST_F(RemoteCommandTest, TellsThatTheBackendIsOffline) {
    backend.http.goDown();
    start();
    awaitBackend();
    EXPECT_EQ(command({u"--status"_s}), (Outcome{0, "offline\n", ""}));
}

TEST_F(RemoteCommandTest, TellsTheStatusAsJson) {
    startAndFollow();
    const auto expected = QJsonDocument::fromJson(R"x({"state":"waiting","device":"Microphone (USB Audio)",
        "isMuted":false,"isMicrophoneOn":true,"hotKeyProblem":""})x");
    const Outcome oneLine{0, expected.toJson(QJsonDocument::Compact) + '\n', ""};
    // Whether the microphone may be used is known within its first seconds.
    EXPECT_TRUE(eventually([&] { return command({u"--status"_s, u"--json"_s}) == oneLine; }));
}

TEST_F(RemoteCommandTest, FollowsTheStateALineAChangeUntilItIsInterrupted) {
    startAndFollow();
    ASSERT_TRUE(eventually([this] { return !command({u"--status"_s}).output.startsWith("offline"); }));
    QProcess follower;
    follower.setProcessEnvironment(environment);
    follower.start(u"" PALOMET_EXECUTABLE ""_s, {u"--status"_s, u"--follow"_s});
    QByteArray lines;
    const auto hasSaid = [&](const QByteArray &expected) {
        return eventually([&] {
            lines += follower.readAllStandardOutput();
            return lines == expected;
        });
    };
    EXPECT_TRUE(hasSaid("waiting\n"));
    QByteArray expected("waiting\n");
    for (const auto *state : {"listening", "hearing", "thinking", "speaking"}) {
        backend.enter(QString::fromLatin1(state));
        backend.tell("phase");
        expected += QByteArray(state) + '\n';
        EXPECT_TRUE(hasSaid(expected)) << lines.constData();
    }
    EXPECT_EQ(follower.state(), QProcess::Running);
    ::kill(static_cast<pid_t>(follower.processId()), SIGINT);
    EXPECT_TRUE(eventually([&] { return follower.state() == QProcess::NotRunning; }));
    EXPECT_EQ(follower.readAllStandardError(), "");
}

TEST_F(RemoteCommandTest, StopsFollowingWhenTheProgramEnds) {
    startAndFollow();
    QProcess follower;
    follower.setProcessEnvironment(environment);
    follower.start(u"" PALOMET_EXECUTABLE ""_s, {u"--status"_s, u"--follow"_s, u"--json"_s});
    ASSERT_TRUE(eventually([&] { return follower.bytesAvailable() > 0; }));
    EXPECT_EQ(command({u"--quit"_s}), (Outcome{0, "", ""}));
    EXPECT_TRUE(eventually([&] { return follower.state() == QProcess::NotRunning; }));
    EXPECT_EQ(follower.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(follower.exitCode(), 0);
}

TEST_F(RemoteCommandTest, StopsFollowingWhenNobodyReadsAnyMore) {
    startAndFollow();
    QProcess reader;
    reader.setProcessEnvironment(environment);
    reader.start(u"sh"_s, {u"-c"_s, u"\"" PALOMET_EXECUTABLE "\" --status --follow | head -n 1"_s});
    ASSERT_TRUE(eventually([&] { return reader.bytesAvailable() > 0; }));
    EXPECT_EQ(reader.state(), QProcess::Running);
    backend.enter(u"hearing"_s);
    backend.tell("phase");
    EXPECT_TRUE(eventually([&] { return reader.state() == QProcess::NotRunning; }));
    EXPECT_EQ(reader.readAllStandardError(), "");
}

TEST_F(RemoteCommandTest, SaysThatTheStatusCannotBeWritten) {
    startAndFollow();
    QProcess status;
    status.setProcessEnvironment(environment);
    status.setStandardOutputFile(u"/dev/full"_s);
    status.start(u"" PALOMET_EXECUTABLE ""_s, {u"--status"_s});
    ASSERT_TRUE(eventually([&] { return status.state() == QProcess::NotRunning; }));
    EXPECT_EQ(status.exitCode(), 1);
    EXPECT_EQ(status.readAllStandardError(), "palomet: the status cannot be written\n");
}
