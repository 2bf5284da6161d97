#include "ui/screens/ListeningScreen.h"

#include "localization/Localization.h"

namespace palomet {

using namespace Qt::StringLiterals;

ListeningScreen::ListeningScreen(PalometModel &model, Shortcuts &shortcuts, const KeyboardLayout &layout)
    : Screen(model)
    , m_shortcuts(shortcuts)
    , m_listenShortcut(KeyRecorder::Role::Listen, shortcuts, layout)
    , m_stopShortcut(KeyRecorder::Role::Stop, shortcuts, layout) {
    follow(&PalometModel::hotKeyProblemChanged, [this] { updateProblem(); });
    follow(&PalometModel::optionsChanged, [this] { updateTranscription(); });
    follow(&PalometModel::inLevelChanged, [this] { Q_EMIT levelChanged(); });
    connect(&m_echo, &Setting::changed, this,
            [this] { m_echo.setHintKey(m_echo.isOn() ? "listening.echo.on" : "listening.echo.off"); });
    connect(&shortcuts, &Shortcuts::grantableChanged, this, &ListeningScreen::keysNoteChanged);
    // One at a time: both take every key.
    connect(&m_listenShortcut, &KeyRecorder::started, &m_stopShortcut, &KeyRecorder::stop);
    connect(&m_stopShortcut, &KeyRecorder::started, &m_listenShortcut, &KeyRecorder::stop);
}

QString ListeningScreen::keysNote() const {
    return m_shortcuts.isGrantable() ? QString() : L("listening.keysByCommand");
}

QString ListeningScreen::minutes(double ms) {
    constexpr double minute = 60'000;
    return format::number(ms / minute, {.least = 0, .most = 1}) + u" min"_s;
}

void ListeningScreen::updateAll() {
    updateProblem();
    updateTranscription();
    Q_EMIT levelChanged();
}

void ListeningScreen::becameInactive() {
    m_listenShortcut.stop();
    m_stopShortcut.stop();
}

void ListeningScreen::updateTranscription() {
    const auto &options = model().options();
    const bool knowsPhrasesOnly = options && options->whisperModels == std::vector{u"pocketsphinx"_s};
    m_transcription.setHintKey(knowsPhrasesOnly ? "listening.transcription.phrases" : "listening.transcription.hint");
}

void ListeningScreen::updateProblem() {
    m_listenShortcut.setProblem(model().hotKeyProblem());
}

} // namespace palomet
