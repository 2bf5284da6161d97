import QtQuick
import Palomet.Kit
import Palomet.Ui

// A setting that is on or off.
SettingRow {
    id: root

    required property SwitchSetting setting

    title: setting.title
    hint: setting.hint
    buddy: control

    ZenSwitch {
        id: control

        anchors.verticalCenter: parent.verticalCenter
        name: root.setting.title
        description: root.setting.hint
        stateText: Words.t(isOn ? "switch.on" : "switch.off")
        isOn: root.setting.isOn
        onToggled: isOn => root.setting.toggle(isOn)
    }
}
