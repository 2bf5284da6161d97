#include "ui/screens/ConversationRows.h"

#include <gtest/gtest.h>

using namespace palomet;

namespace {

QVariant shown(const QAbstractItemModel &model, int row, int role) {
    return model.index(row, 0).data(role);
}

Snapshot heard(std::initializer_list<Snapshot::Heard> entries) {
    Snapshot snapshot;
    snapshot.heard = entries;
    return snapshot;
}

std::shared_ptr<const Snapshot> turns(std::vector<Snapshot::Row> rows) {
    Snapshot snapshot;
    snapshot.conversation.rows = std::move(rows);
    return std::make_shared<const Snapshot>(std::move(snapshot));
}

constexpr double now = 1'800'000'000'000;

} // namespace

TEST(HeardRows, ShowWhatIsLessThanTwoMinutesOld) {
    const auto snapshot = heard({{.at = now - 120'000, .text = QStringLiteral("exactly"), .action = {}, .reason = {}},
                                 {.at = now - 119'999, .text = QStringLiteral("just"), .action = {}, .reason = {}},
                                 {.at = now, .text = QStringLiteral("now"), .action = {}, .reason = {}},
                                 {.at = now + 5'000, .text = QStringLiteral("ahead"), .action = {}, .reason = {}}});
    HeardRows rows;
    rows.show(&snapshot, now);
    ASSERT_EQ(rows.rowCount(), 3);
    EXPECT_EQ(shown(rows, 0, HeardRows::Words), QStringLiteral("just"));
    EXPECT_EQ(shown(rows, 1, HeardRows::Words), QStringLiteral("now"));
    EXPECT_EQ(shown(rows, 2, HeardRows::Words), QStringLiteral("ahead"));
}

TEST(HeardRows, StayInTheBackendsOrder) {
    const auto snapshot = heard({{.at = now - 1, .text = QStringLiteral("newer"), .action = {}, .reason = {}},
                                 {.at = now - 2, .text = QStringLiteral("older"), .action = {}, .reason = {}}});
    HeardRows rows;
    rows.show(&snapshot, now);
    EXPECT_EQ(shown(rows, 0, HeardRows::Words), QStringLiteral("newer"));
    EXPECT_EQ(shown(rows, 1, HeardRows::Words), QStringLiteral("older"));
}

TEST(HeardRows, SayAnActionInWordsAndOneThatHasNoneAsItsCode) {
    EXPECT_EQ(HeardRows::action(QStringLiteral("accepted")), QStringLiteral("Accepted"));
    EXPECT_EQ(HeardRows::action(QStringLiteral("ignored")), QStringLiteral("Ignored"));
    EXPECT_EQ(HeardRows::action(QStringLiteral("foo")), QStringLiteral("foo"));
    EXPECT_EQ(HeardRows::action(QString()), QString());
}

TEST(HeardRows, ShowTheReasonWhenThereIsOneAndOnlyWhatWasAcceptedInInk) {
    const auto snapshot =
        heard({{.at = now, .text = {}, .action = QStringLiteral("accepted"), .reason = {}},
               {.at = now, .text = {}, .action = QStringLiteral("ignored"), .reason = QStringLiteral("quiet")}});
    HeardRows rows;
    rows.show(&snapshot, now);
    EXPECT_EQ(shown(rows, 0, HeardRows::IsAccepted), true);
    EXPECT_EQ(shown(rows, 0, HeardRows::Reason), QString());
    EXPECT_EQ(shown(rows, 1, HeardRows::IsAccepted), false);
    EXPECT_EQ(shown(rows, 1, HeardRows::Reason), QStringLiteral("quiet"));
    EXPECT_EQ(shown(rows, 1, HeardRows::Clock), QStringLiteral("08:00"));
}

TEST(HeardRows, AreNoneWithoutASnapshotOrWithoutTheList) {
    HeardRows rows;
    rows.show(nullptr, now);
    EXPECT_EQ(rows.rowCount(), 0);
    const Snapshot snapshot;
    rows.show(&snapshot, now);
    EXPECT_EQ(rows.rowCount(), 0);
}

TEST(ConversationRows, AreLabelledYouToolAndPalometForEverybodyElse) {
    const auto snapshot =
        turns({{.role = QStringLiteral("user"), .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
               {.role = QStringLiteral("tool"), .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
               {.role = QStringLiteral("assistant"), .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
               {.role = QStringLiteral("User"), .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
               {.role = QString(), .text = {}, .at = 0, .durationMs = {}, .isOpen = {}}});
    ConversationRows rows;
    rows.show(snapshot);
    EXPECT_EQ(shown(rows, 0, ConversationRows::Label), QStringLiteral("You"));
    EXPECT_EQ(shown(rows, 1, ConversationRows::Label), QStringLiteral("Tool"));
    for (int row = 2; row < 5; ++row) {
        EXPECT_EQ(shown(rows, row, ConversationRows::Label), QStringLiteral("Palomet"));
        EXPECT_EQ(shown(rows, row, ConversationRows::Kind), QStringLiteral("agent"));
    }
}

TEST(ConversationRows, PutTheOpenOneLastAndSayThatItRuns) {
    const auto snapshot = turns(
        {{.role = QStringLiteral("assistant"),
          .text = QStringLiteral("live"),
          .at = 0,
          .durationMs = 5'000,
          .isOpen = true},
         {.role = QStringLiteral("user"), .text = QStringLiteral("a"), .at = 0, .durationMs = 2'500, .isOpen = {}},
         {.role = QStringLiteral("tool"), .text = QStringLiteral("b"), .at = 0, .durationMs = {}, .isOpen = false}});
    ConversationRows rows;
    rows.show(snapshot);
    EXPECT_EQ(shown(rows, 0, ConversationRows::Words), QStringLiteral("a"));
    EXPECT_EQ(shown(rows, 0, ConversationRows::Duration), QStringLiteral("2.5 s"));
    EXPECT_EQ(shown(rows, 1, ConversationRows::Duration), QString());
    EXPECT_EQ(shown(rows, 2, ConversationRows::Words), QStringLiteral("live"));
    EXPECT_EQ(shown(rows, 2, ConversationRows::Duration), QStringLiteral("running"));
}

TEST(ConversationRows, ShowTimesOf1970AndOfTheYear3000) {
    const auto snapshot = turns({{.role = {}, .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
                                 {.role = {}, .text = {}, .at = 32'503'680'060'000, .durationMs = {}, .isOpen = {}}});
    ConversationRows rows;
    rows.show(snapshot);
    EXPECT_EQ(shown(rows, 0, ConversationRows::Clock), QStringLiteral("00:00"));
    EXPECT_EQ(shown(rows, 1, ConversationRows::Clock), QStringLiteral("00:01"));
}

TEST(ConversationRows, AreNotCopiedHoweverMany) {
    const auto snapshot = turns(std::vector<Snapshot::Row>(250'000));
    ConversationRows rows;
    rows.show(snapshot);
    EXPECT_EQ(&rows.rows(), &snapshot->conversation.rows);
}

TEST(DraftRows, ShowEveryEntryAlsoThoseOfTheSameTime) {
    Snapshot snapshot;
    snapshot.draft = {{.at = now, .text = QStringLiteral("one")}, {.at = now, .text = QStringLiteral("two")}};
    DraftRows rows;
    rows.show(&snapshot);
    ASSERT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(shown(rows, 0, DraftRows::Words), QStringLiteral("one"));
    EXPECT_EQ(shown(rows, 1, DraftRows::Words), QStringLiteral("two"));
    EXPECT_EQ(shown(rows, 1, DraftRows::Clock), QStringLiteral("08:00"));
    rows.show(nullptr);
    EXPECT_EQ(rows.rowCount(), 0);
}
