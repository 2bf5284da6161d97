import QtQuick
import Palomet.Kit
import Palomet.Ui

// A setting that is a line of text.
SettingRow {
    id: root

    required property TextSetting setting
    property int boxWidth: 240

    title: setting.title
    hint: setting.hint

    ZenTextField {
        id: field

        width: root.boxWidth
        name: root.setting.title
        description: root.setting.hint
        placeholder: root.setting.placeholder
        value: root.setting.text
        isBusy: root.setting.isBusy
        busyText: Words.t("select.applying")
        menu: menu
        onCommitted: text => root.setting.commit(text)

        FieldMenu {
            id: menu

            input: field.input
        }
    }
}
