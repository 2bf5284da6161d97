#pragma once

#include "model/Format.h"

#include <QTimeZone>

#include <unicode/numberformatter.h>
#include <unicode/smpdtfmt.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace palomet {

/// The number and date formatters of one region, each made once. One thread. The words are ICU's; how far a zone is
/// from UTC comes from the system's own zone files, for those that ICU brings are as old as it is.
class RegionFormatters {
public:
    explicit RegionFormatters(Format::Region region);

    [[nodiscard]] QString number(double value, Format::Digits digits);

    /// "HH:mm"
    [[nodiscard]] QString clock(double ms) const;

    /// Day, month, hour and minute, two digits each, as the region orders them.
    [[nodiscard]] QString dayAndHour(double ms) const;

    /// How many days of the calendar today lies behind the instant's day; none for what is no instant.
    [[nodiscard]] std::optional<int> daysAgo(double ms) const;

    /// How far the zone's clocks are ahead of UTC at an instant, in milliseconds.
    [[nodiscard]] double offset(double ms) const;

private:
    [[nodiscard]] QString written(const std::unique_ptr<icu::SimpleDateFormat> &format, double ms) const;
    /// The time that the zone's clocks show at an instant, as if it were UTC.
    [[nodiscard]] std::optional<double> localTime(double ms) const;

    Format::Region m_region;
    std::optional<QTimeZone> m_zone; ///< None for the one that the system is set to, whichever that is by now.
    icu::Locale m_numberLocale;
    std::vector<std::pair<Format::Digits, icu::number::LocalizedNumberFormatter>> m_numbers;
    std::unique_ptr<icu::SimpleDateFormat> m_clock;
    std::unique_ptr<icu::SimpleDateFormat> m_dayAndHour;
};

} // namespace palomet
