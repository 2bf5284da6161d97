#include "tests/model/FormatTest.h"

#include <QLocale>

#include <cmath>

using namespace palomet;
using namespace palomet::test;

namespace {

using FormatNumber = FormatTest;
using FormatSeconds = FormatTest;
using FormatMoney = FormatTest;
using FormatSpeed = FormatTest;
using FormatModel = FormatTest;
using FormatDevice = FormatTest;
using FormatText = FormatTest;

} // namespace

TEST_F(FormatNumber, HasTheSeparatorsOfItsRegion) {
    const auto written = [](const QString &locale) {
        load(locale);
        return format::number(1'234'567.891, {2, 2});
    };
    EXPECT_EQ(written(u"en-US"_s), u"1,234,567.89"_s);
    EXPECT_EQ(written(u"pt-BR"_s), u"1.234.567,89"_s);
    EXPECT_EQ(written(u"de-DE"_s), u"1.234.567,89"_s);
    EXPECT_EQ(written(u"hi-IN"_s), u"12,34,567.89"_s);
    EXPECT_EQ(written(u"ar-EG"_s), u"١٬٢٣٤٬٥٦٧٫٨٩"_s);
}

TEST_F(FormatNumber, HasAtLeastAndAtMostSoManyDecimals) {
    EXPECT_EQ(format::number(2, {0, 2}), u"2"_s);
    EXPECT_EQ(format::number(2, {2, 2}), u"2.00"_s);
    EXPECT_EQ(format::number(2.5, {0, 2}), u"2.5"_s);
    EXPECT_EQ(format::number(2.5, {2, 3}), u"2.50"_s);
    EXPECT_EQ(format::number(2.7182, {2, 3}), u"2.718"_s);
    EXPECT_EQ(format::number(2.7182, {0, 0}), u"3"_s);
}

TEST_F(FormatNumber, RoundsHalvesToTheEvenDigit) {
    EXPECT_EQ(format::number(0.5, {0, 0}), u"0"_s);
    EXPECT_EQ(format::number(1.5, {0, 0}), u"2"_s);
    EXPECT_EQ(format::number(2.5, {0, 0}), u"2"_s);
    EXPECT_EQ(format::number(0.125, {2, 2}), u"0.12"_s);
    EXPECT_EQ(format::number(0.135, {2, 2}), u"0.14"_s);
    EXPECT_EQ(format::number(-2.5, {0, 0}), u"-2"_s);
}

TEST_F(FormatNumber, IsWrittenWhateverItIs) {
    EXPECT_EQ(format::number(infinity, {1, 1}), u"∞"_s);
    EXPECT_EQ(format::number(-infinity, {1, 1}), u"-∞"_s);
    EXPECT_EQ(format::number(notANumber, {1, 1}), u"NaN"_s);
    EXPECT_EQ(format::number(largest, {0, 0}).size(), 309 + 102);
    EXPECT_EQ(format::number(std::numeric_limits<double>::denorm_min(), {0, 2}), u"0"_s);
}

