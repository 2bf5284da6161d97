#pragma once

#include <QtGlobal>

#include <algorithm>
#include <vector>

namespace palomet {

/// One difference between two versions of a list: `removed` rows from `before` on, in the old list, are replaced by
/// `inserted` rows from `after` on, in the new one.
struct RowChange {
    qsizetype before = 0;
    qsizetype after = 0;
    qsizetype removed = 0;
    qsizetype inserted = 0;

    /// How many of them count as the same rows with other contents.
    [[nodiscard]] qsizetype changed() const { return std::min(removed, inserted); }

    /// All differences, from the beginning of the lists to their end. Rows are compared as a whole, because two may
    /// have the same identity. Where the lists part, the search looks a few rows ahead for the nearest place at which
    /// they agree again. After many such places, or where there is none, the rest is compared row by row. So the time
    /// grows with the length of the lists and never with its square.
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
        // Whether row i of the old list equals row j of the new one.
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
