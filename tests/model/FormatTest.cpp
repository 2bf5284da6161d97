#include "model/Format.h"

#include "localization/Localization.h"
#include "tests/support/Processes.h"

#include <QDateTime>
#include <QLocale>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

using namespace palomet;
using namespace Qt::StringLiterals;
using std::chrono::system_clock;
using test::EnvironmentVariable;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();

const QString newYork = u"America/New_York"_s;
const QString saoPaulo = u"America/Sao_Paulo"_s;
const QString berlin = u"Europe/Berlin"_s;
const QString kolkata = u"Asia/Kolkata"_s;
const QString cairo = u"Africa/Cairo"_s;
const QString kiritimati = u"Pacific/Kiritimati"_s;

/// Milliseconds since 1970 of a wall clock.
double at(const char *wallClock, const QString &zone) {
    auto time = QDateTime::fromString(QString::fromLatin1(wallClock), Qt::ISODate);
    time.setTimeZone(QTimeZone(zone.toLatin1()));
    return static_cast<double>(time.toMSecsSinceEpoch());
}

system_clock::time_point instant(double ms) {
    return system_clock::time_point(
        std::chrono::duration_cast<system_clock::duration>(std::chrono::duration<double, std::milli>(ms)));
}

/// A region whose clock stands still.
void load(const QString &locale, const QString &zone = u"UTC"_s, double now = 0) {
    Format::load({.numbers = locale, .dates = locale, .timeZone = zone, .clock = [now] { return instant(now); }});
}

/// A text without the invisible marks of writing from right to left.
QString bare(QString text) {
    return text.remove(u'\u200F').remove(u'\u200E').remove(u'\u061C');
}

class Format_ : public testing::Test {
protected:
    Format_() {
        speak("en");
        load(u"en-US"_s);
    }
    ~Format_() override { Format::load(Format::systemRegion()); }

    static void speak(const char *language) {
        Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {QString::fromLatin1(language)});
    }
};

using FormatNumber = Format_;
using FormatSeconds = Format_;
using FormatMoney = Format_;
using FormatSpeed = Format_;
using FormatClock = Format_;
using FormatDay = Format_;
using FormatSince = Format_;
using FormatModel = Format_;
using FormatDevice = Format_;
using FormatRegion = Format_;

