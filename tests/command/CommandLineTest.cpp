#include "command/CommandLine.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using Mode = CommandLine::Mode;

namespace {

CommandLine parse(std::initializer_list<const char *> arguments) {
    QStringList list;
    for (const auto *argument : arguments)
        list += QString::fromUtf8(argument);
    return CommandLine::parse(list);
}

RemoteCommand command(const char *action) {
    return {QString::fromUtf8(action), std::nullopt};
}

} // namespace

TEST(CommandLine, WithoutArgumentsRunsTheProgram) {
    EXPECT_EQ(parse({}).mode, Mode::Run);
}

TEST(CommandLine, NamesEachCommandByItsOption) {
    for (const auto *action : {"listen", "stop", "mute", "new", "act", "clear-draft", "open", "quit"}) {
        const auto line = CommandLine::parse({u"--"_s + QString::fromUtf8(action)});
        EXPECT_EQ(line.mode, Mode::Command) << action;
        EXPECT_EQ(line.command, command(action));
    }
}

TEST(CommandLine, TakesATextToSayWithoutTheBlanksAroundIt) {
    const auto line = parse({"--say", "  olá, que horas são?\n"});
    EXPECT_EQ(line.mode, Mode::Command);
    EXPECT_EQ(line.command->text, u"olá, que horas são?"_s);
    EXPECT_FALSE(line.isTextOnInput);
    EXPECT_TRUE(parse({"--say", "-"}).isTextOnInput);
    EXPECT_EQ(parse({"--say", "--stop"}).command->text, u"--stop"_s);
}

TEST(CommandLine, RefusesATextThatSaysNothing) {
    EXPECT_EQ(parse({"--say"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--say", ""}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--say", " \t\n"}).mode, Mode::Invalid);
}

TEST(CommandLine, TakesAMebibyteOfTextAndNoMore) {
    EXPECT_TRUE(CommandLine::checkedText(QByteArray(CommandLine::maximumTextBytes, 'a')));
    EXPECT_FALSE(CommandLine::checkedText(QByteArray(CommandLine::maximumTextBytes + 1, 'a')));
    EXPECT_FALSE(CommandLine::checkedText("\xff\xfe"));
}

TEST(CommandLine, OpensAPaneThatThereIs) {
    EXPECT_EQ(parse({"--open", "voice"}).command->text, u"voice"_s);
    EXPECT_EQ(parse({"--open"}).command->text, std::nullopt);
    EXPECT_EQ(parse({"--open", "kitchen"}).problem, u"no such pane: kitchen"_s);
    EXPECT_EQ(parse({"--open", "voice", "brain"}).problem, u"unexpected argument: brain"_s);
}

TEST(CommandLine, AsksForTheStatusInEitherForm) {
    EXPECT_EQ(parse({"--status"}).mode, Mode::Status);
    EXPECT_TRUE(parse({"--status", "--json"}).isJson);
    EXPECT_FALSE(parse({"--status", "--json"}).isFollowing);
    const auto line = parse({"--status", "--follow", "--json"});
    EXPECT_EQ(line.mode, Mode::Status);
    EXPECT_TRUE(line.isJson);
    EXPECT_TRUE(line.isFollowing);
    EXPECT_EQ(parse({"--status", "--loud"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--status", "--json", "--json"}).mode, Mode::Invalid);
}

TEST(CommandLine, ListsTheHistoryInEitherForm) {
    EXPECT_EQ(parse({"--history"}).mode, Mode::History);
    EXPECT_FALSE(parse({"--history"}).isJson);
    EXPECT_EQ(parse({"--history", "--json"}).mode, Mode::History);
    EXPECT_TRUE(parse({"--history", "--json"}).isJson);
    EXPECT_EQ(parse({"--history", "--follow"}).problem, u"unexpected argument: --follow"_s);
    EXPECT_EQ(parse({"--history", "--json", "--json"}).problem, u"unexpected argument: --json"_s);
    EXPECT_EQ(parse({"--json", "--history"}).problem, u"unknown argument: --json"_s);
}

TEST(CommandLine, TurnsTheAutostartOnAndOffAndTellsOfIt) {
    using Autostart = CommandLine::Autostart;
    EXPECT_EQ(parse({"--autostart", "on"}).mode, Mode::Autostart);
    EXPECT_EQ(parse({"--autostart", "on"}).autostart, Autostart::On);
    EXPECT_EQ(parse({"--autostart", "off"}).autostart, Autostart::Off);
    EXPECT_EQ(parse({"--autostart", "status"}).autostart, Autostart::Status);
    EXPECT_EQ(parse({"--autostart"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--autostart", "ON"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--autostart", "on", "off"}).mode, Mode::Invalid);
}

TEST(CommandLine, CallsTheDoctorAlone) {
    EXPECT_EQ(parse({"--doctor"}).mode, Mode::Doctor);
    EXPECT_EQ(parse({"--doctor", "--json"}).mode, Mode::Invalid);
}

TEST(CommandLine, IsStrictAboutEverythingElse) {
    EXPECT_EQ(parse({"--listn"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"listen"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--listen", "now"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--listen", "--stop"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--version", "x"}).mode, Mode::Invalid);
    EXPECT_EQ(parse({""}).mode, Mode::Invalid);
    EXPECT_EQ(parse({"--listn"}).problem, u"unknown argument: --listn"_s);
    EXPECT_EQ(parse({"--listen", "now"}).problem, u"unexpected argument: now"_s);
    EXPECT_EQ(parse({"--version", "x"}).problem, u"unexpected argument: x"_s);
}

TEST(CommandLine, LooksForAPreviewFirst) {
    EXPECT_EQ(parse({"--preview"}).mode, Mode::Preview);
    EXPECT_EQ(parse({"--nonsense", "--preview", "voice", "--capture", "x.png"}).mode, Mode::Preview);
}

TEST(CommandLine, IgnoresACaptureWithoutAPreview) {
    EXPECT_EQ(parse({"--capture", "x.png"}).mode, Mode::Run);
    EXPECT_EQ(parse({"--capture"}).mode, Mode::Run);
    EXPECT_EQ(parse({"--listen", "--capture", "x.png"}).mode, Mode::Command);
}

TEST(CommandLine, NamesEveryOptionInItsHelp) {
    const auto help = CommandLine::help();
    for (const auto *option : {"--listen",
                               "--stop",
                               "--mute",
                               "--new",
                               "--say TEXT",
                               "--act",
                               "--clear-draft",
                               "--open [PANE]",
                               "--quit",
                               "--status",
                               "--json",
                               "--follow",
                               "--history [--json]",
                               "--autostart on|off",
                               "--autostart status",
                               "--doctor",
                               "--preview [PANE]",
                               "--capture FILE",
                               "--version",
                               "--help"})
        EXPECT_TRUE(help.contains(QString::fromUtf8(option))) << option;
}
