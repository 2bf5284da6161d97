#include "model/RegionFormatters.h"

#include <QDateTime>

#include <unicode/dtptngen.h>

#include <algorithm>
#include <cmath>

namespace palomet {

namespace {

constexpr double millisecondsPerDay = 86'400'000;
constexpr double farthest = 1e8 * millisecondsPerDay;

QString toQString(const icu::UnicodeString &text) {
    return QString::fromUtf16(text.getBuffer(), text.length());
}

/// A tag that names no language leaves ICU's root, which writes numbers and dates all the same.
icu::Locale localeOf(const QString &tag) {
    UErrorCode error = U_ZERO_ERROR;
    auto locale = icu::Locale::forLanguageTag(tag.toStdString(), error);
    return U_SUCCESS(error) ? locale : icu::Locale::getRoot();
}

icu::UnicodeString dayAndHourPattern(const icu::Locale &locale) {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, error));
    icu::UnicodeString pattern;
    if (U_SUCCESS(error))
        pattern = generator->getBestPattern(u"ddMMHHmm", UDATPG_MATCH_HOUR_FIELD_LENGTH, error);
    return U_SUCCESS(error) ? pattern : icu::UnicodeString(u"yyyy-MM-dd HH:mm");
}

/// Of what is already local time.
std::unique_ptr<icu::SimpleDateFormat> dateFormat(const icu::UnicodeString &pattern, const icu::Locale &locale) {
    UErrorCode error = U_ZERO_ERROR;
    auto format = std::make_unique<icu::SimpleDateFormat>(pattern, locale, error);
    if (U_FAILURE(error))
        return nullptr;
    format->adoptTimeZone(icu::TimeZone::getGMT()->clone());
    return format;
}

std::optional<QTimeZone> zoneOf(const QString &name) {
    if (name.isEmpty())
        return std::nullopt;
    const QTimeZone zone(name.toLatin1());
    return zone.isValid() ? zone : QTimeZone::utc();
}

} // namespace

RegionFormatters::RegionFormatters(format::Region region)
    : m_region(std::move(region))
    , m_zone(zoneOf(m_region.timeZone))
    , m_numberLocale(localeOf(m_region.numbers)) {
    const auto locale = localeOf(m_region.dates);
    m_clock = dateFormat(u"HH:mm", locale);
    m_dayAndHour = dateFormat(dayAndHourPattern(locale), locale);
}

QString RegionFormatters::number(double value, format::Digits digits) {
    auto made = std::ranges::find(m_numbers, digits, [](const auto &each) { return each.first; });
    if (made == m_numbers.end()) {
        auto formatter = icu::number::NumberFormatter::withLocale(m_numberLocale)
                             .precision(icu::number::Precision::minMaxFraction(digits.least, digits.most))
                             .roundingMode(UNUM_ROUND_HALFEVEN);
        made = m_numbers.insert(m_numbers.end(), {digits, std::move(formatter)});
    }
    UErrorCode error = U_ZERO_ERROR;
    const auto text = made->second.formatDouble(value, error).toString(error);
    return U_SUCCESS(error) ? toQString(text) : QString::number(value);
}

QString RegionFormatters::clock(double ms) const {
    return written(m_clock, ms);
}

QString RegionFormatters::dayAndHour(double ms) const {
    return written(m_dayAndHour, ms);
}

std::optional<int> RegionFormatters::daysAgo(double ms) const {
    const auto now = localTime(std::chrono::duration<double, std::milli>(m_region.clock().time_since_epoch()).count());
    const auto then = localTime(ms);
    if (!now || !then)
        return std::nullopt;
    return static_cast<int>(std::floor(*now / millisecondsPerDay) - std::floor(*then / millisecondsPerDay));
}

QString RegionFormatters::written(const std::unique_ptr<icu::SimpleDateFormat> &format, double ms) const {
    const auto time = localTime(ms);
    if (!format || !time)
        return {};
    icu::UnicodeString text;
    return toQString(format->format(*time, text));
}

std::optional<double> RegionFormatters::localTime(double ms) const {
    if (!(std::abs(ms) <= farthest))
        return std::nullopt;
    return ms + offset(ms);
}

double RegionFormatters::offset(double ms) const {
    const auto whole = static_cast<qint64>(std::floor(ms));
    if (m_zone)
        return 1000.0 * m_zone->offsetFromUtc(QDateTime::fromMSecsSinceEpoch(whole, Qt::UTC));
    // Looks each time whether the system is set to another zone: a traveller's program is not started again.
    const auto local = QDateTime::fromMSecsSinceEpoch(whole, Qt::LocalTime);
    return static_cast<double>(QDateTime(local.date(), local.time(), Qt::UTC).toMSecsSinceEpoch() - whole);
}

} // namespace palomet
