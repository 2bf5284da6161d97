#include "ui/screens/ConversationRows.h"

#include "localization/Localization.h"
#include "model/Format.h"
#include "ui/screens/Pieces.h"

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

bool isLong(const QString &text) {
    return text.size() > longestPiece;
}

/// What a row that goes on with a text has of the one that begins it, beside its piece.
Snapshot::Row continued(const Snapshot::Row &row) {
    Snapshot::Row next;
    next.role = row.role;
    return next;
}
Snapshot::DraftEntry continued(const Snapshot::DraftEntry & /*entry*/) {
    return {};
}
Snapshot::Heard continued(const Snapshot::Heard &heard) {
    return {.at = 0, .text = {}, .action = heard.action, .reason = {}};
}

/// The rows, long texts in pieces.
template <typename Row>
std::vector<Row> inPieces(std::vector<Row> rows) {
    if (std::none_of(rows.begin(), rows.end(), [](const auto &row) { return isLong(row.text); }))
        return rows;
    std::vector<Row> cut;
    for (auto &row : rows) {
        if (!isLong(row.text)) {
            cut.push_back(std::move(row));
            continue;
        }
        const auto first = cut.size();
        for (auto &piece : pieces(row.text)) {
            cut.push_back(cut.size() == first ? row : continued(row));
            cut.back().text = std::move(piece.text);
            if (cut.size() - 1 > first)
                cut.back().at = piece.isAfterBreak ? continuedAfterBreak : continuedInLine;
        }
        if constexpr (requires { row.reason; }) {
            // It stands under the text.
            std::swap(cut[first].reason, cut.back().reason);
        }
    }
    return cut;
}

/// As it is laid out: there, two characters that end a line would be one.
QString words(const QString &text) {
    return text.contains(u'\r') ? QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")) : text;
}

QString clock(double at) {
    return isContinued(at) ? QString() : Format::clock(at);
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
    const bool isShort = std::none_of(rows.begin(), rows.end(), [](const auto &row) { return isLong(row.text); });
    if (isShort && std::is_partitioned(rows.begin(), rows.end(), isDone))
        return assign(std::shared_ptr<const List>(snapshot, &rows));
    auto sorted = rows;
    std::stable_partition(sorted.begin(), sorted.end(), isDone);
    assign(inPieces(std::move(sorted)));
}

QVariant ConversationRows::data(const QModelIndex &index, int role) const {
    const auto &turn = row(index);
    switch (role) {
    case Kind:
        return kind(turn.role);
    case Label:
        return isContinued(turn.at) ? QString() : label(turn.role);
    case Words:
        return words(turn.text);
    case Clock:
        return clock(turn.at);
    case Duration:
        return duration(turn);
    case IsContinued:
        return isContinued(turn.at);
    case Joint:
        return joint(turn.at);
    default:
        return {};
    }
}

QHash<int, QByteArray> ConversationRows::roleNames() const {
    return {{Kind, "kind"},   {Label, "label"},       {Words, "words"},
            {Clock, "clock"}, {Duration, "duration"}, {IsContinued, "isContinued"},
            {Joint, "joint"}};
}

void DraftRows::show(const Snapshot *snapshot) {
    assign(inPieces(snapshot ? snapshot->draft.value_or(std::vector<Snapshot::DraftEntry>())
                             : std::vector<Snapshot::DraftEntry>()));
}

QVariant DraftRows::data(const QModelIndex &index, int role) const {
    switch (role) {
    case Clock:
        return clock(row(index).at);
    case Words:
        return words(row(index).text);
    case IsContinued:
        return isContinued(row(index).at);
    case Joint:
        return joint(row(index).at);
    default:
        return {};
    }
}

QHash<int, QByteArray> DraftRows::roleNames() const {
    return {{Clock, "clock"}, {Words, "words"}, {IsContinued, "isContinued"}, {Joint, "joint"}};
}

void HeardRows::show(const Snapshot *snapshot, double now) {
    std::vector<Snapshot::Heard> recent;
    if (snapshot && snapshot->heard)
        std::copy_if(snapshot->heard->begin(), snapshot->heard->end(), std::back_inserter(recent),
                     [now](const auto &heard) { return now - heard.at < recentMs; });
    assign(inPieces(std::move(recent)));
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
        return clock(heard.at);
    case Words:
        return words(heard.text);
    case Reason:
        return pieces(heard.reason.value_or(QString())).front().text;
    case Action:
        return isContinued(heard.at) ? QString() : action(heard.action);
    case IsAccepted:
        return heard.action == u"accepted";
    case IsContinued:
        return isContinued(heard.at);
    case Joint:
        return joint(heard.at);
    default:
        return {};
    }
}

QHash<int, QByteArray> HeardRows::roleNames() const {
    return {{Clock, "clock"},   {Words, "words"},           {Reason, "reason"},
            {Action, "action"}, {IsAccepted, "isAccepted"}, {IsContinued, "isContinued"},
            {Joint, "joint"}};
}

} // namespace palomet
