#include "ui/screens/VoiceScreen.h"

#include "model/Format.h"
#include "ui/screens/TextSending.h"

#include <array>
#include <cmath>

namespace palomet {

namespace {

// Nothing slower than normal speed, on purpose.
constexpr std::array speeds{1.0, 1.25, 1.5, 1.75, 2.0};
constexpr double fallbackSpeed = 1.5;

/// What stands where nothing is known.
const QString absent = QStringLiteral("\u2014");

/// The shortest decimal text with at least one decimal place: "1.0", "1.25".
QString speedId(double speed) {
    auto text = QString::number(speed, 'f', QLocale::FloatingPointShortest);
    if (!text.contains(u'.'))
        text += QStringLiteral(".0");
    return text;
}

} // namespace

VoiceScreen::VoiceScreen(PalometModel &model)
    : Screen(model) {
    std::vector<Choice> choices;
    choices.reserve(speeds.size());
    for (const double speed : speeds)
        choices.push_back({speedId(speed), Format::speed(speed)});
    m_speed.offer(std::move(choices));

    follow(&PalometModel::snapshotChanged, [this] { updateSettings(); });
    follow(&PalometModel::applyingChanged, [this] { updateSettings(); });
    follow(&PalometModel::optionsChanged, [this] { updateOptions(); });

    // After what shows a snapshot, which may settle a text.
    const auto plain = [](const QString &text) { return QJsonValue(text); };
    new TextSending(model, m_voice, QStringLiteral("voiceId"), plain, this);
    new TextSending(model, m_name, QStringLiteral("voiceName"), plain, this);
    connect(&m_speed, &ChoiceSetting::asked, this, [this](const QString &id) {
        bool isNumber = false;
        const double speed = id.toDouble(&isNumber);
        this->model().set(QStringLiteral("voiceSpeed"), isNumber && std::isfinite(speed) ? speed : fallbackSpeed);
    });
    const auto pick = [this](ChoiceSetting &setting, const char *key) {
        connect(&setting, &ChoiceSetting::asked, this,
                [this, key](const QString &id) { this->model().set(QString::fromLatin1(key), id); });
    };
    pick(m_fishModel, "fishModel");
    pick(m_systemVoice, "fallbackVoice");
}

void VoiceScreen::updateAll() {
    updateOptions();
    updateSettings();
}

void VoiceScreen::updateOptions() {
    const auto &options = model().options();
    m_fishModel.offer(options ? plainChoices(options->fishModels) : std::vector<Choice>());
    m_systemVoice.offer(options ? plainChoices(options->macVoices) : std::vector<Choice>());
}

void VoiceScreen::updateSettings() {
    const auto *now = settings();
    const auto plain = [this, now](QString Snapshot::Settings::*field, QStringView key) {
        return ChoiceSetting::Shown{
            .value = now ? now->*field : absent, .selected = now ? now->*field : QString(), .isBusy = isApplying(key)};
    };
    m_voice.show(now ? std::optional(now->voiceId) : std::nullopt);
    m_name.show(now ? std::optional(now->voiceName) : std::nullopt);
    m_speed.show({.value = now ? Format::speed(now->voiceSpeed) : absent,
                  .selected = now ? speedId(now->voiceSpeed) : QString(),
                  .isBusy = isApplying(u"voiceSpeed")});
    m_fishModel.show(plain(&Snapshot::Settings::fishModel, u"fishModel"));
    m_systemVoice.show(plain(&Snapshot::Settings::fallbackVoice, u"fallbackVoice"));
}

} // namespace palomet
