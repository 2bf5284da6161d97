#include "ui/screens/VoiceScreen.h"

#include "model/SettingKey.h"

#include <cmath>

namespace palomet {

namespace {

constexpr double fallbackSpeed = 1.5;

/// Its id is the shortest decimal text with at least one decimal place: "1.0", "1.25".
Choice choice(double speed) {
    auto id = QString::number(speed, 'f', QLocale::FloatingPointShortest);
    if (!id.contains(u'.'))
        id += QStringLiteral(".0");
    return {id, Format::speed(speed)};
}

} // namespace

VoiceScreen::VoiceScreen(PalometModel &model)
    : Screen(model) {}

Choices VoiceScreen::speeds() {
    // Nothing slower than normal speed, on purpose.
    std::vector<Choice> speeds{choice(1), choice(1.25), choice(1.5), choice(1.75), choice(2)};
    return {.key = settingKey(&Settings::voiceSpeed),
            .current = [](const PalometModel &model) -> std::optional<Choice> {
                return model.settings() ? std::optional(choice(model.settings()->voiceSpeed)) : std::nullopt;
            },
            .offered = [speeds = std::move(speeds)](const PalometModel &) { return speeds; },
            .encoded = [](const QString &id) -> QJsonValue {
                bool isNumber = false;
                const double speed = id.toDouble(&isNumber);
                return isNumber && std::isfinite(speed) ? speed : fallbackSpeed;
            }};
}

} // namespace palomet
