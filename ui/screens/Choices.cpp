#include "ui/screens/Choices.h"

#include "localization/Localization.h"
#include "model/SettingKey.h"

namespace palomet {

namespace {

/// What is no whole number has the id of no choice.
Choice duration(double ms, QString (*title)(double ms)) {
    return {QString::number(ms, 'f', QLocale::FloatingPointShortest), title(ms)};
}

QJsonValue encodedDuration(const QString &id) {
    bool isNumber = false;
    const int milliseconds = id.toInt(&isNumber, 10);
    return isNumber ? milliseconds : defaultEndSilenceMs;
}

Choices durations(QString key, std::function<std::optional<double>(const PalometModel &)> current,
                  const std::vector<double> &offered, QString (*title)(double ms)) {
    std::vector<Choice> choices;
    choices.reserve(offered.size());
    for (const double ms : offered)
        choices.push_back(duration(ms, title));
    return {.key = std::move(key),
            .current = [current = std::move(current), title](const PalometModel &model) -> std::optional<Choice> {
                const auto ms = current(model);
                return ms ? std::optional(duration(*ms, title)) : std::nullopt;
            },
            .offered = [choices = std::move(choices)](const PalometModel &) { return choices; },
            .encoded = &encodedDuration};
}

Choice named(const QString &name, QString (*title)(QString name)) {
    return {name, title != nullptr ? title(name) : name};
}

Choices names(QString key, std::function<Choice(const Snapshot::Settings &)> current,
              std::vector<QString> Options::*offered, QString (*title)(QString name)) {
    return {.key = std::move(key),
            .current = [current = std::move(current)](const PalometModel &model) -> std::optional<Choice> {
                return model.settings() ? std::optional(current(*model.settings())) : std::nullopt;
            },
            .offered =
                [=](const PalometModel &model) {
                    std::vector<Choice> choices;
                    if (!model.options())
                        return choices;
                    for (const auto &name : *model.options().*offered)
                        choices.push_back(named(name, title));
                    return choices;
                }};
}

} // namespace

Choices names(QString Snapshot::Settings::*member, std::vector<QString> Options::*offered,
              QString (*title)(QString name)) {
    const auto current = [=](const Snapshot::Settings &settings) { return named(settings.*member, title); };
    return names(settingKey(member), current, offered, title);
}

Choices names(std::optional<QString> Snapshot::Settings::*member, const char *withoutKey,
              std::vector<QString> Options::*offered, QString (*title)(QString name)) {
    const auto current = [=](const Snapshot::Settings &settings) {
        const auto &name = settings.*member;
        return name ? named(*name, title) : Choice{{}, L(withoutKey)};
    };
    return names(settingKey(member), current, offered, title);
}

Choices durations(double Snapshot::Settings::*member, const std::vector<double> &offered) {
    const auto current = [member](const PalometModel &model) {
        return model.settings() ? std::optional(model.settings()->*member) : std::nullopt;
    };
    return durations(settingKey(member), current, offered, &format::seconds);
}

Choices durations(std::optional<double> Snapshot::Settings::*member, double fallback,
                  const std::vector<double> &offered, QString (*title)(double ms)) {
    const auto current = [=](const PalometModel &model) {
        return std::optional(model.settings() ? (model.settings()->*member).value_or(fallback) : fallback);
    };
    return durations(settingKey(member), current, offered, title);
}

} // namespace palomet
