#pragma once

#include <QtGlobal>

#include <algorithm>
#include <vector>

namespace palomet {

/// What became of a list of rows between one document and the next: after `kept` rows that are the same, `removed` rows
/// went and `inserted` came in their place, and the rest is the same again.
struct RowChange {
    qsizetype kept = 0;
    qsizetype removed = 0;
    qsizetype inserted = 0;

    /// Rows at the same place of the part that changed: they have other contents rather than being other rows.
    [[nodiscard]] qsizetype changed() const { return std::min(removed, inserted); }

    template <typename Row>
    static RowChange between(const std::vector<Row> &before, const std::vector<Row> &after) {
        const auto [unlikeBefore, unlikeAfter] =
            std::mismatch(before.begin(), before.end(), after.begin(), after.end());
        const auto [endBefore, endAfter] =
            std::mismatch(before.rbegin(), std::make_reverse_iterator(unlikeBefore), after.rbegin(),
                          std::make_reverse_iterator(unlikeAfter));
        return {.kept = unlikeBefore - before.begin(),
                .removed = endBefore.base() - unlikeBefore,
                .inserted = endAfter.base() - unlikeAfter};
    }

    bool operator==(const RowChange &) const = default;
};

} // namespace palomet
