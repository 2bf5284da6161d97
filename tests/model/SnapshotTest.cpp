#include "model/Snapshot.h"

#include "model/ConversationSummary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace palomet;

namespace {

QString entryId(double at) {
    return Snapshot::DraftEntry{.at = at, .text = {}}.id();
}

} // namespace

TEST(Snapshot, ARowIsKeyedByItsTimeAndRole) {
    EXPECT_EQ((Snapshot::Row{QStringLiteral("user"), {}, 5.0, {}, {}}.id()), QStringLiteral("5.0-user"));
    EXPECT_EQ((Snapshot::Row{QStringLiteral("user"), {}, 1731700000123, {}, {}}.id()),
              QStringLiteral("1731700000123.0-user"));
}

TEST(Snapshot, AnUtteranceIsKeyedByItsTimeAndText) {
    EXPECT_EQ((Snapshot::Heard{1731700000123.25, QStringLiteral("olá - oi"), {}, {}}.id()),
              QStringLiteral("1731700000123.25-olá - oi"));
}

TEST(Snapshot, TwoDraftEntriesOfOneInstantShareTheirKey) {
    const Snapshot::DraftEntry first{7.5, QStringLiteral("a")};
    const Snapshot::DraftEntry second{7.5, QStringLiteral("b")};
    EXPECT_EQ(first.id(), second.id());
    EXPECT_EQ(first.id(), QStringLiteral("7.5"));
    EXPECT_NE(first, second);
}

TEST(Snapshot, AConversationIsKeyedByItsId) {
    EXPECT_EQ((ConversationSummary{QStringLiteral("c-1"), 1, {}, 2, 3}.id()), QStringLiteral("c-1"));
}

TEST(Snapshot, ATimeInAKeyAlwaysHasAPointOrAnExponent) {
    EXPECT_EQ(entryId(0), QStringLiteral("0.0"));
    EXPECT_EQ(entryId(-0.0), QStringLiteral("-0.0"));
    EXPECT_EQ(entryId(100000), QStringLiteral("100000.0"));
    EXPECT_EQ(entryId(0.0001), QStringLiteral("0.0001"));
    EXPECT_EQ(entryId(0.00001), QStringLiteral("1e-05"));
    EXPECT_EQ(entryId(9007199254740993), QStringLiteral("9007199254740992.0"));
    EXPECT_EQ(entryId(1e16), QStringLiteral("10000000000000000.0"));
    EXPECT_EQ(entryId(1e300), QStringLiteral("1e+300"));
    EXPECT_EQ(entryId(-5e-324), QStringLiteral("-5e-324"));
    EXPECT_EQ(entryId(0.1), QStringLiteral("0.1"));
}

TEST(Snapshot, ATimeInAKeyReadsBackAsTheSameNumber) {
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> exponent(-300, 300);
    for (int i = 0; i < 10000; ++i) {
        const double at = std::pow(10.0, exponent(random)) * (i % 2 ? 1 : -1);
        EXPECT_EQ(entryId(at).toDouble(), at);
    }
}

TEST(Snapshot, ListsOfItsPartsCanBeCompared) {
    const std::vector<Snapshot::Row> rows{{QStringLiteral("user"), QStringLiteral("a"), 1, {}, true}};
    auto changed = rows;
    EXPECT_EQ(rows, changed);
    changed.front().isOpen.reset();
    EXPECT_NE(rows, changed);
}
