import QtQuick
import Palomet.Kit
import Palomet.Ui

// A setting that is one out of several.
SettingRow {
    id: root

    required property ChoiceSetting setting
    property int boxWidth: 200
    property int valueElide: Text.ElideRight

    title: setting.title
    hint: setting.hint

    ZenSelect {
        width: root.boxWidth
        name: root.setting.title
        description: root.setting.hint
        value: root.setting.value
        valueElide: root.valueElide
        choices: root.setting.choices
        selected: root.setting.selected
        isBusy: root.setting.isBusy
        busyText: Words.t("select.applying")
        onPicked: id => root.setting.pick(id)
    }
}
