#include "ui/screens/ConversationRows.h"

#include "model/Format.h"
#include "ui/localization/Localization.h"

#include <algorithm>

namespace palomet {

namespace {

constexpr double recentMs = 120'000;

QString label(const QString &role) {
    if (role == u"user")
        return L("row.you");
    if (role == u"tool")
        return L("row.tool");
    return QStringLiteral("Palomet");
}

QString kind(const QString &role) {
    return role == u"user" || role == u"tool" ? role : QStringLiteral("agent");
}

QString duration(const Snapshot::Row &row) {
    if (row.isOpen.value_or(false))
        return L("row.running");
    return row.durationMs ? Format::seconds(*row.durationMs) : QString();
}

} // namespace

void ConversationRows::show(const std::shared_ptr<const Snapshot> &snapshot) {
    if (!snapshot)
        return assign(List());
    const auto &rows = snapshot->conversation.rows;
    const auto isDone = [](const auto &row) { return !row.isOpen.value_or(false); };
    if (std::is_partitioned(rows.begin(), rows.end(), isDone))
        return assign(std::shared_ptr<const List>(snapshot, &rows));
    auto sorted = rows;
    std::stable_partition(sorted.begin(), sorted.end(), isDone);
    assign(std::move(sorted));
}

QVariant ConversationRows::data(const QModelIndex &index, int role) const {
    const auto &turn = row(index);
    switch (role) {
    case Kind:
        return kind(turn.role);
    case Label:
        return label(turn.role);
    case Words:
        return turn.text;
    case Clock:
        return Format::clock(turn.at);
    case Duration:
        return duration(turn);
    default:
        return {};
    }
}

QHash<int, QByteArray> ConversationRows::roleNames() const {
    return {{Kind, "kind"}, {Label, "label"}, {Words, "words"}, {Clock, "clock"}, {Duration, "duration"}};
}

void DraftRows::show(const Snapshot *snapshot) {
    assign(snapshot ? snapshot->draft.value_or(std::vector<Snapshot::DraftEntry>())
                    : std::vector<Snapshot::DraftEntry>());
}

QVariant DraftRows::data(const QModelIndex &index, int role) const {
    switch (role) {
    case Clock:
        return Format::clock(row(index).at);
    case Words:
        return row(index).text;
    default:
        return {};
    }
}

QHash<int, QByteArray> DraftRows::roleNames() const {
    return {{Clock, "clock"}, {Words, "words"}};
}

void HeardRows::show(const Snapshot *snapshot, double now) {
    std::vector<Snapshot::Heard> recent;
    if (snapshot && snapshot->heard)
        std::copy_if(snapshot->heard->begin(), snapshot->heard->end(), std::back_inserter(recent),
                     [now](const auto &heard) { return now - heard.at < recentMs; });
    assign(std::move(recent));
}

QString HeardRows::action(const QString &code) {
    const auto key = QStringLiteral("heard.action.") + code;
    const auto words = L(key);
    return words == key ? code : words;
}

QVariant HeardRows::data(const QModelIndex &index, int role) const {
    const auto &heard = row(index);
    switch (role) {
    case Clock:
        return Format::clock(heard.at);
    case Words:
        return heard.text;
    case Reason:
        return heard.reason.value_or(QString());
    case Action:
        return action(heard.action);
    case IsAccepted:
        return heard.action == u"accepted";
    default:
        return {};
    }
}

QHash<int, QByteArray> HeardRows::roleNames() const {
    return {{Clock, "clock"}, {Words, "words"}, {Reason, "reason"}, {Action, "action"}, {IsAccepted, "isAccepted"}};
}

} // namespace palomet
