#include "base/JsonNumber.h"

#include <gtest/gtest.h>

#include <string>

using namespace palomet;

TEST(WholeNumber, IsWrittenWithOrWithoutAFractionOfNothing) {
    for (const auto *text : {"500", "500.0", "500.000", "5e2", "5E+2", "0.5e3", "50000e-2"})
        EXPECT_EQ(wholeNumber<qint64>(text), 500) << text;
    for (const auto *text : {"0", "-0", "0.0", "-0.0", "0e7", "1e-400"}) {
        EXPECT_EQ(wholeNumber<qint64>(text), 0) << text;
        EXPECT_EQ(wholeNumber<quint64>(text), 0U) << text;
    }
    EXPECT_EQ(wholeNumber<qint64>("-7"), -7);
    EXPECT_EQ(wholeNumber<qint64>("-7.0"), -7);
}

TEST(WholeNumber, HasNoFraction) {
    for (const auto *text : {"5.5", "0.1", "1e-1", "-0.5", "2251799813685248.5"})
        EXPECT_EQ(wholeNumber<qint64>(text), std::nullopt) << text;
}

TEST(WholeNumber, IsWithinItsType) {
    EXPECT_EQ(wholeNumber<qint64>("9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(wholeNumber<qint64>("-9223372036854775808"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(wholeNumber<qint64>("-9223372036854775808.0"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(wholeNumber<quint64>("18446744073709551615"), std::numeric_limits<quint64>::max());
    EXPECT_EQ(wholeNumber<quint64>("18446744073709549568.0"), 18446744073709549568U);
    EXPECT_EQ(wholeNumber<quint32>("4294967295"), 0xFFFF'FFFFU);
    EXPECT_EQ(wholeNumber<quint32>("4294967295.0"), 0xFFFF'FFFFU);
    for (const auto *text : {"9223372036854775808", "9223372036854775808.0", "9223372036854775807.0", "1e19", "1e400",
                             "-9223372036854775809", "-1e19", "123456789012345678901234567890"})
        EXPECT_EQ(wholeNumber<qint64>(text), std::nullopt) << text;
    for (const auto *text : {"-1", "-1.0", "18446744073709551616", "18446744073709551616.0", "18446744073709551615.0"})
        EXPECT_EQ(wholeNumber<quint64>(text), std::nullopt) << text;
    for (const auto *text : {"4294967296", "4294967296.0", "-1"})
        EXPECT_EQ(wholeNumber<quint32>(text), std::nullopt) << text;
}

TEST(WholeNumber, IsReadAsItIsWrittenWhereADoubleWouldRoundIt) {
    EXPECT_EQ(wholeNumber<qint64>("9007199254740993"), 9007199254740993);
    EXPECT_EQ(wholeNumber<quint64>("18446744073709551613"), 18446744073709551613U);
}

TEST(WholeNumber, IsANumberToJson) {
    for (const auto *text :
         {"", "-", "+1", "01", "1.", ".5", "1e", "0x1", "true", "null", "\"5\"", "[", " 1", "1 ", "1,"})
        EXPECT_EQ(wholeNumber<qint64>(text), std::nullopt) << text;
}

TEST(JsonNumber, EndsWithItsTextThoughMoreDigitsFollowInTheDocument) {
    constexpr std::string_view document = "1.25e31";
    EXPECT_EQ(jsonNumber(document.substr(0, 1)), 1);
    EXPECT_EQ(jsonNumber(document.substr(0, 3)), 1.2);
    EXPECT_EQ(jsonNumber(document.substr(0, 6)), 1250);

    const auto small = "0." + std::string(800, '0') + "1e400000";
    EXPECT_EQ(jsonNumber(std::string_view(small).substr(0, small.size() - 4)), 0);
    EXPECT_EQ(jsonNumber(small), std::nullopt);
}
