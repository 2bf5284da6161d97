#pragma once

#include "tests/support/Eventually.h"
#include "tests/support/Fixture.h"
#include "tests/support/ScriptedAudioBackend.h"
#include "tests/support/ScriptedBackend.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// A state that thinks, with a conversation without end: some forty megabytes.
inline QByteArray endlessState() {
    auto document = QJsonDocument::fromJson(fixture("state/full.json")).object();
    auto conversation = document[u"conversation"_s].toObject();
    QJsonArray rows;
    for (int row = 0; row < 250'000; ++row)
        rows.append(QJsonObject{{u"role"_s, u"user"_s}, {u"text"_s, QString(100, u'x')}, {u"at"_s, 1.7e12 + row}});
    conversation[u"rows"_s] = rows;
    document[u"conversation"_s] = conversation;
    document[u"state"_s] = u"thinking"_s;
    return QJsonDocument(document).toJson(QJsonDocument::Compact);
}

/// A whole backend at the port where the program looks for it: documents, events, commands and the audio link.
class BackendAtItsPort {
public:
    static constexpr quint16 port = 4780;

    BackendAtItsPort() { behave(); }

    /// Does everything as it should, until it is told otherwise.
    void behave() {
        enter(u"waiting"_s);
        http.serve("/history", fixture("history/empty.json"));
        http.serve("/options", fixture("options/empty.json"));
        for (const auto *command : {"/listen", "/stop", "/mute", "/new", "/say", "/act", "/draft/clear"})
            http.serve(command, "{}");
        http.on("/events", [](const ScriptedBackend::ExchangePointer &exchange) { exchange->beginEvents(); });
        http.onUpgrade([this](QTcpSocket *connection) { audio.take(connection); });
    }

    /// From now on it is in this state; nobody is told.
    void enter(const QString &state) {
        auto document = QJsonDocument::fromJson(fixture("state/full.json")).object();
        document[u"state"_s] = state;
        http.serve("/state", QJsonDocument(document).toJson());
    }

    /// Runs the event loop until the program has asked for the state and follows the events.
    bool isFollowed() {
        return eventually([this] { return http.count("/state") > 0 && http.count("/events") > 0; });
    }

    void tell(const QByteArray &event) { http.last("/events")->event(event, "{}"); }

    /// Every request so far that is a command.
    [[nodiscard]] std::vector<ScriptedBackend::ExchangePointer> commands() const {
        std::vector<ScriptedBackend::ExchangePointer> found;
        for (const auto &exchange : http.exchanges()) {
            if (exchange->method() != "GET")
                found.push_back(exchange);
        }
        return found;
    }

    ScriptedBackend http{port};
    ScriptedAudioBackend audio;
};

} // namespace palomet::test
