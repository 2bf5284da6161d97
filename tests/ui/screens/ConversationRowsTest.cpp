#include "ui/screens/ConversationRows.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

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
    const auto snapshot = heard({{.at = now - 120'000, .text = u"exactly"_s, .action = {}, .reason = {}},
                                 {.at = now - 119'999, .text = u"just"_s, .action = {}, .reason = {}},
                                 {.at = now, .text = u"now"_s, .action = {}, .reason = {}},
                                 {.at = now + 5'000, .text = u"ahead"_s, .action = {}, .reason = {}}});
    HeardRows rows;
    rows.show(&snapshot, now);
    ASSERT_EQ(rows.rowCount(), 3);
    EXPECT_EQ(shown(rows, 0, HeardRows::Words), u"just"_s);
    EXPECT_EQ(shown(rows, 1, HeardRows::Words), u"now"_s);
    EXPECT_EQ(shown(rows, 2, HeardRows::Words), u"ahead"_s);
}

TEST(HeardRows, StayInTheBackendsOrder) {
    const auto snapshot = heard({{.at = now - 1, .text = u"newer"_s, .action = {}, .reason = {}},
                                 {.at = now - 2, .text = u"older"_s, .action = {}, .reason = {}}});
    HeardRows rows;
    rows.show(&snapshot, now);
    EXPECT_EQ(shown(rows, 0, HeardRows::Words), u"newer"_s);
    EXPECT_EQ(shown(rows, 1, HeardRows::Words), u"older"_s);
}

TEST(HeardRows, SayAnActionInWordsAndOneThatHasNoneAsItsCode) {
    EXPECT_EQ(HeardRows::action(u"accepted"_s), u"Accepted"_s);
    EXPECT_EQ(HeardRows::action(u"ignored"_s), u"Ignored"_s);
    EXPECT_EQ(HeardRows::action(u"foo"_s), u"foo"_s);
    EXPECT_EQ(HeardRows::action(QString()), QString());
}

TEST(HeardRows, ShowTheReasonWhenThereIsOneAndOnlyWhatWasAcceptedInInk) {
    const auto snapshot = heard({{.at = now, .text = {}, .action = u"accepted"_s, .reason = {}},
                                 {.at = now, .text = {}, .action = u"ignored"_s, .reason = u"quiet"_s}});
    HeardRows rows;
    rows.show(&snapshot, now);
    EXPECT_EQ(shown(rows, 0, HeardRows::IsAccepted), true);
    EXPECT_EQ(shown(rows, 0, HeardRows::Reason), QString());
    EXPECT_EQ(shown(rows, 1, HeardRows::IsAccepted), false);
    EXPECT_EQ(shown(rows, 1, HeardRows::Reason), u"quiet"_s);
    EXPECT_EQ(shown(rows, 1, HeardRows::Clock), u"08:00"_s);
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
    const auto snapshot = turns({{.role = u"user"_s, .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
                                 {.role = u"tool"_s, .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
                                 {.role = u"assistant"_s, .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
                                 {.role = u"User"_s, .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
                                 {.role = QString(), .text = {}, .at = 0, .durationMs = {}, .isOpen = {}}});
    ConversationRows rows;
    rows.show(snapshot);
    EXPECT_EQ(shown(rows, 0, ConversationRows::Label), u"You"_s);
    EXPECT_EQ(shown(rows, 1, ConversationRows::Label), u"Tool"_s);
    for (int row = 2; row < 5; ++row) {
        EXPECT_EQ(shown(rows, row, ConversationRows::Label), u"Palomet"_s);
        EXPECT_EQ(shown(rows, row, ConversationRows::Kind), u"agent"_s);
    }
}

TEST(ConversationRows, PutTheOpenOneLastAndSayThatItRuns) {
    const auto snapshot =
        turns({{.role = u"assistant"_s, .text = u"live"_s, .at = 0, .durationMs = 5'000, .isOpen = true},
               {.role = u"user"_s, .text = u"a"_s, .at = 0, .durationMs = 2'500, .isOpen = {}},
               {.role = u"tool"_s, .text = u"b"_s, .at = 0, .durationMs = {}, .isOpen = false}});
    ConversationRows rows;
    rows.show(snapshot);
    EXPECT_EQ(shown(rows, 0, ConversationRows::Words), u"a"_s);
    EXPECT_EQ(shown(rows, 0, ConversationRows::Duration), u"2.5 s"_s);
    EXPECT_EQ(shown(rows, 1, ConversationRows::Duration), QString());
    EXPECT_EQ(shown(rows, 2, ConversationRows::Words), u"live"_s);
    EXPECT_EQ(shown(rows, 2, ConversationRows::Duration), u"running"_s);
}

TEST(ConversationRows, ShowTimesOf1970AndOfTheYear3000) {
    const auto snapshot = turns({{.role = {}, .text = {}, .at = 0, .durationMs = {}, .isOpen = {}},
                                 {.role = {}, .text = {}, .at = 32'503'680'060'000, .durationMs = {}, .isOpen = {}}});
    ConversationRows rows;
    rows.show(snapshot);
    EXPECT_EQ(shown(rows, 0, ConversationRows::Clock), u"00:00"_s);
    EXPECT_EQ(shown(rows, 1, ConversationRows::Clock), u"00:01"_s);
}

TEST(ConversationRows, AreNotCopiedHoweverMany) {
    const auto snapshot = turns(std::vector<Snapshot::Row>(250'000));
    ConversationRows rows;
    rows.show(snapshot);
    EXPECT_EQ(&rows.rows(), &snapshot->conversation.rows);
}

TEST(DraftRows, ShowEveryEntryAlsoThoseOfTheSameTime) {
    Snapshot snapshot;
    snapshot.draft = {{.at = now, .text = u"one"_s}, {.at = now, .text = u"two"_s}};
    DraftRows rows;
    rows.show(&snapshot);
    ASSERT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(shown(rows, 0, DraftRows::Words), u"one"_s);
    EXPECT_EQ(shown(rows, 1, DraftRows::Words), u"two"_s);
    EXPECT_EQ(shown(rows, 1, DraftRows::Clock), u"08:00"_s);
    rows.show(nullptr);
    EXPECT_EQ(rows.rowCount(), 0);
}
