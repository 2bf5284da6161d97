#pragma once

#include "ui/screens/Setting.h"

namespace palomet {

// Its base is named in full, for that is how the type descriptions that the lint reads name it.

/// A setting that is on or off. It is off where the backend leaves it out.
class SwitchSetting final : public palomet::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings come from their screen.")
    Q_PROPERTY(bool isOn READ isOn NOTIFY changed FINAL)

public:
    SwitchSetting(SettingGroup &group, const Texts &texts, std::optional<bool> Snapshot::Settings::*member);

    [[nodiscard]] bool isOn() const { return m_isOn; }
    Q_INVOKABLE void toggle(bool isOn) { model().set(key(), isOn); }

protected:
    void update() override;

private:
    std::optional<bool> Snapshot::Settings::*const m_member;
    bool m_isOn = false;
};

} // namespace palomet
