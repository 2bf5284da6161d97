#pragma once

#include "ui/screens/ChoiceSetting.h"
#include "ui/screens/KeyRecorder.h"
#include "ui/screens/SwitchSetting.h"
#include "ui/screens/TextSetting.h"

namespace palomet {

/// How the system listens: what the listening pane shows and what it sends. The two shortcuts edit the local store;
/// everything else is the backend's.
class ListeningScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(palomet::SettingGroup *hearing READ hearing CONSTANT FINAL)
    Q_PROPERTY(palomet::SettingGroup *calling READ calling CONSTANT FINAL)
    Q_PROPERTY(palomet::SettingGroup *times READ times CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *microphone READ microphone CONSTANT FINAL)
    Q_PROPERTY(palomet::KeyRecorder *listenShortcut READ listenShortcut CONSTANT FINAL)
    Q_PROPERTY(palomet::KeyRecorder *stopShortcut READ stopShortcut CONSTANT FINAL)
    /// What is left where the desktop grants keys to no program; else empty.
    Q_PROPERTY(QString keysNote READ keysNote NOTIFY keysNoteChanged FINAL)
    /// The microphone's level, while the screen can be seen.
    Q_PROPERTY(double level READ level NOTIFY levelChanged FINAL)

public:
    /// The store and the layout outlive the screen.
    ListeningScreen(PalometModel &model, Shortcuts &shortcuts, const KeyboardLayout &layout);

    [[nodiscard]] SettingGroup *hearing() { return &m_hearing; }
    [[nodiscard]] SettingGroup *calling() { return &m_calling; }
    [[nodiscard]] SettingGroup *times() { return &m_times; }
    [[nodiscard]] ChoiceSetting *microphone() { return &m_microphone; }
    [[nodiscard]] KeyRecorder *listenShortcut() { return &m_listenShortcut; }
    [[nodiscard]] KeyRecorder *stopShortcut() { return &m_stopShortcut; }
    [[nodiscard]] QString keysNote() const;
    [[nodiscard]] double level() const { return model().inLevel(); }

Q_SIGNALS:
    void levelChanged();
    void keysNoteChanged();

protected:
    void updateAll() override;
    void becameInactive() override;

private:
    using Settings = Snapshot::Settings;
    using Content = Setting::Content;

    [[nodiscard]] static QString minutes(double ms);
    void updateProblem();
    /// A recogniser that knows phrases only says how to get a better one.
    void updateTranscription();

    const Shortcuts &m_shortcuts;

    SettingGroup m_hearing{*this, "listening.micBlock"};
    SwitchSetting m_echo{m_hearing, {"listening.echo", "listening.echo.off"}, &Settings::isEchoCancelOn};
    ChoiceSetting m_microphone{m_hearing, "listening.microphone",
                               names(&Settings::inputDevice, "device.systemDefault", &Options::inputs, &format::device),
                               Content::LongName};
    ChoiceSetting m_transcription{m_hearing, "listening.transcription",
                                  names(&Settings::whisperModel, &Options::whisperModels), Content::LongName};

    SettingGroup m_calling{*this, "listening.callBlock"};
    SwitchSetting m_directed{m_calling, "listening.directed", &Settings::isDirectedOn};
    SwitchSetting m_draft{m_calling, "listening.draft", &Settings::isDraftOn};
    TextSetting m_actionPhrase{m_calling,
                               {"listening.actionPhrase", "listening.actionPhrase.hint", "default.actionPhrase"},
                               textList(&Settings::actionPhrases),
                               Content::LongName};
    ChoiceSetting m_draftAge{
        m_calling, "listening.draftAge",
        durations(&Settings::draftMaxAgeMs, 600'000, {300'000, 600'000, 1'200'000, 1'800'000, 3'600'000}, &minutes),
        Content::Number};
    TextSetting m_names{m_calling, "listening.name", textList(&Settings::wakeWords), Content::Line};
    KeyRecorder m_listenShortcut;
    KeyRecorder m_stopShortcut;

    // Deliberately few, and uneven: each is a choice that somebody would make.
    SettingGroup m_times{*this, "listening.timesBlock"};
    ChoiceSetting m_endSilence{
        m_times, "listening.endSilence",
        durations(&Settings::endSilenceMs, defaultEndSilenceMs, {800, 1'200, 1'600, 2'000, 2'500}), Content::Number};
    ChoiceSetting m_followUp{m_times, "listening.followUp",
                             durations(&Settings::followUpMs, {15'000, 30'000, 45'000, 60'000, 90'000, 120'000}),
                             Content::Number};
    ChoiceSetting m_summon{m_times, "listening.summon",
                           durations(&Settings::summonMs, {4'000, 6'000, 8'000, 10'000, 15'000, 20'000}),
                           Content::Number};
    ChoiceSetting m_echoGuard{m_times, "listening.echoGuard",
                              durations(&Settings::echoGuardMs, {0, 500, 800, 1'200, 1'500, 2'000}), Content::Number};
};

} // namespace palomet
