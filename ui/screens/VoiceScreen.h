#pragma once

#include "ui/screens/ChoiceSetting.h"
#include "ui/screens/TextSetting.h"

namespace palomet {

/// How the system speaks: what the voice pane shows and what it sends.
class VoiceScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(palomet::SettingGroup *online READ online CONSTANT FINAL)
    Q_PROPERTY(palomet::SettingGroup *offline READ offline CONSTANT FINAL)

public:
    explicit VoiceScreen(PalometModel &model);

    [[nodiscard]] SettingGroup *online() { return &m_online; }
    [[nodiscard]] SettingGroup *offline() { return &m_offline; }

    /// Has the voice say something, as it is set.
    Q_INVOKABLE void sample() { model().sample(); }

private:
    using Settings = Snapshot::Settings;
    using Content = Setting::Content;

    [[nodiscard]] static Choices speeds();

    SettingGroup m_online{*this, "Fish Audio"};
    TextSetting m_voice{m_online, "voice.voice", plainText(&Settings::voiceId), Content::Line};
    TextSetting m_name{m_online, "voice.name", plainText(&Settings::voiceName), Content::LongName};
    ChoiceSetting m_speed{m_online, {"voice.speed", ""}, speeds(), Content::Number};
    ChoiceSetting m_fishModel{m_online, "voice.model", names(&Settings::fishModel, &Options::fishModels),
                              Content::Name};

    SettingGroup m_offline{*this, "voice.offlineBlock"};
    ChoiceSetting m_systemVoice{m_offline, "voice.macVoice", names(&Settings::fallbackVoice, &Options::macVoices),
                                Content::Name};
};

} // namespace palomet
