#include "ui/screens/RowModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStringList>

#include <gtest/gtest.h>

#include <numeric>
#include <random>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class Numbers final : public RowModel<int> {
public:
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override {
        return role == Qt::DisplayRole ? QVariant(row(index)) : QVariant();
    }
};

/// What a model announces, in words: "changed 2-3", "inserted 4-4", "removed 0-9".
class Announced {
public:
    explicit Announced(const QAbstractItemModel &model) {
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &m_context,
                         [this](auto first, auto last) { note("changed", first.row(), last.row()); });
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &m_context,
                         [this](const QModelIndex &, int first, int last) { note("inserted", first, last); });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &m_context,
                         [this](const QModelIndex &, int first, int last) { note("removed", first, last); });
        QObject::connect(&model, &QAbstractItemModel::modelReset, &m_context, [this] { note("reset", 0, 0); });
    }

    [[nodiscard]] QStringList take() { return std::exchange(m_notes, {}); }

private:
    void note(const char *what, int first, int last) {
        m_notes.append(u"%1 %2-%3"_s.arg(QString::fromUtf8(what)).arg(first).arg(last));
    }

    QObject m_context;
    QStringList m_notes;
};

std::vector<int> many(int count) {
    std::vector<int> rows(static_cast<std::size_t>(count));
    std::iota(rows.begin(), rows.end(), 0);
    return rows;
}

} // namespace

TEST(RowModel, AnnouncesNothingForTheSameRows) {
    Numbers model;
    model.assign(many(10'000));
    Announced announced(model);
    model.assign(many(10'000));
    EXPECT_TRUE(announced.take().isEmpty());
}

TEST(RowModel, AnnouncesOneRowMoreAmongTenThousand) {
    Numbers model;
    model.assign(many(10'000));
    Announced announced(model);
    auto rows = many(10'000);
    rows.push_back(10'000);
    model.assign(rows);
    EXPECT_EQ(announced.take(), QStringList{u"inserted 10000-10000"_s});
    rows.insert(rows.begin(), -1);
    model.assign(rows);
    EXPECT_EQ(announced.take(), QStringList{u"inserted 0-0"_s});
    EXPECT_EQ(model.rows(), rows);
}

TEST(RowModel, AnnouncesEveryRowThatBecameAnotherAndNoneBetweenThem) {
    Numbers model;
    model.assign(many(10'000));
    Announced announced(model);
    auto rows = many(10'000);
    rows[3] = -3;
    rows[4] = -4;
    rows[9'999] = -5;
    model.assign(rows);
    EXPECT_EQ(announced.take(), (QStringList{u"changed 9999-9999"_s, u"changed 3-4"_s}));
    EXPECT_EQ(model.rows(), rows);
}

TEST(RowModel, AnnouncesAWindowThatMovesOnAsOneRowGoneAndOneRowCome) {
    Numbers model;
    model.assign(many(1'000));
    Announced announced(model);
    auto rows = many(1'001);
    rows.erase(rows.begin());
    model.assign(rows);
    EXPECT_EQ(announced.take(), (QStringList{u"inserted 1000-1000"_s, u"removed 0-0"_s}));
    EXPECT_EQ(model.rows(), rows);
}

TEST(RowModel, TellsRowsApartThatAreAlike) {
    Numbers model;
    model.assign({7, 7, 7, 7});
    Announced announced(model);
    model.assign({7, 7, 7});
    EXPECT_EQ(announced.take(), QStringList{u"removed 3-3"_s});
    model.assign({7, 8, 7});
    EXPECT_EQ(announced.take(), QStringList{u"changed 1-1"_s});
    EXPECT_EQ(model.rows(), (std::vector{7, 8, 7}));
}

TEST(RowModel, TakesAListThatIsAnotherAltogether) {
    Numbers model;
    model.assign(many(10'000));
    Announced announced(model);
    std::vector<int> rows(5'000, -1);
    model.assign(rows);
    EXPECT_EQ(announced.take(), (QStringList{u"removed 5000-9999"_s, u"changed 0-4999"_s}));
    EXPECT_EQ(model.rows(), rows);
    model.assign(std::vector<int>());
    EXPECT_EQ(announced.take(), QStringList{u"removed 0-4999"_s});
}

TEST(RowModel, ArrivesAtTheNewListByWhatItAnnounces) {
    Numbers model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    // A view that believes what it is told.
    std::vector<int> believed;
    const auto take = [&](int first, int last) {
        for (int row = first; row <= last; ++row)
            believed[static_cast<std::size_t>(row)] = model.index(row).data().toInt();
    };
    QObject::connect(&model, &QAbstractItemModel::dataChanged, &model,
                     [&](auto first, auto last) { take(first.row(), last.row()); });
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, [&](const QModelIndex &, int first, int last) {
        believed.insert(believed.begin() + first, static_cast<std::size_t>(last - first + 1), 0);
        take(first, last);
    });
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model, [&](const QModelIndex &, int first, int last) {
        believed.erase(believed.begin() + first, believed.begin() + last + 1);
    });
    std::mt19937 random(1);
    std::vector<int> rows = many(200);
    for (int round = 0; round < 300; ++round) {
        for (int edit = static_cast<int>(random() % 5); edit > 0; --edit) {
            const auto at = static_cast<std::ptrdiff_t>(random() % (rows.size() + 1));
            const auto length = static_cast<std::ptrdiff_t>(random() % 40);
            switch (random() % 3) {
            case 0:
                rows.insert(rows.begin() + at, static_cast<std::size_t>(length), static_cast<int>(random() % 4));
                break;
            case 1:
                rows.erase(rows.begin() + at, rows.begin() + std::min(at + length, std::ssize(rows)));
                break;
            default:
                if (at < std::ssize(rows))
                    rows[static_cast<std::size_t>(at)] = static_cast<int>(random());
            }
        }
        model.assign(rows);
        ASSERT_EQ(model.rows(), rows);
        ASSERT_EQ(believed, rows);
    }
}
