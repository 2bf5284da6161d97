#include "ui/screens/HistoryScreen.h"

#include "tests/ui/support/UiTest.h"

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

namespace {

class HistoryScreenTest : public UiTest {
protected:
    HistoryScreenTest() { screen.setActive(true); }

    [[nodiscard]] QString shown(int row, HistoryRows::Role role) {
        return screen.rows()->index(row, 0).data(role).toString();
    }
    void set(std::vector<ConversationSummary> history) { model().setHistory(std::move(history)); }

    HistoryScreen screen{model()};
};

ConversationSummary summary(qint64 answers, double costUsd, double startedAt = 1'800'000'000'000) {
    return {.conversationId = u"id"_s,
            .startedAt = startedAt,
            .firstQuestion = u"What?"_s,
            .answers = answers,
            .costUsd = costUsd};
}

} // namespace

TEST_F(HistoryScreenTest, ShowsTheConversationsInTheBackendsOrder) {
    auto later = summary(1, 0.03);
    later.firstQuestion = u"Later?"_s;
    set({summary(1, 0.03, 1'700'000'000'000), later});
    ASSERT_EQ(screen.rows()->rowCount(), 2);
    EXPECT_EQ(shown(0, HistoryRows::Question), u"What?"_s);
    EXPECT_EQ(shown(1, HistoryRows::Question), u"Later?"_s);
    EXPECT_EQ(shown(1, HistoryRows::Day), u"Today 08:00"_s);
}

TEST_F(HistoryScreenTest, CountsOneAnswerInTheSingularAndEveryOtherCountInThePlural) {
    set({summary(1, 0.03), summary(0, 1.5), summary(11, 0.004)});
    EXPECT_EQ(shown(0, HistoryRows::Detail), u"1 answer · US$ 0.03"_s);
    EXPECT_EQ(shown(1, HistoryRows::Detail), u"0 answers · US$ 1.50"_s);
    EXPECT_EQ(shown(2, HistoryRows::Detail), u"11 answers · US$ 0.004"_s);
}

TEST_F(HistoryScreenTest, ShowsACostOfNothingAndAGreatOne) {
    set({summary(2, 0), summary(2, 12'345.678)});
    EXPECT_EQ(shown(0, HistoryRows::Detail), u"2 answers · US$ 0.00"_s);
    EXPECT_EQ(shown(1, HistoryRows::Detail), u"2 answers · US$ 12,345.68"_s);
}

TEST_F(HistoryScreenTest, ShowsConversationsThatShareAnId) {
    set({summary(1, 0), summary(2, 0), summary(1, 0)});
    EXPECT_EQ(screen.rows()->rowCount(), 3);
}

TEST_F(HistoryScreenTest, ShowsAQuestionOfSeveralLinesAsOne) {
    auto folded = summary(1, 0);
    folded.firstQuestion = u"What is\n\n  this,\r\nand that?\n"_s;
    set({folded});
    EXPECT_EQ(shown(0, HistoryRows::Question), u"What is this, and that?"_s);
}

TEST_F(HistoryScreenTest, TellsTheHoursOfTheZoneThatATravellerHasComeTo) {
    set({summary(1, 0)});
    int changes = 0;
    QObject::connect(screen.rows(), &QAbstractItemModel::dataChanged, &screen,
                     [&](const auto &, const auto &, const QList<int> &roles) {
                         changes += roles.contains(HistoryRows::Day) ? 1 : 0;
                     });
    model().start();
    scheduler().advance(std::chrono::seconds{1});
    EXPECT_EQ(changes, 0);
    const Journey journey(u"Asia/Kolkata"_s);
    scheduler().advance(std::chrono::seconds{1});
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(shown(0, HistoryRows::Day).endsWith(u"13:30"_s)) << shown(0, HistoryRows::Day).toStdString();
}

TEST_F(HistoryScreenTest, ShowsDaysOf1970AndOfTheYear3000) {
    set({summary(1, 0, 0), summary(1, 0, 32'503'680'000'000)});
    EXPECT_EQ(shown(0, HistoryRows::Day), u"01/01, 00:00"_s);
    EXPECT_EQ(shown(1, HistoryRows::Day), u"01/01, 00:00"_s);
}

TEST_F(HistoryScreenTest, AnnouncesOneConversationMoreAmongTenThousandAsOneRow) {
    std::vector<ConversationSummary> history;
    for (int i = 0; i < 10'000; ++i)
        history.push_back(summary(i, 0));
    set(history);
    std::vector<std::pair<int, int>> inserted;
    int others = 0;
    QObject::connect(screen.rows(), &QAbstractItemModel::rowsInserted, &screen,
                     [&](const QModelIndex &, int first, int last) { inserted.emplace_back(first, last); });
    QObject::connect(screen.rows(), &QAbstractItemModel::dataChanged, &screen, [&] { ++others; });
    QObject::connect(screen.rows(), &QAbstractItemModel::modelReset, &screen, [&] { ++others; });
    history.insert(history.begin(), summary(7, 7));
    set(history);
    EXPECT_EQ(inserted, (std::vector{std::pair{0, 0}}));
    EXPECT_EQ(others, 0);
}

TEST_F(HistoryScreenTest, CostsNothingWhileItCannotBeSeenAndIsUpToDateWhenItCan) {
    screen.setActive(false);
    set({summary(1, 0)});
    EXPECT_EQ(screen.rows()->rowCount(), 0);
    screen.setActive(true);
    EXPECT_EQ(screen.rows()->rowCount(), 1);
}
