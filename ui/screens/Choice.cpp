#include "ui/screens/Choice.h"

#include "model/Format.h"

namespace palomet {

namespace {
constexpr int defaultEndSilenceMs = 1200;
} // namespace

std::vector<Choice> plainChoices(const std::vector<QString> &names) {
    std::vector<Choice> choices;
    choices.reserve(names.size());
    for (const auto &name : names)
        choices.push_back({name, name});
    return choices;
}

std::vector<Choice> secondsChoices(std::span<const double> seconds) {
    std::vector<Choice> choices;
    choices.reserve(seconds.size());
    for (const double duration : seconds) {
        const auto milliseconds = static_cast<qint64>(duration * 1000);
        choices.push_back({QString::number(milliseconds), Format::seconds(static_cast<double>(milliseconds))});
    }
    return choices;
}

int millisecondsFrom(const QString &id) {
    bool isNumber = false;
    const int milliseconds = id.toInt(&isNumber, 10);
    return isNumber ? milliseconds : defaultEndSilenceMs;
}

} // namespace palomet
