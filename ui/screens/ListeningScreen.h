#pragma once

#include "ui/screens/KeyRecorder.h"
#include "ui/screens/Screen.h"
#include "ui/screens/Setting.h"

namespace palomet {

/// How the system listens: what the listening pane shows and what it sends. The two shortcuts edit the local store;
/// everything else is the backend's.
class ListeningScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(palomet::SwitchSetting *echo READ echo CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *microphone READ microphone CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *transcription READ transcription CONSTANT FINAL)
    Q_PROPERTY(palomet::SwitchSetting *directed READ directed CONSTANT FINAL)
    Q_PROPERTY(palomet::SwitchSetting *draft READ draft CONSTANT FINAL)
    Q_PROPERTY(palomet::TextSetting *actionPhrase READ actionPhrase CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *draftAge READ draftAge CONSTANT FINAL)
    Q_PROPERTY(palomet::TextSetting *names READ names CONSTANT FINAL)
    Q_PROPERTY(palomet::KeyRecorder *listenShortcut READ listenShortcut CONSTANT FINAL)
    Q_PROPERTY(palomet::KeyRecorder *stopShortcut READ stopShortcut CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *endSilence READ endSilence CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *followUp READ followUp CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *summon READ summon CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *echoGuard READ echoGuard CONSTANT FINAL)
    /// The microphone's level, while the screen can be seen.
    Q_PROPERTY(double level READ level NOTIFY levelChanged FINAL)

public:
    /// The store and the layout outlive the screen.
    ListeningScreen(PalometModel &model, Shortcuts &shortcuts, const KeyboardLayout &layout);

    [[nodiscard]] SwitchSetting *echo() { return &m_echo; }
    [[nodiscard]] ChoiceSetting *microphone() { return &m_microphone; }
    [[nodiscard]] ChoiceSetting *transcription() { return &m_transcription; }
    [[nodiscard]] SwitchSetting *directed() { return &m_directed; }
    [[nodiscard]] SwitchSetting *draft() { return &m_draft; }
    [[nodiscard]] TextSetting *actionPhrase() { return &m_actionPhrase; }
    [[nodiscard]] ChoiceSetting *draftAge() { return &m_draftAge; }
    [[nodiscard]] TextSetting *names() { return &m_names; }
    [[nodiscard]] KeyRecorder *listenShortcut() { return &m_listenShortcut; }
    [[nodiscard]] KeyRecorder *stopShortcut() { return &m_stopShortcut; }
    [[nodiscard]] ChoiceSetting *endSilence() { return &m_endSilence; }
    [[nodiscard]] ChoiceSetting *followUp() { return &m_followUp; }
    [[nodiscard]] ChoiceSetting *summon() { return &m_summon; }
    [[nodiscard]] ChoiceSetting *echoGuard() { return &m_echoGuard; }
    [[nodiscard]] double level() const { return model().inLevel(); }

Q_SIGNALS:
    void levelChanged();

protected:
    void updateAll() override;
    void becameInactive() override;

private:
    void updateOptions();
    void updateSettings();
    void updateProblem();

    SwitchSetting m_echo{"listening.echo", "listening.echo.off"};
    ChoiceSetting m_microphone{"listening.microphone", "listening.microphone.hint"};
    ChoiceSetting m_transcription{"listening.transcription", "listening.transcription.hint"};
    SwitchSetting m_directed{"listening.directed", "listening.directed.hint"};
    SwitchSetting m_draft{"listening.draft", "listening.draft.hint"};
    TextSetting m_actionPhrase{"listening.actionPhrase", "listening.actionPhrase.hint", "default.actionPhrase"};
    ChoiceSetting m_draftAge{"listening.draftAge", "listening.draftAge.hint"};
    TextSetting m_names{"listening.name", "listening.name.hint", "listening.name.placeholder"};
    KeyRecorder m_listenShortcut;
    KeyRecorder m_stopShortcut;
    ChoiceSetting m_endSilence{"listening.endSilence", "listening.endSilence.hint"};
    ChoiceSetting m_followUp{"listening.followUp", "listening.followUp.hint"};
    ChoiceSetting m_summon{"listening.summon", "listening.summon.hint"};
    ChoiceSetting m_echoGuard{"listening.echoGuard", "listening.echoGuard.hint"};
};

/// The words of a list that was typed with commas between them; empty pieces are none.
[[nodiscard]] QStringList wordsFrom(const QString &text);

} // namespace palomet
