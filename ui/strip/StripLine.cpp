#include "ui/strip/StripLine.h"

#include "localization/Localization.h"

#include <algorithm>

namespace palomet {

namespace {

QString drafted(const Snapshot *snapshot) {
    const auto count = snapshot && snapshot->draft ? static_cast<qint64>(snapshot->draft->size()) : 0;
    return L("strip.drafted", Count{count}) + QStringLiteral(" \u00B7 ") + L("strip.say", actionPhrase(snapshot));
}

QString thought(const Snapshot *snapshot) {
    if (!snapshot || snapshot->conversation.rows.empty())
        return {};
    const auto &rows = snapshot->conversation.rows;
    if (rows.back().role == u"tool")
        return rows.back().text;
    const auto asked = std::find_if(rows.rbegin(), rows.rend(), [](const auto &row) { return row.role == u"user"; });
    return asked == rows.rend() ? QString() : asked->text;
}

} // namespace

QString actionPhrase(const Snapshot *snapshot) {
    if (snapshot && snapshot->settings.actionPhrases && !snapshot->settings.actionPhrases->empty())
        return snapshot->settings.actionPhrases->front();
    return L("default.actionPhrase");
}

QString stripLine(LoopState state, const Snapshot *snapshot, const QString &spokenLine) {
    switch (state) {
    case LoopState::Listening:
        return L("strip.listening");
    case LoopState::Hearing:
        return QStringLiteral("\u2026");
    case LoopState::Drafting:
        return drafted(snapshot);
    case LoopState::Thinking:
        return thought(snapshot);
    case LoopState::Speaking:
        return spokenLine;
    case LoopState::Muted:
        return snapshot && snapshot->isMuted ? L("strip.mutedInMenu") : L("strip.needsMicrophone");
    case LoopState::Waiting:
    case LoopState::Offline:
        return {};
    }
    return {};
}

} // namespace palomet