TEST_F(FormatNumber, IsWrittenPlainlyWhenNoFormatterCanWriteIt) {
    EXPECT_EQ(format::number(2.5, {2, 1}), u"2.5"_s);
    EXPECT_EQ(format::number(2.5, {-1, 1}), u"2.5"_s);
    EXPECT_EQ(format::number(2.5, {0, 100'000}), u"2.5"_s);
}

TEST_F(FormatSeconds, HaveOneDecimalBelowTen) {
    EXPECT_EQ(format::seconds(2500), u"2.5 s"_s);
    EXPECT_EQ(format::seconds(450), u"0.4 s"_s);
    EXPECT_EQ(format::seconds(9949), u"9.9 s"_s);
    EXPECT_EQ(format::seconds(9950), u"10.0 s"_s);
    EXPECT_EQ(format::seconds(9999), u"10.0 s"_s);
    EXPECT_EQ(format::seconds(-12'500), u"-12.5 s"_s);
}

TEST_F(FormatSeconds, AreWholeFromTenOn) {
    EXPECT_EQ(format::seconds(10'000), u"10 s"_s);
    EXPECT_EQ(format::seconds(12'400), u"12 s"_s);
    EXPECT_EQ(format::seconds(12'499), u"12 s"_s);
    EXPECT_EQ(format::seconds(12'500), u"13 s"_s);
    EXPECT_EQ(format::seconds(13'500), u"14 s"_s);
}

TEST_F(FormatSeconds, AreWholeWhenNothingIsLeftOver) {
    EXPECT_EQ(format::seconds(3000), u"3 s"_s);
    EXPECT_EQ(format::seconds(0), u"0 s"_s);
    EXPECT_EQ(format::seconds(-0.0), u"0 s"_s);
    EXPECT_EQ(format::seconds(-3000), u"-3 s"_s);
}

TEST_F(FormatSeconds, AreGroupedOnlyWithADecimal) {
    EXPECT_EQ(format::seconds(1'234'567'890), u"1234568 s"_s);
    EXPECT_EQ(format::seconds(-1'234'500.5 * 1000), u"-1,234,500.5 s"_s);
}

TEST_F(FormatSeconds, HaveTheDecimalSeparatorOfTheirRegion) {
    const auto written = [](const QString &locale) {
        load(locale);
        return format::seconds(2500) + u" | "_s + format::seconds(12'500);
    };
    EXPECT_EQ(written(u"en-US"_s), u"2.5 s | 13 s"_s);
    EXPECT_EQ(written(u"pt-BR"_s), u"2,5 s | 13 s"_s);
    EXPECT_EQ(written(u"de-DE"_s), u"2,5 s | 13 s"_s);
    EXPECT_EQ(written(u"hi-IN"_s), u"2.5 s | 13 s"_s);
    EXPECT_EQ(written(u"ar-EG"_s), u"٢٫٥ s | 13 s"_s);
}

TEST_F(FormatSeconds, AreWrittenHoweverManyThereAre) {
    EXPECT_EQ(format::seconds(infinity), u"∞ s"_s);
    EXPECT_EQ(format::seconds(-infinity), u"-∞ s"_s);
    EXPECT_EQ(format::seconds(notANumber), u"NaN s"_s);
    EXPECT_EQ(format::seconds(largest).size(), 306 + 2);
}

TEST_F(FormatMoney, HasTwoDecimals) {
    EXPECT_EQ(format::usd(0.0), u"US$ 0.00"_s);
    EXPECT_EQ(format::usd(1.5), u"US$ 1.50"_s);
    EXPECT_EQ(format::usd(0.01), u"US$ 0.01"_s);
    EXPECT_EQ(format::usd(0.015), u"US$ 0.02"_s);
    EXPECT_EQ(format::usd(-0.005), u"US$ -0.00"_s);
    EXPECT_EQ(format::usd(1'234'567.891), u"US$ 1,234,567.89"_s);
}

TEST_F(FormatMoney, HasAThirdDecimalBelowOneCent) {
    EXPECT_EQ(format::usd(0.004), u"US$ 0.004"_s);
    EXPECT_EQ(format::usd(0.009), u"US$ 0.009"_s);
    EXPECT_EQ(format::usd(0.00999), u"US$ 0.01"_s);
    EXPECT_EQ(format::usd(0.0004), u"US$ 0.00"_s);
}

TEST_F(FormatMoney, IsWrittenAsItsRegionDoes) {
    const auto written = [](const QString &locale) {
        load(locale);
        return format::usd(1'234'567.891);
    };
    EXPECT_EQ(written(u"pt-BR"_s), u"US$ 1.234.567,89"_s);
    EXPECT_EQ(written(u"de-DE"_s), u"US$ 1.234.567,89"_s);
    EXPECT_EQ(written(u"hi-IN"_s), u"US$ 12,34,567.89"_s);
    EXPECT_EQ(written(u"ar-EG"_s), u"US$ ١٬٢٣٤٬٥٦٧٫٨٩"_s);
}

TEST_F(FormatMoney, IsWrittenWhateverItIs) {
    EXPECT_EQ(format::usd(infinity), u"US$ ∞"_s);
    EXPECT_EQ(format::usd(notANumber), u"US$ NaN"_s);
}

TEST_F(FormatSpeed, HasUpToTwoDecimalsAndATimesSign) {
    EXPECT_EQ(format::speed(1), u"1×"_s);
    EXPECT_EQ(format::speed(1.25), u"1.25×"_s);
    EXPECT_EQ(format::speed(1.333), u"1.33×"_s);
    load(u"pt-BR"_s);
    EXPECT_EQ(format::speed(1.25), u"1,25×"_s);
}

TEST_F(FormatModel, IsReadableByItsId) {
    EXPECT_EQ(format::model(u"claude-sonnet-4-5"_s), u"Sonnet 4.5"_s);
    EXPECT_EQ(format::model(u"claude-haiku-5-5"_s), u"Haiku 5.5"_s);
    EXPECT_EQ(format::model(u"claude-OPUS"_s), u"Opus"_s);
    EXPECT_EQ(format::model(u"local"_s), u"Local"_s);
    EXPECT_EQ(format::model(u"éTUDE-1"_s), u"Étude 1"_s);
    EXPECT_EQ(format::model(u"𐐨𐐀-1"_s), u"𐐀𐐨 1"_s);
}

TEST_F(FormatModel, LosesThePrefixWhereverItStandsAndEmptyPieces) {
    EXPECT_EQ(format::model(u"my-claude-sonnet--4-"_s), u"My sonnet.4"_s);
    EXPECT_EQ(format::model(u"claude-claude-sonnet"_s), u"Sonnet"_s);
    EXPECT_EQ(format::model(u"claclaude-ude-x"_s), u"Claude x"_s);
    EXPECT_EQ(format::model(u"Claude-x"_s), u"Claude x"_s);
}

TEST_F(FormatModel, IsEmptyWhenNothingIsLeft) {
    EXPECT_EQ(format::model({}), QString());
    EXPECT_EQ(format::model(u"claude-"_s), QString());
    EXPECT_EQ(format::model(u"---"_s), QString());
}

TEST_F(FormatDevice, LosesTheWordsForAMicrophone) {
    EXPECT_EQ(format::device(u"Microfone do MacBook Pro"_s), u"MacBook Pro"_s);
    EXPECT_EQ(format::device(u"Microfone (USB Audio)"_s), u"USB Audio"_s);
    EXPECT_EQ(format::device(u"Microphone (USB Audio)"_s), u"USB Audio"_s);
    EXPECT_EQ(format::device(u"MacBook Pro Microphone"_s), u"MacBook Pro"_s);
    EXPECT_EQ(format::device(u"Headset (2) Microphone)"_s), u"Headset (2"_s);
}

TEST_F(FormatDevice, KeepsEveryOtherForm) {
    EXPECT_EQ(format::device(u"Microphone"_s), u"Microphone"_s);
    EXPECT_EQ(format::device(u" Microphone"_s), u" Microphone"_s);
    EXPECT_EQ(format::device(u"x Microphone"_s), u"x"_s);
    EXPECT_EQ(format::device(u"USB microphone"_s), u"USB microphone"_s);
    EXPECT_EQ(format::device(u"microfone do Mac"_s), u"microfone do Mac"_s);
    EXPECT_EQ(format::device({}), QString());
}

TEST_F(FormatText, FoldsATextOfSeveralLinesIntoOne) {
    EXPECT_EQ(format::oneLine(u" one\n two\r\n\tthree\u2028four \n"_s), u"one two three four"_s);
    EXPECT_EQ(format::oneLine(u"one"_s), u"one"_s);
    EXPECT_EQ(format::oneLine(u" \n "_s), QString());
}
