#pragma once

#include "ui/screens/RowChange.h"

#include <QAbstractListModel>

#include <memory>
#include <utility>
#include <vector>

namespace palomet {

/// A list of values as an item model. `assign` announces only the differences, so that a view keeps its place and
/// touches only rows that have changed. Rows need no identity: two may be equal. The list is kept as it is given and
/// never copied, however long it is. Main thread only.
template <typename Row>
class RowModel : public QAbstractListModel {
public:
    using List = std::vector<Row>;

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_kept + rows().size() - m_given);
    }

    [[nodiscard]] const List &rows() const { return *m_rows; }

    /// The list must not change any more.
    void assign(std::shared_ptr<const List> rows) {
        const auto changes = RowChange::between(*m_rows, *rows);
        m_before = std::exchange(m_rows, std::move(rows));
        m_kept = m_before->size();
        m_given = m_rows->size();
        // From the end, so that the indexes before each change stay valid.
        for (auto change = changes.rbegin(); change != changes.rend(); ++change)
            apply(*change);
        m_kept = 0;
        m_given = 0;
        m_before.reset();
    }
    void assign(List rows) { assign(std::make_shared<const List>(std::move(rows))); }

    /// Announces that values have changed that depend on more than the rows.
    void touch(const QList<int> &roles) {
        if (!m_rows->empty())
            Q_EMIT dataChanged(index(0), index(rowCount() - 1), roles);
    }

protected:
    [[nodiscard]] const Row &row(const QModelIndex &index) const {
        const auto at = static_cast<std::size_t>(index.row());
        return at < m_kept ? m_before->at(at) : m_rows->at(m_given + at - m_kept);
    }

private:
    void apply(const RowChange &change) {
        const auto changed = change.changed();
        const auto first = static_cast<int>(change.before);
        const auto end = static_cast<int>(change.before + changed);
        if (change.removed > changed) {
            divide(change.before + change.removed, change.after + change.inserted);
            beginRemoveRows({}, end, static_cast<int>(change.before + change.removed) - 1);
            divide(change.before + changed, change.after + change.inserted);
            endRemoveRows();
        }
        if (change.inserted > changed) {
            divide(change.before + change.removed, change.after + change.inserted);
            beginInsertRows({}, end, static_cast<int>(change.before + change.inserted) - 1);
            divide(change.before + change.removed, change.after + changed);
            endInsertRows();
        }
        if (changed > 0) {
            divide(change.before, change.after);
            Q_EMIT dataChanged(index(first), index(end - 1));
        }
    }

    /// While changes are announced, the model has the first `kept` rows of the old list, then the new list's from
    /// `given` on.
    void divide(qsizetype kept, qsizetype given) {
        m_kept = static_cast<std::size_t>(kept);
        m_given = static_cast<std::size_t>(given);
    }

    std::shared_ptr<const List> m_rows = std::make_shared<const List>();
    std::shared_ptr<const List> m_before; ///< Only while changes are announced.
    std::size_t m_kept = 0;
    std::size_t m_given = 0;
};

} // namespace palomet
