#pragma once

#include "model/Snapshot.h"
#include "ui/screens/RowModel.h"

namespace palomet {

/// The turns of the current conversation; the one that is still being produced is last. In all lists here, a long text
/// takes several rows, and the later ones say that they continue it.
class ConversationRows final : public RowModel<Snapshot::Row> {
    Q_OBJECT

public:
    enum Role { Kind = Qt::UserRole, Label, Words, Clock, Duration, IsContinued, Joint };

    /// Null for no conversation.
    void show(const std::shared_ptr<const Snapshot> &snapshot);

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

/// What was dictated so far.
class DraftRows final : public RowModel<Snapshot::DraftEntry> {
    Q_OBJECT

public:
    enum Role { Clock = Qt::UserRole, Words, IsContinued, Joint };

    void show(const Snapshot *snapshot);

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

/// What was heard in the last two minutes.
class HeardRows final : public RowModel<Snapshot::Heard> {
    Q_OBJECT

public:
    enum Role { Clock = Qt::UserRole, Words, Reason, Action, IsAccepted, IsContinued, Joint };

    /// `now` in milliseconds since the Unix epoch.
    void show(const Snapshot *snapshot, double now);

    /// The words for what the backend did with an utterance; a code without words is shown as it is.
    [[nodiscard]] static QString action(const QString &code);

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

} // namespace palomet
