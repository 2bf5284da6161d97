#include "model/JsonNumber.h"

#include <gtest/gtest.h>

#include <string>

using namespace palomet;

TEST(JsonNumber, EndsWithItsTextThoughMoreDigitsFollowInTheDocument) {
    constexpr std::string_view document = "1.25e31";
    EXPECT_EQ(jsonNumber(document.substr(0, 1)), 1);
    EXPECT_EQ(jsonNumber(document.substr(0, 3)), 1.2);
    EXPECT_EQ(jsonNumber(document.substr(0, 6)), 1250);

    const auto small = "0." + std::string(800, '0') + "1e400000";
    EXPECT_EQ(jsonNumber(std::string_view(small).substr(0, small.size() - 4)), 0);
    EXPECT_EQ(jsonNumber(small), std::nullopt);
}
