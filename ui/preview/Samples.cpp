#include "localization/Localization.h"
#include "ui/preview/Preview.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>

namespace palomet::Preview {

namespace {

constexpr double second = 1000;
constexpr double minute = 60 * second;

/// The sample's words in the user's language.
QString either(const char *english, const char *portuguese) {
    return QString::fromUtf8(Localization::isPortuguese() ? portuguese : english);
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
    return {u"palomet"_qs, either("hey palomet", "ei palomet")};
}

QJsonObject conversation(double clock) {
    const std::array roles{u"user"_qs, u"tool"_qs, u"agent"_qs};
    const std::array texts{question(), u"Bash: gh run list --limit 1"_qs,
                           either("The last deploy passed ten minutes ago, with no errors.",
                                  "O último deploy passou há dez minutos, sem erro.")};
    const std::array ages{300.0, 297.0, 294.0};
    const std::array durations{600.0, 1200.0, 2100.0};
    QJsonArray rows;
    for (std::size_t i = 0; i < roles.size(); ++i)
        rows.append(QJsonObject{{u"role"_qs, roles[i]},
                                {u"text"_qs, texts[i]},
                                {u"at"_qs, clock - ages[i] * second},
                                {u"durationMs"_qs, durations[i]},
                                {u"isOpen"_qs, false}});
    return {{u"startedAt"_qs, clock - 300 * second}, {u"rows"_qs, rows}, {u"costUsd"_qs, 0.03}, {u"answers"_qs, 1}};
}

QJsonObject settings() {
    return {{u"inputDevice"_qs, microphone()},
            {u"wakeWords"_qs, names()},
            {u"inputPreference"_qs, QJsonArray{microphone()}},
            {u"whisperModel"_qs, u"large-v3-turbo"_qs},
            {u"followUpMs"_qs, 30'000},
            {u"summonMs"_qs, 8'000},
            {u"echoGuardMs"_qs, 800},
            {u"endSilenceMs"_qs, 1'200},
            {u"isDraftOn"_qs, false},
            {u"isEchoCancelOn"_qs, true},
            {u"isDirectedOn"_qs, true},
            {u"actionPhrases"_qs, QJsonArray{L("default.actionPhrase")}},
            {u"draftMaxAgeMs"_qs, 10 * minute},
            {u"voiceId"_qs, u"7f92f8afb8ec43bf81429cc1c9199cb1"_qs},
            {u"voiceName"_qs, u"Alma"_qs},
            {u"voiceSpeed"_qs, 1.25},
            {u"fishModel"_qs, u"s1"_qs},
            {u"fallbackVoice"_qs, voice()},
            {u"brainModel"_qs, u"claude-haiku-5-5"_qs},
            {u"claudePath"_qs, u"/home/user/.local/bin/claude"_qs},
            {u"folders"_qs, QJsonArray{u"/code/website"_qs}},
            {u"confirmActions"_qs, QJsonArray{u"message"_qs, u"delete"_qs}},
            {u"workingFolder"_qs, u"/code"_qs}};
}

QJsonObject state(double clock) {
    const QJsonArray heard{QJsonObject{{u"at"_qs, clock - 58 * second},
                                       {u"text"_qs, either("Palomet, how is the site's deploy going?",
                                                           "Palomet, como está o deploy do site?")},
                                       {u"action"_qs, u"accepted"_qs}},
                           QJsonObject{{u"at"_qs, clock - 22 * second},
                                       {u"text"_qs, either("Ok, see you at five.", "Ok, até as cinco.")},
                                       {u"action"_qs, u"ignored"_qs},
                                       {u"reason"_qs, either("not meant for Palomet", "não era para o Palomet")}}};
    const QJsonArray draft{QJsonObject{{u"at"_qs, clock - 110 * second},
                                       {u"text"_qs, either("Open a pull request with the form fix.",
                                                           "Abre um pull request com a correção do formulário.")}}};
    return {{u"state"_qs, u"waiting"_qs},
            {u"isMuted"_qs, false},
            {u"isMicDead"_qs, false},
            {u"isEchoCancelled"_qs, true},
            {u"device"_qs, microphone()},
            {u"conversation"_qs, conversation(clock)},
            {u"session"_qs, QJsonObject{{u"model"_qs, u"claude-haiku-5-5"_qs},
                                        {u"claudePath"_qs, u"/home/user/.local/bin/claude"_qs},
                                        {u"claudeVersion"_qs, u"2.1.0"_qs},
                                        // A little more: whole minutes are counted, and a fraction is soon lost.
                                        {u"startedAt"_qs, clock - 42 * minute - 5 * second},
                                        {u"isReady"_qs, true}}},
            {u"heard"_qs, heard},
            {u"draft"_qs, draft},
            {u"settings"_qs, settings()},
            {u"timings"_qs, QJsonObject{{u"transcribeMs"_qs, 600},
                                        {u"modelMs"_qs, 2'100},
                                        {u"voiceMs"_qs, 900},
                                        {u"totalMs"_qs, 3'600},
                                        {u"isSpoken"_qs, true}}},
            {u"memory"_qs, QJsonObject{{u"isResumed"_qs, true}, {u"journalDays"_qs, 4}}}};
}

QJsonObject options() {
    const auto action = [](const char *id, const QString &label) {
        return QJsonObject{{u"id"_qs, QString::fromUtf8(id)}, {u"label"_qs, label}};
    };
    const QJsonObject claude{{u"path"_qs, u"/home/user/.local/bin/claude"_qs}, {u"version"_qs, u"2.1.0"_qs}};
    return {{u"inputs"_qs, QJsonArray{microphone(), u"Built-in Audio Analog Stereo"_qs}},
            {u"models"_qs, QJsonArray{u"claude-haiku-5-5"_qs, u"claude-sonnet-5-5"_qs}},
            {u"whisperModels"_qs, QJsonArray{u"base"_qs, u"small"_qs, u"medium"_qs, u"large-v3-turbo"_qs}},
            {u"fishModels"_qs, QJsonArray{u"s1"_qs, u"s1-mini"_qs}},
            {u"macVoices"_qs, QJsonArray{voice()}},
            {u"claudePaths"_qs, QJsonArray{claude}},
            {u"confirmActions"_qs,
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
        entries.append(QJsonObject{{u"conversationId"_qs, u"sample-%1"_qs.arg(entries.size() + 1)},
                                   {u"startedAt"_qs, sample.startedAt},
                                   {u"firstQuestion"_qs, sample.question},
                                   {u"answers"_qs, sample.answers},
                                   {u"costUsd"_qs, sample.cost}});
    return entries;
}

} // namespace

Documents documents(double clock) {
    return {.state = QJsonDocument(state(clock)).toJson(QJsonDocument::Compact),
            .options = QJsonDocument(options()).toJson(QJsonDocument::Compact),
            .history = QJsonDocument(history(clock)).toJson(QJsonDocument::Compact)};
}

} // namespace palomet::Preview
