#include "ui/screens/SwitchSetting.h"

#include "model/SettingKey.h"

namespace palomet {

SwitchSetting::SwitchSetting(SettingGroup &group, const Texts &texts, std::optional<bool> Snapshot::Settings::*member)
    : Setting(group, settingKey(member), texts, Content::Name)
    , m_member(member) {}

void SwitchSetting::update() {
    const auto *settings = model().settings();
    assign(m_isOn, settings && (settings->*m_member).value_or(false));
}

} // namespace palomet
