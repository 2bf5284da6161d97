#pragma once

#include "ui/screens/RowModel.h"
#include "ui/screens/Screen.h"

#include <QtQml/qqml.h>

#include <chrono>

namespace palomet {

/// Past conversations, one line each, in the backend's order.
class HistoryRows final : public RowModel<ConversationSummary> {
    Q_OBJECT

public:
    enum Role { Day = Qt::UserRole, Question, Detail };

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

/// What the history pane shows. It sends nothing.
class HistoryScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(QAbstractItemModel *rows READ rows CONSTANT FINAL)

public:
    explicit HistoryScreen(PalometModel &model);

    [[nodiscard]] QAbstractItemModel *rows() { return &m_rows; }

protected:
    void updateAll() override;

private:
    void updateDay();

    HistoryRows m_rows;
    std::chrono::milliseconds m_offset{0};
    std::chrono::sys_days m_today;
};

} // namespace palomet
