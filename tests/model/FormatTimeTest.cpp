#include "tests/model/FormatTest.h"
#include "tests/support/Processes.h"

#include <QDateTime>
#include <QTimeZone>

#include <cstdlib>

using namespace palomet;
using namespace palomet::test;

namespace {

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

using FormatClock = FormatTest;
using FormatDay = FormatTest;
using FormatSince = FormatTest;
using FormatRegion = FormatTest;

/// Of New York in 2026: an hour is left out in spring, and one comes twice in autumn.
void expectTheChangesOfTheHour() {
    const double spring = at("2026-03-08T06:59:00", u"UTC"_s);
    EXPECT_EQ(format::clock(spring), u"01:59"_s);
    EXPECT_EQ(format::clock(spring + 60'000), u"03:00"_s);
    const double autumn = at("2026-11-01T05:59:00", u"UTC"_s);
    EXPECT_EQ(format::clock(autumn), u"01:59"_s);
    EXPECT_EQ(format::clock(autumn + 60'000), u"01:00"_s);
    EXPECT_EQ(format::clock(autumn + 3'660'000), u"02:00"_s);
}

} // namespace

TEST_F(FormatClock, Has24HoursInEveryRegion) {
    const double evening = at("2026-03-05T17:05:59", u"UTC"_s);
    for (const auto &locale : {u"en-US"_s, u"pt-BR"_s, u"de-DE"_s, u"hi-IN"_s}) {
        load(locale);
        EXPECT_EQ(format::clock(evening), u"17:05"_s) << locale.toStdString();
    }
    load(u"ar-EG"_s);
    EXPECT_EQ(bare(format::clock(evening)), u"١٧:٠٥"_s);
    load(u"en-US"_s);
    EXPECT_EQ(format::clock(at("2026-03-05T00:07:00", u"UTC"_s)), u"00:07"_s);
}

TEST_F(FormatClock, IsThatOfItsTimeZone) {
    const double instant = at("2026-03-05T12:00:00", u"UTC"_s);
    const auto written = [instant](const QString &zone) {
        load(u"en-US"_s, zone);
        return format::clock(instant);
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
    EXPECT_EQ(format::clock(-1), u"23:59"_s);
    EXPECT_EQ(format::clock(59'999.9), u"00:00"_s);
}

TEST_F(FormatDay, IsTodayFromMidnightToMidnight) {
    for (const auto &zone : {u"UTC"_s, newYork, saoPaulo, berlin, kolkata, cairo, kiritimati}) {
        load(u"en-US"_s, zone, at("2026-06-15T00:30:00", zone));
        EXPECT_EQ(format::day(at("2026-06-15T00:00:00", zone)), u"Today 00:00"_s) << zone.toStdString();
        EXPECT_EQ(format::day(at("2026-06-15T23:59:59", zone)), u"Today 23:59"_s) << zone.toStdString();
        EXPECT_EQ(format::day(at("2026-06-14T23:59:59", zone)), u"Yesterday 23:59"_s) << zone.toStdString();
        EXPECT_EQ(format::day(at("2026-06-14T00:00:00", zone)), u"Yesterday 00:00"_s) << zone.toStdString();
        EXPECT_EQ(format::day(at("2026-06-13T23:59:59", zone)), u"06/13, 23:59"_s) << zone.toStdString();
        EXPECT_EQ(format::day(at("2026-06-16T00:00:00", zone)), u"06/16, 00:00"_s) << zone.toStdString();
    }
}

TEST_F(FormatDay, IsAskedOfTheClockEachTime) {
    double now = at("2026-06-15T23:59:00", berlin);
    format::load(
        {.numbers = u"en-US"_s, .dates = u"en-US"_s, .timeZone = berlin, .clock = [&now] { return instant(now); }});
    const double evening = at("2026-06-15T20:00:00", berlin);
    EXPECT_EQ(format::day(evening), u"Today 20:00"_s);
    now += 60'000;
    EXPECT_EQ(format::day(evening), u"Yesterday 20:00"_s);
}

TEST_F(FormatDay, OfAChangeOfTheClocksIsOneDay) {
    // 23 hours long, and 25.
    load(u"en-US"_s, newYork, at("2026-03-09T00:10:00", newYork));
    EXPECT_EQ(format::day(at("2026-03-08T00:05:00", newYork)), u"Yesterday 00:05"_s);
    EXPECT_EQ(format::day(at("2026-03-07T23:55:00", newYork)), u"03/07, 23:55"_s);
    load(u"en-US"_s, newYork, at("2026-11-02T00:10:00", newYork));
    EXPECT_EQ(format::day(at("2026-11-01T00:05:00", newYork)), u"Yesterday 00:05"_s);
    EXPECT_EQ(format::day(at("2026-10-31T23:55:00", newYork)), u"10/31, 23:55"_s);
    load(u"en-US"_s, newYork, at("2026-11-01T23:55:00", newYork));
    EXPECT_EQ(format::day(at("2026-11-01T00:05:00", newYork)), u"Today 00:05"_s);
}

TEST_F(FormatDay, OfAnotherYearIsNotToday) {
    load(u"en-US"_s, u"UTC"_s, at("2026-06-15T12:00:00", u"UTC"_s));
    EXPECT_EQ(format::day(at("2025-06-15T12:00:00", u"UTC"_s)), u"06/15, 12:00"_s);
    load(u"en-US"_s, u"UTC"_s, at("2026-01-01T00:10:00", u"UTC"_s));
    EXPECT_EQ(format::day(at("2025-12-31T23:50:00", u"UTC"_s)), u"Yesterday 23:50"_s);
}

TEST_F(FormatDay, IsOrderedAsItsRegionDoes) {
    const double afternoon = at("2026-03-05T17:05:00", u"UTC"_s);
    const auto written = [afternoon](const QString &locale) {
        load(locale);
        return bare(format::day(afternoon));
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
        const auto day = format::day(morning);
        EXPECT_TRUE(day.contains(u"08"_s)) << locale.toStdString() << ": " << day.toStdString();
    }
}

TEST_F(FormatDay, IsInTheUsersWords) {
    speak("pt-BR");
    load(u"pt-BR"_s, saoPaulo, at("2026-06-15T12:00:00", saoPaulo));
    EXPECT_EQ(format::day(at("2026-06-15T09:05:00", saoPaulo)), u"Hoje 09:05"_s);
    EXPECT_EQ(format::day(at("2026-06-14T09:05:00", saoPaulo)), u"Ontem 09:05"_s);
}

TEST_F(FormatDay, FollowsAnotherCalendar) {
    const double now = at("2026-06-15T12:00:00", u"UTC"_s);
    load(u"fa-IR-u-ca-persian-nu-latn"_s, u"UTC"_s, now);
    EXPECT_EQ(format::day(now), u"Today 12:00"_s);
    EXPECT_EQ(format::day(at("2026-06-14T12:00:00", u"UTC"_s)), u"Yesterday 12:00"_s);
    // 15 March 2026 is 24 Esfand 1404.
    EXPECT_TRUE(bare(format::day(at("2026-03-15T12:00:00", u"UTC"_s))).contains(u"12/24"_s));
}

TEST_F(FormatDay, OfNoInstantIsEmpty) {
    for (const double ms : {infinity, -infinity, notANumber, largest, -largest, 8.65e15}) {
        EXPECT_EQ(format::day(ms), QString()) << ms;
        EXPECT_EQ(format::clock(ms), QString()) << ms;
    }
    EXPECT_EQ(format::clock(8.64e15), u"00:00"_s);
    EXPECT_EQ(format::day(8.64e15), u"09/13, 00:00"_s);
    EXPECT_FALSE(format::day(-8.64e15).isEmpty());
}

TEST_F(FormatSince, IsAMomentForAMinuteAndForWhatLiesAhead) {
    const auto now = instant(1e12);
    EXPECT_EQ(format::since(1e12, now), u"a moment"_s);
    EXPECT_EQ(format::since(1e12 - 59'999, now), u"a moment"_s);
    EXPECT_EQ(format::since(1e12 + 3'600'000, now), u"a moment"_s);
    EXPECT_EQ(format::since(1e12 - 60'000, now), u"1 min"_s);
}

TEST_F(FormatSince, IsInMinutesForAnHour) {
    const auto now = instant(1e12);
    EXPECT_EQ(format::since(1e12 - 119'999, now), u"1 min"_s);
    EXPECT_EQ(format::since(1e12 - 120'000, now), u"2 min"_s);
    EXPECT_EQ(format::since(1e12 - 3'599'999, now), u"59 min"_s);
    EXPECT_EQ(format::since(1e12 - 3'600'000, now), u"1 h"_s);
}

TEST_F(FormatSince, IsInHoursHoweverManyThereAre) {
    const auto now = instant(1e12);
    EXPECT_EQ(format::since(1e12 - 7'199'999, now), u"1 h"_s);
    EXPECT_EQ(format::since(1e12 - 30 * 3'600'000.0, now), u"30 h"_s);
    EXPECT_EQ(format::since(1e12 - 100 * 3'600'000.0, now), u"100 h"_s);
}

TEST_F(FormatSince, HoldsEveryInstant) {
    const auto now = instant(1e12);
    EXPECT_EQ(format::since(notANumber, now), u"a moment"_s);
    EXPECT_EQ(format::since(infinity, now), u"a moment"_s);
    EXPECT_EQ(format::since(largest, now), u"a moment"_s);
    const auto longest = L("since.hours", FormatArgument(qint64{9'007'199'254'740'992}));
    EXPECT_EQ(format::since(-infinity, now), longest);
    EXPECT_EQ(format::since(-largest, now), longest);
}

TEST_F(FormatRegion, IsWhatTheEnvironmentSaidAtTheStart) {
    const auto region = [](const char *all, const char *numeric, const char *time, const char *lang) {
        const EnvironmentVariable variables[] = {
            {"LC_ALL", all}, {"LC_NUMERIC", numeric}, {"LC_TIME", time}, {"LANG", lang}};
        const auto found = format::systemRegion();
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
    const auto isOfTheRegion = [] { return format::seconds(2500) == u"2,5 s"_s && format::clock(0) == u"05:30"_s; };
    EXPECT_EXIT(std::exit(isOfTheRegion() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(FormatRegion, IsNotTouchedByLaterChanges) {
    load(u"de-DE"_s, berlin);
    const EnvironmentVariable language("LC_ALL", "en_US.UTF-8");
    const EnvironmentVariable zone("TZ", "Asia/Kolkata");
    QLocale::setDefault(QLocale(QLocale::Hindi));
    EXPECT_EQ(format::seconds(2500), u"2,5 s"_s);
    EXPECT_EQ(format::clock(0), u"01:00"_s);
    QLocale::setDefault(QLocale::system());
}

TEST_F(FormatRegion, OfTheSystemHasTheSystemsTimeZone) {
    const EnvironmentVariable language("LC_ALL", "en_US.UTF-8");
    const auto clockOf = [](const char *zone) {
        const EnvironmentVariable variable("TZ", zone);
        format::load(format::systemRegion());
        return format::clock(0);
    };
    EXPECT_EQ(clockOf("Asia/Kolkata"), u"05:30"_s);
    EXPECT_EQ(clockOf("XYZ-3"), u"03:00"_s);
}

TEST_F(FormatRegion, OfNoLanguageStillWrites) {
    load(u"12345678901234567890"_s);
    EXPECT_EQ(format::seconds(2500), u"2.5 s"_s);
    EXPECT_EQ(format::clock(0), u"00:00"_s);
    EXPECT_FALSE(format::day(-1e12).isEmpty());
}

TEST_F(FormatRegion, FollowsTheSystemsTimeZone) {
    const EnvironmentVariable language("LC_ALL", "en_US.UTF-8");
    format::load(format::systemRegion());
    const auto clockIn = [](const char *zone) {
        const EnvironmentVariable variable("TZ", zone);
        EXPECT_EQ(format::offset(instant(0)).count() % 86'400'000,
                  QTime(0, 0).msecsTo(QTime::fromString(format::clock(0), u"hh:mm"_s)));
        return format::clock(0);
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
    format::load({.numbers = u"en-US"_s, .dates = u"en-US"_s, .timeZone = {}});
    expectTheChangesOfTheHour();
    EXPECT_FALSE(format::day(8.64e15).isEmpty());
    EXPECT_FALSE(format::day(-8.64e15).isEmpty());
}
