#include "model/Snapshot.h"

#include "model/ConversationSummary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

QString entryId(double at) {
    return Snapshot::DraftEntry{.at = at, .text = {}}.id();
}

} // namespace

TEST(Snapshot, ARowIsKeyedByItsTimeAndRole) {
    EXPECT_EQ((Snapshot::Row{u"user"_s, {}, 5.0, {}, {}}.id()), u"5.0-user"_s);
    EXPECT_EQ((Snapshot::Row{u"user"_s, {}, 1731700000123, {}, {}}.id()), u"1731700000123.0-user"_s);
}

TEST(Snapshot, AnUtteranceIsKeyedByItsTimeAndText) {
    EXPECT_EQ((Snapshot::Heard{1731700000123.25, u"olá - oi"_s, {}, {}}.id()), u"1731700000123.25-olá - oi"_s);
}

TEST(Snapshot, TwoDraftEntriesOfOneInstantShareTheirKey) {
    const Snapshot::DraftEntry first{7.5, u"a"_s};
    const Snapshot::DraftEntry second{7.5, u"b"_s};
    EXPECT_EQ(first.id(), second.id());
    EXPECT_EQ(first.id(), u"7.5"_s);
    EXPECT_NE(first, second);
}

TEST(Snapshot, AConversationIsKeyedByItsId) {
    EXPECT_EQ((ConversationSummary{u"c-1"_s, 1, {}, 2, 3}.id()), u"c-1"_s);
}

TEST(Snapshot, ATimeInAKeyAlwaysHasAPointOrAnExponent) {
    EXPECT_EQ(entryId(0), u"0.0"_s);
    EXPECT_EQ(entryId(-0.0), u"-0.0"_s);
    EXPECT_EQ(entryId(100000), u"100000.0"_s);
    EXPECT_EQ(entryId(0.0001), u"0.0001"_s);
    EXPECT_EQ(entryId(0.00001), u"1e-05"_s);
    EXPECT_EQ(entryId(9007199254740993), u"9007199254740992.0"_s);
    EXPECT_EQ(entryId(1e16), u"10000000000000000.0"_s);
    EXPECT_EQ(entryId(1e300), u"1e+300"_s);
    EXPECT_EQ(entryId(-5e-324), u"-5e-324"_s);
    EXPECT_EQ(entryId(0.1), u"0.1"_s);
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
    const std::vector<Snapshot::Row> rows{{u"user"_s, u"a"_s, 1, {}, true}};
    auto changed = rows;
    EXPECT_EQ(rows, changed);
    changed.front().isOpen.reset();
    EXPECT_NE(rows, changed);
}
