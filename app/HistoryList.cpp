#include "app/HistoryList.h"

#include "localization/Localization.h"
#include "model/Format.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>

namespace palomet::historyList {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 2;

QString withoutControls(QString text) {
    for (auto &character : text) {
        if (character.category() == QChar::Other_Control || character.category() == QChar::Other_Format)
            character = u' ';
    }
    return text;
}

} // namespace

QString text(const std::vector<ConversationSummary> &history) {
    if (history.empty())
        return L(u"history.empty");
    struct Line {
        QString day;
        QString outcome;
        QString question;
    };
    std::vector<Line> lines;
    qsizetype dayWidth = 0;
    qsizetype outcomeWidth = 0;
    for (const auto &summary : history) {
        lines.push_back({format::day(summary.startedAt), format::outcome(summary.answers, summary.costUsd),
                         format::oneLine(withoutControls(summary.firstQuestion))});
        dayWidth = std::max(dayWidth, lines.back().day.size());
        outcomeWidth = std::max(outcomeWidth, lines.back().outcome.size());
    }
    QStringList written;
    for (const auto &[day, outcome, question] : lines)
        written += (day.leftJustified(dayWidth + gap) + outcome.leftJustified(outcomeWidth + gap) + question).trimmed();
    return written.join(u'\n');
}

QString json(const std::vector<ConversationSummary> &history) {
    QJsonArray array;
    for (const auto &summary : history)
        array.append(QJsonObject{{u"conversationId"_s, summary.conversationId},
                                 {u"startedAt"_s, summary.startedAt},
                                 {u"firstQuestion"_s, summary.firstQuestion},
                                 {u"answers"_s, summary.answers},
                                 {u"costUsd"_s, summary.costUsd}});
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

} // namespace palomet::historyList
