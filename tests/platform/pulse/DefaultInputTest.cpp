#include "platform/pulse/DefaultInput.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

DefaultInput serverWith(const QString &id) {
    DefaultInput input;
    EXPECT_TRUE(input.serverNames(id));
    return input;
}

} // namespace

TEST(DefaultInput, FollowsTheServer) {
    DefaultInput input;
    EXPECT_EQ(input.current(), std::nullopt);
    EXPECT_TRUE(input.serverNames(u"a"_s));
    EXPECT_EQ(input.current(), u"a"_s);
    EXPECT_FALSE(input.serverNames(u"a"_s));
    EXPECT_TRUE(input.serverNames(std::nullopt));
    EXPECT_EQ(input.current(), std::nullopt);
}

TEST(DefaultInput, IsOursAtOnceAndNoNewsWhenTheServerConfirmsIt) {
    auto input = serverWith(u"a"_s);
    input.expect(u"b"_s);
    EXPECT_EQ(input.current(), u"b"_s);
    EXPECT_FALSE(input.serverNames(u"a"_s));
    EXPECT_EQ(input.current(), u"b"_s);
    EXPECT_FALSE(input.serverNames(u"b"_s));
    EXPECT_FALSE(input.settle());
    EXPECT_EQ(input.current(), u"b"_s);
}

TEST(DefaultInput, GoesBackWithoutNewsWhenTheServerRefuses) {
    auto input = serverWith(u"a"_s);
    input.expect(u"b"_s);
    EXPECT_FALSE(input.serverNames(u"a"_s));
    EXPECT_FALSE(input.settle());
    EXPECT_EQ(input.current(), u"a"_s);
}

TEST(DefaultInput, IsNewsWhenItBecomesWhatNobodyHereAskedFor) {
    auto input = serverWith(u"a"_s);
    input.expect(u"b"_s);
    EXPECT_TRUE(input.serverNames(u"c"_s));
    EXPECT_EQ(input.current(), u"c"_s);
    EXPECT_EQ(input.expected(), std::nullopt);
    EXPECT_FALSE(input.settle());
}

TEST(DefaultInput, IsNewsInTheEndWhenSomeoneSetsOursBack) {
    auto input = serverWith(u"a"_s);
    input.expect(u"b"_s);
    EXPECT_FALSE(input.serverNames(u"b"_s));
    EXPECT_FALSE(input.serverNames(u"a"_s));
    EXPECT_EQ(input.current(), u"b"_s);
    EXPECT_TRUE(input.settle());
    EXPECT_EQ(input.current(), u"a"_s);
}

TEST(DefaultInput, TakesTheWayOverOurEarlierWishesForNoNews) {
    auto input = serverWith(u"a"_s);
    input.expect(u"b"_s);
    input.expect(u"a"_s);
    EXPECT_FALSE(input.serverNames(u"b"_s));
    EXPECT_EQ(input.current(), u"a"_s);
    EXPECT_FALSE(input.serverNames(u"a"_s));
    EXPECT_FALSE(input.settle());
    EXPECT_EQ(input.current(), u"a"_s);
}

TEST(DefaultInput, HearsOfChangesAgainOnceItHasSettled) {
    auto input = serverWith(u"a"_s);
    input.expect(u"b"_s);
    EXPECT_FALSE(input.serverNames(u"b"_s));
    EXPECT_FALSE(input.settle());
    EXPECT_TRUE(input.serverNames(u"a"_s));
}
