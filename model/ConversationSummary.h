#pragma once

#include <QString>

namespace palomet {

/// A past conversation, one entry of the backend's `history` document.
struct ConversationSummary {
    QString conversationId;
    double startedAt = 0; ///< Milliseconds since the Unix epoch.
    QString firstQuestion;
    qint64 answers = 0;
    double costUsd = 0;

    /// The key of its row in a list.
    [[nodiscard]] const QString &id() const { return conversationId; }
    bool operator==(const ConversationSummary &) const = default;
};

} // namespace palomet
