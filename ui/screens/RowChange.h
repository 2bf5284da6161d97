#pragma once

#include <QtGlobal>

#include <algorithm>
#include <vector>

namespace palomet {

/// One place where a list of rows differs from what it was in the document before: of the list before, `removed` rows
/// from `before` on went, and of the list after, `inserted` rows from `after` on came in their stead.
struct RowChange {
    qsizetype before = 0;
    qsizetype after = 0;
    qsizetype removed = 0;
    qsizetype inserted = 0;

    /// So many of them stand in the same place: rows with other contents rather than other rows.
    [[nodiscard]] qsizetype changed() const { return std::min(removed, inserted); }

    /// Everything that became of a list, from its beginning to its end. Rows are compared as a whole, for two may have
    /// the same identity. Where the lists part, the nearest place at which they agree again is looked for, a few rows
    /// ahead; after many such places, or when there is none, the rest is compared place by place. So the time grows
    /// with the length of the lists and never with its square.
    template <typename Row>
    static std::vector<RowChange> between(const std::vector<Row> &before, const std::vector<Row> &after) {
        const auto endBefore = static_cast<qsizetype>(before.size());
        const auto endAfter = static_cast<qsizetype>(after.size());
        std::vector<RowChange> changes;
        const auto add = [&](qsizetype i, qsizetype j, qsizetype removed, qsizetype inserted) {
            auto *last = changes.empty() ? nullptr : &changes.back();
            if (last && last->before + last->removed == i && last->after + last->inserted == j) {
                last->removed += removed;
                last->inserted += inserted;
            } else {
                changes.push_back({i, j, removed, inserted});
            }
        };
        // Whether the lists agree after so many rows more.
        const auto agree = [&](qsizetype i, qsizetype j) {
            return i < endBefore && j < endAfter &&
                   before[static_cast<std::size_t>(i)] == after[static_cast<std::size_t>(j)];
        };
        int looks = mostLooks;
        qsizetype i = 0;
        qsizetype j = 0;
        while (i < endBefore || j < endAfter) {
            if (agree(i, j)) {
                ++i;
                ++j;
                continue;
            }
            auto removed = static_cast<qsizetype>(i < endBefore);
            auto inserted = static_cast<qsizetype>(j < endAfter);
            bool isFound = false;
            const auto look = [&](qsizetype gone, qsizetype come) {
                if (isFound || !agree(i + gone, j + come))
                    return;
                isFound = true;
                removed = gone;
                inserted = come;
            };
            for (qsizetype ahead = 1; looks > 0 && ahead <= farthest && !isFound; ++ahead) {
                look(ahead, ahead);
                for (qsizetype less = ahead - 1; less >= 0; --less) {
                    look(ahead, less);
                    look(less, ahead);
                }
            }
            --looks;
            add(i, j, removed, inserted);
            i += removed;
            j += inserted;
        }
        return changes;
    }

    bool operator==(const RowChange &) const = default;

private:
    static constexpr int mostLooks = 64;
    static constexpr qsizetype farthest = 16;
};

} // namespace palomet