/// Of New York in 2026: an hour is left out in spring, and one comes twice in autumn.
void expectTheChangesOfTheHour() {
    const double spring = at("2026-03-08T06:59:00", u"UTC"_s);
    EXPECT_EQ(Format::clock(spring), u"01:59"_s);
    EXPECT_EQ(Format::clock(spring + 60'000), u"03:00"_s);
    const double autumn = at("2026-11-01T05:59:00", u"UTC"_s);
    EXPECT_EQ(Format::clock(autumn), u"01:59"_s);
    EXPECT_EQ(Format::clock(autumn + 60'000), u"01:00"_s);
    EXPECT_EQ(Format::clock(autumn + 3'660'000), u"02:00"_s);
}

} // namespace

TEST_F(FormatNumber, HasTheSeparatorsOfItsRegion) {
    const auto written = [](const QString &locale) {
        load(locale);
        return Format::number(1'234'567.891, {2, 2});
    };
    EXPECT_EQ(written(u"en-US"_s), u"1,234,567.89"_s);
    EXPECT_EQ(written(u"pt-BR"_s), u"1.234.567,89"_s);
    EXPECT_EQ(written(u"de-DE"_s), u"1.234.567,89"_s);
    EXPECT_EQ(written(u"hi-IN"_s), u"12,34,567.89"_s);
    EXPECT_EQ(written(u"ar-EG"_s), u"١٬٢٣٤٬٥٦٧٫٨٩"_s);
}

TEST_F(FormatNumber, HasAtLeastAndAtMostSoManyDecimals) {
    EXPECT_EQ(Format::number(2, {0, 2}), u"2"_s);
    EXPECT_EQ(Format::number(2, {2, 2}), u"2.00"_s);
    EXPECT_EQ(Format::number(2.5, {0, 2}), u"2.5"_s);
    EXPECT_EQ(Format::number(2.5, {2, 3}), u"2.50"_s);
    EXPECT_EQ(Format::number(2.7182, {2, 3}), u"2.718"_s);
    EXPECT_EQ(Format::number(2.7182, {0, 0}), u"3"_s);
}

TEST_F(FormatNumber, RoundsHalvesToTheEvenDigit) {
    EXPECT_EQ(Format::number(0.5, {0, 0}), u"0"_s);
    EXPECT_EQ(Format::number(1.5, {0, 0}), u"2"_s);
    EXPECT_EQ(Format::number(2.5, {0, 0}), u"2"_s);
    EXPECT_EQ(Format::number(0.125, {2, 2}), u"0.12"_s);
    EXPECT_EQ(Format::number(0.135, {2, 2}), u"0.14"_s);
    EXPECT_EQ(Format::number(-2.5, {0, 0}), u"-2"_s);
}

TEST_F(FormatNumber, IsWrittenWhateverItIs) {
    EXPECT_EQ(Format::number(infinity, {1, 1}), u"∞"_s);
    EXPECT_EQ(Format::number(-infinity, {1, 1}), u"-∞"_s);
    EXPECT_EQ(Format::number(notANumber, {1, 1}), u"NaN"_s);
    EXPECT_EQ(Format::number(largest, {0, 0}).size(), 309 + 102);
    EXPECT_EQ(Format::number(std::numeric_limits<double>::denorm_min(), {0, 2}), u"0"_s);
}

TEST_F(FormatNumber, IsWrittenPlainlyWhenNoFormatterCanWriteIt) {
    EXPECT_EQ(Format::number(2.5, {2, 1}), u"2.5"_s);
    EXPECT_EQ(Format::number(2.5, {-1, 1}), u"2.5"_s);
    EXPECT_EQ(Format::number(2.5, {0, 100'000}), u"2.5"_s);
}

TEST_F(FormatSeconds, HaveOneDecimalBelowTen) {
    EXPECT_EQ(Format::seconds(2500), u"2.5 s"_s);
    EXPECT_EQ(Format::seconds(450), u"0.4 s"_s);
    EXPECT_EQ(Format::seconds(9949), u"9.9 s"_s);
    EXPECT_EQ(Format::seconds(9950), u"10.0 s"_s);
    EXPECT_EQ(Format::seconds(9999), u"10.0 s"_s);
    EXPECT_EQ(Format::seconds(-12'500), u"-12.5 s"_s);
}

TEST_F(FormatSeconds, AreWholeFromTenOn) {
    EXPECT_EQ(Format::seconds(10'000), u"10 s"_s);
    EXPECT_EQ(Format::seconds(12'400), u"12 s"_s);
    EXPECT_EQ(Format::seconds(12'499), u"12 s"_s);
    EXPECT_EQ(Format::seconds(12'500), u"13 s"_s);
    EXPECT_EQ(Format::seconds(13'500), u"14 s"_s);
}

TEST_F(FormatSeconds, AreWholeWhenNothingIsLeftOver) {
    EXPECT_EQ(Format::seconds(3000), u"3 s"_s);
    EXPECT_EQ(Format::seconds(0), u"0 s"_s);
    EXPECT_EQ(Format::seconds(-0.0), u"0 s"_s);
    EXPECT_EQ(Format::seconds(-3000), u"-3 s"_s);
}

TEST_F(FormatSeconds, AreGroupedOnlyWithADecimal) {
    EXPECT_EQ(Format::seconds(1'234'567'890), u"1234568 s"_s);
    EXPECT_EQ(Format::seconds(-1'234'500.5 * 1000), u"-1,234,500.5 s"_s);
}

TEST_F(FormatSeconds, HaveTheDecimalSeparatorOfTheirRegion) {
    const auto written = [](const QString &locale) {
        load(locale);
        return Format::seconds(2500) + u" | "_s + Format::seconds(12'500);
    };
    EXPECT_EQ(written(u"en-US"_s), u"2.5 s | 13 s"_s);
    EXPECT_EQ(written(u"pt-BR"_s), u"2,5 s | 13 s"_s);
    EXPECT_EQ(written(u"de-DE"_s), u"2,5 s | 13 s"_s);
    EXPECT_EQ(written(u"hi-IN"_s), u"2.5 s | 13 s"_s);
    EXPECT_EQ(written(u"ar-EG"_s), u"٢٫٥ s | 13 s"_s);
}

TEST_F(FormatSeconds, AreWrittenHoweverManyThereAre) {
    EXPECT_EQ(Format::seconds(infinity), u"∞ s"_s);
    EXPECT_EQ(Format::seconds(-infinity), u"-∞ s"_s);
    EXPECT_EQ(Format::seconds(notANumber), u"NaN s"_s);
    EXPECT_EQ(Format::seconds(largest).size(), 306 + 2);
}

TEST_F(FormatMoney, HasTwoDecimals) {
    EXPECT_EQ(Format::usd(0.0), u"US$ 0.00"_s);
    EXPECT_EQ(Format::usd(1.5), u"US$ 1.50"_s);
    EXPECT_EQ(Format::usd(0.01), u"US$ 0.01"_s);
    EXPECT_EQ(Format::usd(0.015), u"US$ 0.02"_s);
    EXPECT_EQ(Format::usd(-0.005), u"US$ -0.00"_s);
    EXPECT_EQ(Format::usd(1'234'567.891), u"US$ 1,234,567.89"_s);
}

TEST_F(FormatMoney, HasAThirdDecimalBelowOneCent) {
    EXPECT_EQ(Format::usd(0.004), u"US$ 0.004"_s);
    EXPECT_EQ(Format::usd(0.009), u"US$ 0.009"_s);
    EXPECT_EQ(Format::usd(0.00999), u"US$ 0.01"_s);
    EXPECT_EQ(Format::usd(0.0004), u"US$ 0.00"_s);
}

TEST_F(FormatMoney, IsWrittenAsItsRegionDoes) {
    const auto written = [](const QString &locale) {
        load(locale);
        return Format::usd(1'234'567.891);
    };
    EXPECT_EQ(written(u"pt-BR"_s), u"US$ 1.234.567,89"_s);
    EXPECT_EQ(written(u"de-DE"_s), u"US$ 1.234.567,89"_s);
    EXPECT_EQ(written(u"hi-IN"_s), u"US$ 12,34,567.89"_s);
    EXPECT_EQ(written(u"ar-EG"_s), u"US$ ١٬٢٣٤٬٥٦٧٫٨٩"_s);
}

TEST_F(FormatMoney, IsWrittenWhateverItIs) {
    EXPECT_EQ(Format::usd(infinity), u"US$ ∞"_s);
    EXPECT_EQ(Format::usd(notANumber), u"US$ NaN"_s);
}

TEST_F(FormatSpeed, HasUpToTwoDecimalsAndATimesSign) {
    EXPECT_EQ(Format::speed(1), u"1×"_s);
    EXPECT_EQ(Format::speed(1.25), u"1.25×"_s);
    EXPECT_EQ(Format::speed(1.333), u"1.33×"_s);
    load(u"pt-BR"_s);
    EXPECT_EQ(Format::speed(1.25), u"1,25×"_s);
}

TEST_F(FormatClock, Has24HoursInEveryRegion) {
    const double evening = at("2026-03-05T17:05:59", u"UTC"_s);
    for (const auto &locale : {u"en-US"_s, u"pt-BR"_s, u"de-DE"_s, u"hi-IN"_s}) {
        load(locale);
        EXPECT_EQ(Format::clock(evening), u"17:05"_s) << locale.toStdString();
    }
    load(u"ar-EG"_s);
    EXPECT_EQ(bare(Format::clock(evening)), u"١٧:٠٥"_s);
    load(u"en-US"_s);
    EXPECT_EQ(Format::clock(at("2026-03-05T00:07:00", u"UTC"_s)), u"00:07"_s);
}

TEST_F(FormatClock, IsThatOfItsTimeZone) {
    const double instant = at("2026-03-05T12:00:00", u"UTC"_s);
    const auto written = [instant](const QString &zone) {
        load(u"en-US"_s, zone);
        return Format::clock(instant);
    };
    EXPECT_EQ(written(newYork), u"07:00"_s);
    EXPECT_EQ(written(saoPaulo), u"09:00"_s);
    EXPECT_EQ(written(berlin), u"13:00"_s);
    EXPECT_EQ(written(kolkata), u"17:30"_s);
    EXPECT_EQ(written(kiritimati), u"02:00"_s);
    EXPECT_EQ(written(u"Nowhere/At_All"_s), u"12:00"_s);
}

TEST_F(FormatClock, GoesOverTheHourThatIsLeftOutOrDoneTwice) {
    load(u"en-US"_s, newYork);
    expectTheChangesOfTheHour();
}

TEST_F(FormatClock, ShowsInstantsBefore1970AndFractions) {
    EXPECT_EQ(Format::clock(-1), u"23:59"_s);
    EXPECT_EQ(Format::clock(59'999.9), u"00:00"_s);
}

TEST_F(FormatDay, IsTodayFromMidnightToMidnight) {
    for (const auto &zone : {u"UTC"_s, newYork, saoPaulo, berlin, kolkata, cairo, kiritimati}) {
        load(u"en-US"_s, zone, at("2026-06-15T00:30:00", zone));
        EXPECT_EQ(Format::day(at("2026-06-15T00:00:00", zone)), u"Today 00:00"_s) << zone.toStdString();
        EXPECT_EQ(Format::day(at("2026-06-15T23:59:59", zone)), u"Today 23:59"_s) << zone.toStdString();
        EXPECT_EQ(Format::day(at("2026-06-14T23:59:59", zone)), u"Yesterday 23:59"_s) << zone.toStdString();
        EXPECT_EQ(Format::day(at("2026-06-14T00:00:00", zone)), u"Yesterday 00:00"_s) << zone.toStdString();
        EXPECT_EQ(Format::day(at("2026-06-13T23:59:59", zone)), u"06/13, 23:59"_s) << zone.toStdString();
        EXPECT_EQ(Format::day(at("2026-06-16T00:00:00", zone)), u"06/16, 00:00"_s) << zone.toStdString();
    }
}

TEST_F(FormatDay, IsAskedOfTheClockEachTime) {
    double now = at("2026-06-15T23:59:00", berlin);
    Format::load(
        {.numbers = u"en-US"_s, .dates = u"en-US"_s, .timeZone = berlin, .clock = [&now] { return instant(now); }});
    const double evening = at("2026-06-15T20:00:00", berlin);
    EXPECT_EQ(Format::day(evening), u"Today 20:00"_s);
    now += 60'000;
    EXPECT_EQ(Format::day(evening), u"Yesterday 20:00"_s);
}

TEST_F(FormatDay, OfAChangeOfTheClocksIsOneDay) {
    // 23 hours long, and 25.
    load(u"en-US"_s, newYork, at("2026-03-09T00:10:00", newYork));
    EXPECT_EQ(Format::day(at("2026-03-08T00:05:00", newYork)), u"Yesterday 00:05"_s);
    EXPECT_EQ(Format::day(at("2026-03-07T23:55:00", newYork)), u"03/07, 23:55"_s);
    load(u"en-US"_s, newYork, at("2026-11-02T00:10:00", newYork));
    EXPECT_EQ(Format::day(at("2026-11-01T00:05:00", newYork)), u"Yesterday 00:05"_s);
    EXPECT_EQ(Format::day(at("2026-10-31T23:55:00", newYork)), u"10/31, 23:55"_s);
    load(u"en-US"_s, newYork, at("2026-11-01T23:55:00", newYork));
    EXPECT_EQ(Format::day(at("2026-11-01T00:05:00", newYork)), u"Today 00:05"_s);
}

TEST_F(FormatDay, OfAnotherYearIsNotToday) {
    load(u"en-US"_s, u"UTC"_s, at("2026-06-15T12:00:00", u"UTC"_s));
    EXPECT_EQ(Format::day(at("2025-06-15T12:00:00", u"UTC"_s)), u"06/15, 12:00"_s);
    load(u"en-US"_s, u"UTC"_s, at("2026-01-01T00:10:00", u"UTC"_s));
    EXPECT_EQ(Format::day(at("2025-12-31T23:50:00", u"UTC"_s)), u"Yesterday 23:50"_s);
}

TEST_F(FormatDay, IsOrderedAsItsRegionDoes) {
    const double afternoon = at("2026-03-05T17:05:00", u"UTC"_s);
    const auto written = [afternoon](const QString &locale) {
        load(locale);
        return bare(Format::day(afternoon));
    };
    EXPECT_EQ(written(u"en-US"_s), u"03/05, 17:05"_s);
    EXPECT_EQ(written(u"pt-BR"_s), u"05/03, 17:05"_s);
    EXPECT_EQ(written(u"de-DE"_s), u"05.03., 17:05"_s);
    EXPECT_EQ(written(u"hi-IN"_s), u"05/03, 17:05"_s);
    EXPECT_EQ(written(u"ar-EG"_s), u"٠٥/٠٣، ١٧:٠٥"_s);
}

TEST_F(FormatDay, HasTwoDigitsForAnHourAlsoWhereItsRegionWritesOne) {
    const double morning = at("2026-03-05T08:05:00", u"UTC"_s);
    for (const auto &locale : {u"es-ES"_s, u"cs-CZ"_s, u"fi-FI"_s, u"ja-JP"_s}) {
        load(locale);
        const auto day = Format::day(morning);
        EXPECT_TRUE(day.contains(u"08"_s)) << locale.toStdString() << ": " << day.toStdString();
    }
}

TEST_F(FormatDay, IsInTheUsersWords) {
    speak("pt-BR");
    load(u"pt-BR"_s, saoPaulo, at("2026-06-15T12:00:00", saoPaulo));
    EXPECT_EQ(Format::day(at("2026-06-15T09:05:00", saoPaulo)), u"Hoje 09:05"_s);
    EXPECT_EQ(Format::day(at("2026-06-14T09:05:00", saoPaulo)), u"Ontem 09:05"_s);
}

TEST_F(FormatDay, FollowsAnotherCalendar) {
    const double now = at("2026-06-15T12:00:00", u"UTC"_s);
    load(u"fa-IR-u-ca-persian-nu-latn"_s, u"UTC"_s, now);
    EXPECT_EQ(Format::day(now), u"Today 12:00"_s);
    EXPECT_EQ(Format::day(at("2026-06-14T12:00:00", u"UTC"_s)), u"Yesterday 12:00"_s);
    // 15 March 2026 is 24 Esfand 1404.
    EXPECT_TRUE(bare(Format::day(at("2026-03-15T12:00:00", u"UTC"_s))).contains(u"12/24"_s));
}

TEST_F(FormatDay, OfNoInstantIsEmpty) {
    for (const double ms : {infinity, -infinity, notANumber, largest, -largest, 8.65e15}) {
        EXPECT_EQ(Format::day(ms), QString()) << ms;
        EXPECT_EQ(Format::clock(ms), QString()) << ms;
    }
    EXPECT_EQ(Format::clock(8.64e15), u"00:00"_s);
    EXPECT_EQ(Format::day(8.64e15), u"09/13, 00:00"_s);
    EXPECT_FALSE(Format::day(-8.64e15).isEmpty());
}

TEST_F(FormatSince, IsAMomentForAMinuteAndForWhatLiesAhead) {
    const auto now = instant(1e12);
    EXPECT_EQ(Format::since(1e12, now), u"a moment"_s);
    EXPECT_EQ(Format::since(1e12 - 59'999, now), u"a moment"_s);
    EXPECT_EQ(Format::since(1e12 + 3'600'000, now), u"a moment"_s);
    EXPECT_EQ(Format::since(1e12 - 60'000, now), u"1 min"_s);
}

TEST_F(FormatSince, IsInMinutesForAnHour) {
    const auto now = instant(1e12);
    EXPECT_EQ(Format::since(1e12 - 119'999, now), u"1 min"_s);
    EXPECT_EQ(Format::since(1e12 - 120'000, now), u"2 min"_s);
    EXPECT_EQ(Format::since(1e12 - 3'599'999, now), u"59 min"_s);
    EXPECT_EQ(Format::since(1e12 - 3'600'000, now), u"1 h"_s);
}

TEST_F(FormatSince, IsInHoursHoweverManyThereAre) {
    const auto now = instant(1e12);
    EXPECT_EQ(Format::since(1e12 - 7'199'999, now), u"1 h"_s);
    EXPECT_EQ(Format::since(1e12 - 30 * 3'600'000.0, now), u"30 h"_s);
    EXPECT_EQ(Format::since(1e12 - 100 * 3'600'000.0, now), u"100 h"_s);
}

TEST_F(FormatSince, HoldsEveryInstant) {
    const auto now = instant(1e12);
    EXPECT_EQ(Format::since(notANumber, now), u"a moment"_s);
    EXPECT_EQ(Format::since(infinity, now), u"a moment"_s);
    EXPECT_EQ(Format::since(largest, now), u"a moment"_s);
    const auto longest = L("since.hours", FormatArgument(qint64{9'007'199'254'740'992}));
    EXPECT_EQ(Format::since(-infinity, now), longest);
    EXPECT_EQ(Format::since(-largest, now), longest);
}

TEST_F(FormatModel, IsReadableByItsId) {
    EXPECT_EQ(Format::model(u"claude-sonnet-4-5"_s), u"Sonnet 4.5"_s);
    EXPECT_EQ(Format::model(u"claude-haiku-5-5"_s), u"Haiku 5.5"_s);
    EXPECT_EQ(Format::model(u"claude-OPUS"_s), u"Opus"_s);
    EXPECT_EQ(Format::model(u"local"_s), u"Local"_s);
    EXPECT_EQ(Format::model(u"éTUDE-1"_s), u"Étude 1"_s);
    EXPECT_EQ(Format::model(u"𐐨𐐀-1"_s), u"𐐀𐐨 1"_s);
}

TEST_F(FormatModel, LosesThePrefixWhereverItStandsAndEmptyPieces) {
    EXPECT_EQ(Format::model(u"my-claude-sonnet--4-"_s), u"My sonnet.4"_s);
    EXPECT_EQ(Format::model(u"claude-claude-sonnet"_s), u"Sonnet"_s);
    EXPECT_EQ(Format::model(u"claclaude-ude-x"_s), u"Claude x"_s);
    EXPECT_EQ(Format::model(u"Claude-x"_s), u"Claude x"_s);
}

TEST_F(FormatModel, IsEmptyWhenNothingIsLeft) {
    EXPECT_EQ(Format::model({}), QString());
    EXPECT_EQ(Format::model(u"claude-"_s), QString());
    EXPECT_EQ(Format::model(u"---"_s), QString());
}

TEST_F(FormatDevice, LosesTheWordsForAMicrophone) {
    EXPECT_EQ(Format::device(u"Microfone do MacBook Pro"_s), u"MacBook Pro"_s);
    EXPECT_EQ(Format::device(u"Microfone (USB Audio)"_s), u"USB Audio"_s);
    EXPECT_EQ(Format::device(u"Microphone (USB Audio)"_s), u"USB Audio"_s);
    EXPECT_EQ(Format::device(u"MacBook Pro Microphone"_s), u"MacBook Pro"_s);
    EXPECT_EQ(Format::device(u"Headset (2) Microphone)"_s), u"Headset (2"_s);
}

TEST_F(FormatDevice, KeepsEveryOtherForm) {
    EXPECT_EQ(Format::device(u"Microphone"_s), u"Microphone"_s);
    EXPECT_EQ(Format::device(u" Microphone"_s), u" Microphone"_s);
    EXPECT_EQ(Format::device(u"x Microphone"_s), u"x"_s);
    EXPECT_EQ(Format::device(u"USB microphone"_s), u"USB microphone"_s);
    EXPECT_EQ(Format::device(u"microfone do Mac"_s), u"microfone do Mac"_s);
    EXPECT_EQ(Format::device({}), QString());
}

TEST_F(FormatRegion, IsWhatTheEnvironmentSaidAtTheStart) {
    const auto region = [](const char *all, const char *numeric, const char *time, const char *lang) {
        const EnvironmentVariable variables[] = {
            {"LC_ALL", all}, {"LC_NUMERIC", numeric}, {"LC_TIME", time}, {"LANG", lang}};
        const auto found = Format::systemRegion();
        return QString(found.numbers + u' ' + found.dates);
    };
    EXPECT_EQ(region("", "de_DE.UTF-8", "pt_BR", "en_US.UTF-8"), u"de-DE pt-BR"_s);
    EXPECT_EQ(region("hi_IN", "de_DE.UTF-8", "pt_BR", "en_US.UTF-8"), u"hi-IN hi-IN"_s);
    EXPECT_EQ(region("", "", "", "ar_EG.UTF-8"), u"ar-EG ar-EG"_s);
    EXPECT_EQ(region("C.UTF-8", "de_DE", "de_DE", "de_DE"), u"en en"_s);
    EXPECT_EQ(region("", "", "", ""), u"en en"_s);
}

TEST(FormatAtFirst, IsThatOfTheUsersRegion) {
    // In a process of its own, for it is about the first text of one.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const EnvironmentVariable language("LC_ALL", "de_DE.UTF-8");
    const EnvironmentVariable zone("TZ", "Asia/Kolkata");
    const auto isOfTheRegion = [] { return Format::seconds(2500) == u"2,5 s"_s && Format::clock(0) == u"05:30"_s; };
    EXPECT_EXIT(std::exit(isOfTheRegion() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(FormatRegion, IsNotTouchedByLaterChanges) {
    load(u"de-DE"_s, berlin);
    const EnvironmentVariable language("LC_ALL", "en_US.UTF-8");
    const EnvironmentVariable zone("TZ", "Asia/Kolkata");
    QLocale::setDefault(QLocale(QLocale::Hindi));
    EXPECT_EQ(Format::seconds(2500), u"2,5 s"_s);
    EXPECT_EQ(Format::clock(0), u"01:00"_s);
    QLocale::setDefault(QLocale::system());
}

TEST_F(FormatRegion, OfTheSystemHasTheSystemsTimeZone) {
    const EnvironmentVariable language("LC_ALL", "en_US.UTF-8");
    const auto clockOf = [](const char *zone) {
        const EnvironmentVariable variable("TZ", zone);
        Format::load(Format::systemRegion());
        return Format::clock(0);
    };
    EXPECT_EQ(clockOf("Asia/Kolkata"), u"05:30"_s);
    EXPECT_EQ(clockOf("XYZ-3"), u"03:00"_s);
}

TEST_F(FormatRegion, OfNoLanguageStillWrites) {
    load(u"12345678901234567890"_s);
    EXPECT_EQ(Format::seconds(2500), u"2.5 s"_s);
    EXPECT_EQ(Format::clock(0), u"00:00"_s);
    EXPECT_FALSE(Format::day(-1e12).isEmpty());
}

TEST_F(FormatRegion, FollowsTheSystemsTimeZone) {
    const EnvironmentVariable language("LC_ALL", "en_US.UTF-8");
    Format::load(Format::systemRegion());
    const auto clockIn = [](const char *zone) {
        const EnvironmentVariable variable("TZ", zone);
        EXPECT_EQ(Format::offset(instant(0)).count() % 86'400'000,
                  QTime(0, 0).msecsTo(QTime::fromString(Format::clock(0), u"hh:mm"_s)));
        return Format::clock(0);
    };
    EXPECT_EQ(clockIn("Asia/Kolkata"), u"05:30"_s);
    EXPECT_EQ(clockIn("Europe/Berlin"), u"01:00"_s);
    EXPECT_EQ(clockIn(":Asia/Kolkata"), u"05:30"_s);
    EXPECT_EQ(clockIn("/usr/share/zoneinfo/Europe/Berlin"), u"01:00"_s);
    EXPECT_EQ(clockIn(":/usr/share/zoneinfo/Asia/Kolkata"), u"05:30"_s);
    EXPECT_EQ(clockIn("XYZ-3"), u"03:00"_s);
    EXPECT_EQ(clockIn("Nowhere/At_All"), u"00:00"_s);
}

TEST_F(FormatRegion, OfTheSystemGoesOverTheHourThatIsLeftOutOrDoneTwice) {
    const EnvironmentVariable zone("TZ", "America/New_York");
    Format::load({.numbers = u"en-US"_s, .dates = u"en-US"_s, .timeZone = {}});
    expectTheChangesOfTheHour();
    EXPECT_FALSE(Format::day(8.64e15).isEmpty());
    EXPECT_FALSE(Format::day(-8.64e15).isEmpty());
}

TEST_F(Format_, FoldsATextOfSeveralLinesIntoOne) {
    EXPECT_EQ(Format::oneLine(u" one\n two\r\n\tthree\u2028four \n"_s), u"one two three four"_s);
    EXPECT_EQ(Format::oneLine(u"one"_s), u"one"_s);
    EXPECT_EQ(Format::oneLine(u" \n "_s), QString());
}
