#include "model/Format.h"

#include "localization/Languages.h"
#include "localization/Localization.h"
#include "model/RegionFormatters.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace palomet {

namespace {

using namespace Qt::StringLiterals;

std::optional<RegionFormatters> &loaded() {
    static std::optional<RegionFormatters> formatters;
    return formatters;
}

RegionFormatters &formatters() {
    if (!loaded())
        format::load(format::systemRegion());
    return *loaded();
}

QString localeOf(const char *category) {
    for (const char *variable : {"LC_ALL", category, "LANG"}) {
        const auto tags = languageTags(qEnvironmentVariable(variable));
        if (!tags.isEmpty())
            return tags.front();
    }
    return u"en"_s;
}

} // namespace

format::Region format::systemRegion() {
    return {.numbers = localeOf("LC_NUMERIC"), .dates = localeOf("LC_TIME"), .timeZone = {}};
}

void format::load(Region region) {
    loaded().emplace(std::move(region));
}

QString format::number(double value, Digits digits) {
    return formatters().number(value, digits);
}

QString format::seconds(double ms) {
    constexpr double wholeFrom = 10;
    const double seconds = ms / 1000;
    const bool isWhole = seconds >= wholeFrom || seconds == std::trunc(seconds);
    const auto amount =
        isWhole && std::isfinite(seconds) ? QString::number(std::round(seconds), 'f', 0) : number(seconds, {1, 1});
    return amount + " s"_L1;
}

QString format::usd(double value) {
    const bool isBelowOneCent = value > 0 && value < 0.01;
    return "US$ "_L1 + number(value, {2, isBelowOneCent ? 3 : 2});
}

QString format::outcome(qint64 answers, double costUsd) {
    return QString(L("history.answers", Count{answers}) + u" \u00B7 "_s + usd(costUsd));
}

QString format::speed(double value) {
    return number(value, {0, 2}) + u'×';
}

QString format::clock(double ms) {
    return formatters().clock(ms);
}

QString format::day(double ms) {
    auto &region = formatters();
    const auto daysAgo = region.daysAgo(ms);
    if (daysAgo == 0)
        return L("day.today", region.clock(ms));
    if (daysAgo == 1)
        return L("day.yesterday", region.clock(ms));
    return region.dayAndHour(ms);
}

std::chrono::milliseconds format::offset(std::chrono::system_clock::time_point instant) {
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(instant.time_since_epoch());
    return std::chrono::milliseconds(static_cast<qint64>(formatters().offset(static_cast<double>(ms.count()))));
}

QString format::since(double ms, std::chrono::system_clock::time_point now) {
    const double seconds = std::chrono::duration<double>(now.time_since_epoch()).count() - ms / 1000;
    // Also for what is no number.
    if (!(seconds >= 60))
        return L("since.now");
    if (seconds < 3600)
        return L("since.minutes", static_cast<qint64>(seconds / 60));
    // As many hours as a double counts one by one.
    constexpr double mostHours = 9'007'199'254'740'992;
    return L("since.hours", static_cast<qint64>(std::min(seconds / 3600, mostHours)));
}

QString format::model(QString id) {
    auto pieces = id.remove("claude-"_L1).split(u'-', Qt::SkipEmptyParts);
    if (pieces.isEmpty())
        return {};
    const auto first = pieces.takeFirst();
    const qsizetype letter = first.front().isHighSurrogate() ? 2 : 1;
    const QString name = first.left(letter).toUpper() + first.mid(letter).toLower();
    return pieces.isEmpty() ? name : name + u' ' + pieces.join(u'.');
}

QString format::oneLine(const QString &text) {
    return text.simplified();
}

QString format::device(QString name) {
    constexpr auto ending = " Microphone"_L1;
    name.remove("Microfone do "_L1).remove("Microfone ("_L1).remove("Microphone ("_L1).remove(u')');
    if (name.size() > ending.size() && name.endsWith(ending))
        name.chop(ending.size());
    return name;
}

} // namespace palomet
