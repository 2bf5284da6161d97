#pragma once

#include "ui/screens/Screen.h"
#include "ui/screens/Setting.h"

namespace palomet {

/// How the system speaks: what the voice pane shows and what it sends.
class VoiceScreen final : public Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Screens come from the window.")
    Q_PROPERTY(palomet::TextSetting *voice READ voice CONSTANT FINAL)
    Q_PROPERTY(palomet::TextSetting *name READ name CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *speed READ speed CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *fishModel READ fishModel CONSTANT FINAL)
    Q_PROPERTY(palomet::ChoiceSetting *systemVoice READ systemVoice CONSTANT FINAL)

public:
    explicit VoiceScreen(PalometModel &model);

    [[nodiscard]] TextSetting *voice() { return &m_voice; }
    [[nodiscard]] TextSetting *name() { return &m_name; }
    [[nodiscard]] ChoiceSetting *speed() { return &m_speed; }
    [[nodiscard]] ChoiceSetting *fishModel() { return &m_fishModel; }
    [[nodiscard]] ChoiceSetting *systemVoice() { return &m_systemVoice; }

    /// Has the voice say something, as it is set.
    Q_INVOKABLE void sample() { model().sample(); }

protected:
    void updateAll() override;

private:
    void updateOptions();
    void updateSettings();

    TextSetting m_voice{"voice.voice", "voice.voice.hint", "voice.voice.placeholder"};
    TextSetting m_name{"voice.name", "voice.name.hint", "voice.name.placeholder"};
    ChoiceSetting m_speed{"voice.speed", ""};
    ChoiceSetting m_fishModel{"voice.model", "voice.model.hint"};
    ChoiceSetting m_systemVoice{"voice.macVoice", "voice.macVoice.hint"};
};

} // namespace palomet
