#include "ui/screens/ListeningScreen.h"

#include "localization/Localization.h"
#include "model/Format.h"
#include "ui/screens/TextSending.h"

#include <QJsonArray>

#include <array>

namespace palomet {

namespace {

// Deliberately few, and uneven: each is a choice that somebody would make.
constexpr std::array endSilences{0.8, 1.2, 1.6, 2.0, 2.5};
constexpr std::array followUps{15.0, 30.0, 45.0, 60.0, 90.0, 120.0};
constexpr std::array summons{4.0, 6.0, 8.0, 10.0, 15.0, 20.0};
constexpr std::array echoGuards{0.0, 0.5, 0.8, 1.2, 1.5, 2.0};
constexpr std::array draftAges{5, 10, 20, 30, 60};

constexpr double defaultEndSilenceMs = 1200;
constexpr double minuteMs = 60'000;
constexpr double defaultDraftAgeMs = 10 * minuteMs;

/// What stands where nothing is known.
const QString absent = QStringLiteral("\u2014");

QString minutes(double milliseconds) {
    return Format::number(milliseconds / minuteMs, {.least = 0, .most = 1}) + QStringLiteral(" min");
}

/// As the choices' ids are written; what is no whole number is none of them.
QString idOf(double milliseconds) {
    return QString::number(milliseconds, 'f', QLocale::FloatingPointShortest);
}

QString joined(const std::vector<QString> &words) {
    return QStringList(words.begin(), words.end()).join(QStringLiteral(", "));
}

} // namespace

QStringList wordsFrom(const QString &text) {
    QStringList words;
    for (const auto &piece : text.split(u',', Qt::SkipEmptyParts)) {
        // A piece of nothing but blanks is as empty as none.
        if (const auto word = piece.trimmed(); !word.isEmpty())
            words.append(word);
    }
    return words;
}

ListeningScreen::ListeningScreen(PalometModel &model, Shortcuts &shortcuts, const KeyboardLayout &layout)
    : Screen(model)
    , m_listenShortcut(KeyRecorder::Role::Listen, shortcuts, layout)
    , m_stopShortcut(KeyRecorder::Role::Stop, shortcuts, layout) {
    m_endSilence.offer(secondsChoices(endSilences));
    m_followUp.offer(secondsChoices(followUps));
    m_summon.offer(secondsChoices(summons));
    m_echoGuard.offer(secondsChoices(echoGuards));
    std::vector<Choice> ages;
    ages.reserve(draftAges.size());
    for (const int age : draftAges)
        ages.push_back({idOf(age * minuteMs), minutes(age * minuteMs)});
    m_draftAge.offer(std::move(ages));

    follow(&PalometModel::snapshotChanged, [this] { updateSettings(); });
    follow(&PalometModel::applyingChanged, [this] { updateSettings(); });
    follow(&PalometModel::optionsChanged, [this] { updateOptions(); });
    follow(&PalometModel::hotKeyProblemChanged, [this] { updateProblem(); });
    follow(&PalometModel::inLevelChanged, [this] { Q_EMIT levelChanged(); });

    const auto toggle = [this](SwitchSetting &setting, const char *key) {
        connect(&setting, &SwitchSetting::asked, this,
                [this, key](bool isOn) { this->model().set(QString::fromLatin1(key), isOn); });
    };
    toggle(m_echo, "isEchoCancelOn");
    toggle(m_directed, "isDirectedOn");
    toggle(m_draft, "isDraftOn");

    const auto pick = [this](ChoiceSetting &setting, const char *key) {
        connect(&setting, &ChoiceSetting::asked, this,
                [this, key](const QString &id) { this->model().set(QString::fromLatin1(key), id); });
    };
    pick(m_microphone, "inputDevice");
    pick(m_transcription, "whisperModel");

    const auto pickTime = [this](ChoiceSetting &setting, const char *key) {
        connect(&setting, &ChoiceSetting::asked, this,
                [this, key](const QString &id) { this->model().set(QString::fromLatin1(key), millisecondsFrom(id)); });
    };
    pickTime(m_draftAge, "draftMaxAgeMs");
    pickTime(m_endSilence, "endSilenceMs");
    pickTime(m_followUp, "followUpMs");
    pickTime(m_summon, "summonMs");
    pickTime(m_echoGuard, "echoGuardMs");

    // After what shows a snapshot, which may settle a text.
    const auto list = [](const QString &text) { return QJsonValue(QJsonArray::fromStringList(wordsFrom(text))); };
    new TextSending(model, m_actionPhrase, QStringLiteral("actionPhrases"), list, this);
    new TextSending(model, m_names, QStringLiteral("wakeWords"), list, this);

    // One at a time: both take every key.
    connect(&m_listenShortcut, &KeyRecorder::started, &m_stopShortcut, &KeyRecorder::stop);
    connect(&m_stopShortcut, &KeyRecorder::started, &m_listenShortcut, &KeyRecorder::stop);
}

void ListeningScreen::updateAll() {
    updateOptions();
    updateSettings();
    updateProblem();
    Q_EMIT levelChanged();
}

void ListeningScreen::becameInactive() {
    m_listenShortcut.stop();
    m_stopShortcut.stop();
}

void ListeningScreen::updateOptions() {
    std::vector<Choice> inputs;
    std::vector<Choice> models;
    if (const auto &options = model().options()) {
        for (const auto &name : options->inputs)
            inputs.push_back({name, Format::device(name)});
        models = plainChoices(options->whisperModels);
        const bool knowsPhrasesOnly = options->whisperModels == std::vector{QStringLiteral("pocketsphinx")};
        m_transcription.setHintKey(knowsPhrasesOnly ? "listening.transcription.phrases"
                                                    : "listening.transcription.hint");
    }
    m_microphone.offer(std::move(inputs));
    m_transcription.offer(std::move(models));
}

void ListeningScreen::updateSettings() {
    const auto *known = settings();
    const Snapshot::Settings none;
    const auto &now = known ? *known : none;
    const auto time = [this](std::optional<double> milliseconds, QStringView key) {
        return milliseconds ? ChoiceSetting::Shown{Format::seconds(*milliseconds), idOf(*milliseconds), isApplying(key)}
                            : ChoiceSetting::Shown{absent, {}, isApplying(key)};
    };
    const auto knownTime = [&](double milliseconds, QStringView key) {
        return time(known ? std::optional(milliseconds) : std::nullopt, key);
    };

    const bool isEchoOn = now.isEchoCancelOn.value_or(false);
    m_echo.show(isEchoOn);
    m_echo.setHintKey(isEchoOn ? "listening.echo.on" : "listening.echo.off");
    m_microphone.show({.value = !known            ? absent
                                : now.inputDevice ? Format::device(*now.inputDevice)
                                                  : L("device.systemDefault"),
                       .selected = now.inputDevice.value_or(QString()),
                       .isBusy = isApplying(u"inputDevice")});
    m_transcription.show({.value = known ? now.whisperModel : absent,
                          .selected = now.whisperModel,
                          .isBusy = isApplying(u"whisperModel")});
    m_directed.show(now.isDirectedOn.value_or(false));
    m_draft.show(now.isDraftOn.value_or(false));
    const auto text = [known](const QString &words) { return known ? std::optional(words) : std::nullopt; };
    m_actionPhrase.show(text(joined(now.actionPhrases.value_or(std::vector<QString>()))));
    const auto age = now.draftMaxAgeMs.value_or(defaultDraftAgeMs);
    m_draftAge.show({minutes(age), idOf(age), isApplying(u"draftMaxAgeMs")});
    m_names.show(text(joined(now.wakeWords)));
    m_endSilence.show(time(now.endSilenceMs.value_or(defaultEndSilenceMs), u"endSilenceMs"));
    m_followUp.show(knownTime(now.followUpMs, u"followUpMs"));
    m_summon.show(knownTime(now.summonMs, u"summonMs"));
    m_echoGuard.show(knownTime(now.echoGuardMs, u"echoGuardMs"));
}

void ListeningScreen::updateProblem() {
    m_listenShortcut.setProblem(model().hotKeyProblem());
}

} // namespace palomet
