#include "command/RemoteSession.h"

#include "command/RemoteStatusJson.h"
#include "command/fail.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace palomet {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// At once, also into a pipe: whoever follows reads line by line. Whether it could be written.
[[nodiscard]] bool print(const QString &line) {
    return std::puts(line.toUtf8().constData()) >= 0 && std::fflush(stdout) == 0;
}

/// Standard input, one byte further than a text may be long.
QByteArray inputText() {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    QByteArray text;
    while (text.size() <= CommandLine::maximumTextBytes) {
        const auto piece = input.read(CommandLine::maximumTextBytes + 1 - text.size());
        if (piece.isEmpty())
            break;
        text += piece;
    }
    return text;
}

int command(const CommandLine &line, RemoteClient &client, const QString &activation) {
    auto command = *line.command;
    command.activation = activation;
    if (line.isTextOnInput) {
        const auto text = CommandLine::checkedText(inputText());
        if (!text)
            return fail(text.reason(), 2);
        command.text = *text;
    }
    if (const auto problem = client.send(command))
        return fail(problem->reason, 1);
    // Quitting is done when it has quit; the backend has two seconds of that.
    if (command.action == u"quit"_s && !client.waitUntilGone(10s))
        return fail(u"Palomet does not end"_s, 1);
    return 0;
}

QString shown(const CommandLine &line, const RemoteStatus &status) {
    if (line.isJson)
        return toJson(status);
    // When it is followed, a line a change; else the word, and what it hears with.
    return line.isFollowing || status.device.isEmpty() ? status.state : status.state + u'\n' + status.device;
}

int follow(const CommandLine &line, RemoteClient &client) {
    QString last;
    const auto changed = [&](const RemoteStatus &status) {
        const auto now = shown(line, status);
        // The reader has gone. Leave later: there may be no event loop to leave yet.
        if (now != last && !print(now))
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
        last = now;
    };
    if (const auto problem = client.follow(changed, [] { QCoreApplication::exit(0); }))
        return fail(problem->reason, 1);
    return QCoreApplication::exec();
}

} // namespace

int runRemoteCommand(const CommandLine &line, RemoteClient &client, const QString &activation) {
    if (line.mode == CommandLine::Mode::Command)
        return command(line, client, activation);
    if (line.isFollowing)
        return follow(line, client);
    const auto status = client.status();
    if (!status)
        return fail(status.reason(), 1);
    if (!print(shown(line, *status)))
        return fail(u"the status cannot be written"_s, 1);
    return 0;
}

} // namespace palomet
