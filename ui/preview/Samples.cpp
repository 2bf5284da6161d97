#include "localization/Localization.h"
#include "ui/preview/Preview.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>

namespace palomet::preview {

using namespace Qt::StringLiterals;

namespace {

constexpr double second = 1000;
constexpr double minute = 60 * second;

/// The sample's words in the user's language.
QString either(const char *english, const char *portuguese) {
    return QString::fromUtf8(localization::isPortuguese() ? portuguese : english);
}

QString question() {
    return either("How is the site's deploy going?", "Como está o deploy do site?");
}

QString microphone() {
    return either("MacBook Pro Microphone", "Microfone do MacBook Pro");
}

QString voice() {
    return either("Samantha", "Luciana");
}

QJsonArray names() {
    return {u"palomet"_s, either("hey palomet", "ei palomet")};
}

QJsonObject conversation(double clock) {
    const std::array roles{u"user"_s, u"tool"_s, u"agent"_s};
    const std::array texts{question(), u"Bash: gh run list --limit 1"_s,
                           either("The last deploy passed ten minutes ago, with no errors.",
                                  "O último deploy passou há dez minutos, sem erro.")};
    const std::array ages{300.0, 297.0, 294.0};
    const std::array durations{600.0, 1200.0, 2100.0};
    QJsonArray rows;
    for (std::size_t i = 0; i < roles.size(); ++i)
        rows.append(QJsonObject{{u"role"_s, roles[i]},
                                {u"text"_s, texts[i]},
                                {u"at"_s, clock - ages[i] * second},
                                {u"durationMs"_s, durations[i]},
                                {u"isOpen"_s, false}});
    return {{u"startedAt"_s, clock - 300 * second}, {u"rows"_s, rows}, {u"costUsd"_s, 0.03}, {u"answers"_s, 1}};
}

QJsonObject settings() {
    return {{u"inputDevice"_s, microphone()},
            {u"wakeWords"_s, names()},
            {u"inputPreference"_s, QJsonArray{microphone()}},
            {u"whisperModel"_s, u"large-v3-turbo"_s},
            {u"followUpMs"_s, 30'000},
            {u"summonMs"_s, 8'000},
            {u"echoGuardMs"_s, 800},
            {u"endSilenceMs"_s, 1'200},
            {u"isDraftOn"_s, false},
            {u"isEchoCancelOn"_s, true},
            {u"isDirectedOn"_s, true},
            {u"actionPhrases"_s, QJsonArray{L("default.actionPhrase")}},
            {u"draftMaxAgeMs"_s, 10 * minute},
            {u"voiceId"_s, u"7f92f8afb8ec43bf81429cc1c9199cb1"_s},
            {u"voiceName"_s, u"Alma"_s},
            {u"voiceSpeed"_s, 1.25},
            {u"fishModel"_s, u"s1"_s},
            {u"fallbackVoice"_s, voice()},
            {u"brainModel"_s, u"claude-haiku-5-5"_s},
            {u"claudePath"_s, u"/home/user/.local/bin/claude"_s},
            {u"folders"_s, QJsonArray{u"/code/website"_s}},
            {u"confirmActions"_s, QJsonArray{u"message"_s, u"delete"_s}},
            {u"workingFolder"_s, u"/code"_s}};
}

QJsonObject state(double clock) {
    const QJsonArray heard{QJsonObject{{u"at"_s, clock - 58 * second},
                                       {u"text"_s, either("Palomet, how is the site's deploy going?",
                                                          "Palomet, como está o deploy do site?")},
                                       {u"action"_s, u"accepted"_s}},
                           QJsonObject{{u"at"_s, clock - 22 * second},
                                       {u"text"_s, either("Ok, see you at five.", "Ok, até as cinco.")},
                                       {u"action"_s, u"ignored"_s},
                                       {u"reason"_s, either("not meant for Palomet", "não era para o Palomet")}}};
    const QJsonArray draft{QJsonObject{{u"at"_s, clock - 110 * second},
                                       {u"text"_s, either("Open a pull request with the form fix.",
                                                          "Abre um pull request com a correção do formulário.")}}};
    return {{u"state"_s, u"waiting"_s},
            {u"isMuted"_s, false},
            {u"isMicDead"_s, false},
            {u"isEchoCancelled"_s, true},
            {u"device"_s, microphone()},
            {u"conversation"_s, conversation(clock)},
            {u"session"_s, QJsonObject{{u"model"_s, u"claude-haiku-5-5"_s},
                                       {u"claudePath"_s, u"/home/user/.local/bin/claude"_s},
                                       {u"claudeVersion"_s, u"2.1.0"_s},
                                       // A little more than 42 minutes: the display counts whole ones, rounded down.
                                       {u"startedAt"_s, clock - 42 * minute - 5 * second},
                                       {u"isReady"_s, true}}},
            {u"heard"_s, heard},
            {u"draft"_s, draft},
            {u"settings"_s, settings()},
            {u"timings"_s, QJsonObject{{u"transcribeMs"_s, 600},
                                       {u"modelMs"_s, 2'100},
                                       {u"voiceMs"_s, 900},
                                       {u"totalMs"_s, 3'600},
                                       {u"isSpoken"_s, true}}},
            {u"memory"_s, QJsonObject{{u"isResumed"_s, true}, {u"journalDays"_s, 4}}}};
}

QJsonObject options() {
    const auto action = [](const char *id, const QString &label) {
        return QJsonObject{{u"id"_s, QString::fromUtf8(id)}, {u"label"_s, label}};
    };
    const QJsonObject claude{{u"path"_s, u"/home/user/.local/bin/claude"_s}, {u"version"_s, u"2.1.0"_s}};
    return {{u"inputs"_s, QJsonArray{microphone(), u"Built-in Audio Analog Stereo"_s}},
            {u"models"_s, QJsonArray{u"claude-haiku-5-5"_s, u"claude-sonnet-5-5"_s}},
            {u"whisperModels"_s, QJsonArray{u"base"_s, u"small"_s, u"medium"_s, u"large-v3-turbo"_s}},
            {u"fishModels"_s, QJsonArray{u"s1"_s, u"s1-mini"_s}},
            {u"macVoices"_s, QJsonArray{voice()}},
            {u"claudePaths"_s, QJsonArray{claude}},
            {u"confirmActions"_s,
             QJsonArray{action("message", either("Send someone a message", "Mandar mensagem a alguém")),
                        action("delete", either("Delete files", "Apagar arquivos")),
                        action("spend", either("Spend money", "Gastar dinheiro"))}}};
}

QJsonArray history(double clock) {
    const auto today = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(clock));
    const auto at = [&](int daysAgo, int hour, int minutes) {
        auto time = today.addDays(-daysAgo);
        time.setTime({hour, minutes});
        return static_cast<double>(time.toMSecsSinceEpoch());
    };
    struct Sample {
        double startedAt;
        QString question;
        int answers;
        double cost;
    };
    const std::array samples{
        Sample{clock - 300 * second, question(), 1, 0.03},
        Sample{clock - 209 * minute,
               either("What is on my calendar this afternoon?", "O que tenho na agenda hoje à tarde?"), 2, 0.05},
        Sample{at(1, 18, 2),
               either("Summarise the three open issues about the contact form.",
                      "Resume as três issues abertas sobre o formulário de contato."),
               6, 0.21},
        Sample{at(1, 9, 15), either("Start the tests.", "Roda os testes."), 1, 0.004},
        Sample{at(2, 16, 31), either("Why does the build take four minutes?", "Por que o build demora quatro minutos?"),
               4, 0.12},
        Sample{at(2, 8, 47), either("Good morning.", "Bom dia."), 0, 0},
        Sample{at(3, 21, 10), either("Rename the branch and push it.", "Renomeia o branch e envia."), 3, 0.09},
        Sample{at(4, 10, 5),
               either("Which dependencies are a major version behind?", "Quais dependências estão uma versão atrás?"),
               11, 1.5},
    };
    QJsonArray entries;
    for (const auto &sample : samples)
        entries.append(QJsonObject{{u"conversationId"_s, u"sample-%1"_s.arg(entries.size() + 1)},
                                   {u"startedAt"_s, sample.startedAt},
                                   {u"firstQuestion"_s, sample.question},
                                   {u"answers"_s, sample.answers},
                                   {u"costUsd"_s, sample.cost}});
    return entries;
}

} // namespace

Documents documents(double clock) {
    return {.state = QJsonDocument(state(clock)).toJson(QJsonDocument::Compact),
            .options = QJsonDocument(options()).toJson(QJsonDocument::Compact),
            .history = QJsonDocument(history(clock)).toJson(QJsonDocument::Compact)};
}

} // namespace palomet::preview
