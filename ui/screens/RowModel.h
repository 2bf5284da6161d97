#pragma once

#include "ui/screens/RowChange.h"

#include <QAbstractListModel>

#include <ranges>
#include <vector>

namespace palomet {

/// A list of values as views take it. `assign` announces only what changed, so that a view keeps its place and touches
/// only the rows that are others now. Rows need no identity of their own: two may be alike. Main thread only.
template <typename Row>
class RowModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

    [[nodiscard]] const std::vector<Row> &rows() const { return m_rows; }

    void assign(std::vector<Row> rows) {
        const auto changes = RowChange::between(m_rows, rows);
        // From the end, so that the places before it hold.
        for (const auto &change : std::views::reverse(changes))
            apply(change, rows);
    }

    /// What is derived from the rows and something else became another.
    void touch(const QList<int> &roles) {
        if (!m_rows.empty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1), roles);
    }

protected:
    [[nodiscard]] const Row &row(const QModelIndex &index) const {
        return m_rows.at(static_cast<std::size_t>(index.row()));
    }

private:
    void apply(const RowChange &change, std::vector<Row> &rows) {
        const auto changed = change.changed();
        const auto first = static_cast<int>(change.before);
        const auto end = static_cast<int>(change.before + changed);
        const auto source = rows.begin() + change.after;
        if (changed > 0) {
            std::move(source, source + changed, m_rows.begin() + first);
            Q_EMIT dataChanged(index(first), index(end - 1));
        }
        if (change.removed > changed) {
            beginRemoveRows({}, end, static_cast<int>(change.before + change.removed) - 1);
            m_rows.erase(m_rows.begin() + end, m_rows.begin() + change.before + change.removed);
            endRemoveRows();
        }
        if (change.inserted > changed) {
            beginInsertRows({}, end, static_cast<int>(change.before + change.inserted) - 1);
            m_rows.insert(m_rows.begin() + end, std::make_move_iterator(source + changed),
                          std::make_move_iterator(source + change.inserted));
            endInsertRows();
        }
    }

    std::vector<Row> m_rows;
};

} // namespace palomet
