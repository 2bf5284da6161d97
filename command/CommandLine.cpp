#include "command/CommandLine.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace palomet {

namespace {

enum class Argument { None, Text, Pane };

struct Option {
    QLatin1StringView name;
    Argument argument;
    const char *meaning;
};

// Commands to the running instance; the option's name without its dashes is the action's.
constexpr std::array commands{
    Option{QLatin1StringView("--listen"), Argument::None, "start listening"},
    Option{QLatin1StringView("--stop"), Argument::None, "stop listening, thinking or speaking"},
    Option{QLatin1StringView("--mute"), Argument::None, "mute, or unmute"},
    Option{QLatin1StringView("--new"), Argument::None, "begin a new conversation"},
    Option{QLatin1StringView("--say"), Argument::Text, "say TEXT to the agent; \"-\" reads it from standard input"},
    Option{QLatin1StringView("--act"), Argument::None, "act on the draft"},
    Option{QLatin1StringView("--clear-draft"), Argument::None, "clear the draft"},
    Option{QLatin1StringView("--open"), Argument::Pane,
           "open the window, on PANE if given: now, history, listening, voice or brain"},
    Option{QLatin1StringView("--quit"), Argument::None, "quit"},
};

constexpr std::array panes{QLatin1StringView("now"), QLatin1StringView("history"), QLatin1StringView("listening"),
                           QLatin1StringView("voice"), QLatin1StringView("brain")};

struct AutostartWord {
    QLatin1StringView name;
    CommandLine::Autostart meaning;
};

constexpr std::array autostarts{
    AutostartWord{QLatin1StringView("on"), CommandLine::Autostart::On},
    AutostartWord{QLatin1StringView("off"), CommandLine::Autostart::Off},
    AutostartWord{QLatin1StringView("status"), CommandLine::Autostart::Status},
};

CommandLine invalid(const QString &problem) {
    CommandLine line;
    line.mode = CommandLine::Mode::Invalid;
    line.problem = problem;
    return line;
}

CommandLine only(CommandLine::Mode mode, const QStringList &arguments) {
    if (arguments.size() > 1)
        return invalid(QStringLiteral("unexpected argument: ") + arguments[1]);
    CommandLine line;
    line.mode = mode;
    return line;
}

CommandLine statusLine(const QStringList &arguments) {
    CommandLine line;
    line.mode = CommandLine::Mode::Status;
    for (const auto &argument : arguments.sliced(1)) {
        bool &flag = argument == QStringLiteral("--json") ? line.isJson : line.isFollowing;
        if ((argument != QStringLiteral("--json") && argument != QStringLiteral("--follow")) || flag)
            return invalid(QStringLiteral("unexpected argument: ") + argument);
        flag = true;
    }
    return line;
}

CommandLine autostartLine(const QStringList &arguments) {
    if (arguments.size() > 2)
        return invalid(QStringLiteral("unexpected argument: ") + arguments[2]);
    const auto wanted = arguments.value(1);
    const auto *known = std::find_if(autostarts.begin(), autostarts.end(),
                                     [&](const auto &candidate) { return candidate.name == wanted; });
    if (known == autostarts.end())
        return invalid(QStringLiteral("--autostart needs on, off or status"));
    CommandLine line;
    line.mode = CommandLine::Mode::Autostart;
    line.autostart = known->meaning;
    return line;
}

CommandLine commandLine(const Option &option, const QStringList &arguments) {
    CommandLine line;
    line.mode = CommandLine::Mode::Command;
    line.command = RemoteCommand{option.name.sliced(2), std::nullopt};
    const qsizetype most = option.argument == Argument::None ? 1 : 2;
    if (arguments.size() > most)
        return invalid(QStringLiteral("unexpected argument: ") + arguments[most]);
    if (option.argument == Argument::Text) {
        if (arguments.size() < 2)
            return invalid(option.name + QStringLiteral(" needs a text"));
        if (arguments[1] == QStringLiteral("-")) {
            line.isTextOnInput = true;
            return line;
        }
        const auto text = CommandLine::checkedText(arguments[1].toUtf8());
        if (!text)
            return invalid(text.reason());
        line.command->text = *text;
    } else if (option.argument == Argument::Pane && arguments.size() == 2) {
        if (std::find(panes.begin(), panes.end(), arguments[1]) == panes.end())
            return invalid(QStringLiteral("no such pane: ") + arguments[1]);
        line.command->text = arguments[1];
    }
    return line;
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments) {
    if (arguments.contains(QStringLiteral("--preview"))) {
        CommandLine line;
        line.mode = Mode::Preview;
        return line;
    }
    // A capture without a preview is ignored, with its path.
    auto rest = arguments;
    if (const auto capture = rest.indexOf(QStringLiteral("--capture")); capture >= 0)
        rest.remove(capture, std::min<qsizetype>(2, rest.size() - capture));
    if (rest.isEmpty())
        return {};

    const auto &first = rest.front();
    if (first == QStringLiteral("--version"))
        return only(Mode::Version, rest);
    if (first == QStringLiteral("--help"))
        return only(Mode::Help, rest);
    if (first == QStringLiteral("--doctor"))
        return only(Mode::Doctor, rest);
    if (first == QStringLiteral("--status"))
        return statusLine(rest);
    if (first == QStringLiteral("--autostart"))
        return autostartLine(rest);
    const auto *option =
        std::find_if(commands.begin(), commands.end(), [&](const Option &known) { return known.name == first; });
    return option == commands.end() ? invalid(QStringLiteral("unknown argument: ") + first)
                                    : commandLine(*option, rest);
}

Result<QString> CommandLine::checkedText(const QByteArray &bytes) {
    if (bytes.size() > maximumTextBytes)
        return Failure{QStringLiteral("the text is longer than 1 MiB")};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    if (decoder.hasError())
        return Failure{QStringLiteral("the text is not UTF-8")};
    auto trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return Failure{QStringLiteral("there is no text to say")};
    return trimmed;
}

std::vector<OptionGroup> CommandLine::options() {
    OptionGroup remote{QStringLiteral("To the one that runs (exit code 0 when it is done, 1 when none runs)"), {}};
    for (const auto &option : commands) {
        QString argument;
        if (option.argument == Argument::Text)
            argument = QStringLiteral("TEXT");
        else if (option.argument == Argument::Pane)
            argument = QStringLiteral("[PANE]");
        remote.options.push_back({option.name, argument, QString::fromUtf8(option.meaning)});
    }
    const auto add = [](OptionGroup &group, const char *name, const char *argument, const char *meaning) {
        group.options.push_back(
            {QString::fromLatin1(name), QString::fromLatin1(argument), QString::fromLatin1(meaning)});
    };
    add(remote, "--status", "[--json]", "print its state");
    add(remote, "--status", "--follow", "print its state at every change, until interrupted");

    OptionGroup own{QStringLiteral("For itself"), {}};
    add(own, "--autostart", "on|off", "start with the session, or not any more");
    add(own, "--autostart", "status", "print whether it does");
    add(own, "--doctor", "", "look at what it needs, and say what works and what to do (exit code 0 when all does)");
    add(own, "--preview", "[PANE]", "show the window with sample data, and nothing else");
    add(own, "--capture", "FILE", "with --preview: write a picture of it and end");
    add(own, "--version", "", "print the version");
    add(own, "--help", "", "print this");
    return {remote, own};
}

QString CommandLine::help() {
    QString text = QStringLiteral("Usage: palomet [OPTION]\n\n"
                                  "Without an option: starts Palomet, or opens the window of the one that runs.\n");
    for (const auto &group : options()) {
        text += QStringLiteral("\n%1:\n").arg(group.title);
        for (const auto &option : group.options)
            text += QStringLiteral("  %1  %2\n").arg(option.usage(), -22).arg(option.meaning);
    }
    return text;
}

} // namespace palomet
