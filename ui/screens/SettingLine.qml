pragma ComponentBehavior: Bound
import QtQuick
import Palomet.Kit
import Palomet.Ui

// A setting: its words, and the control of its kind.
SettingRow {
    id: root

    required property Setting modelData
    readonly property SwitchSetting toggle: modelData as SwitchSetting
    readonly property ChoiceSetting choice: modelData as ChoiceSetting
    readonly property TextSetting line: modelData as TextSetting
    readonly property int boxWidth: Zen.boxWidths[modelData.content]

    title: modelData.title
    hint: modelData.hint

    When {
        holds: true
        delegate: root.toggle ? turn : root.choice ? select : field
        // A press on the words turns a switch.
        onItemAdded: (_, item) => root.buddy = item as ZenSwitch
    }
    Component {
        id: turn

        ZenSwitch {
            anchors.verticalCenter: parent?.verticalCenter
            name: root.title
            description: root.hint
            stateText: Words.t(isOn ? "switch.on" : "switch.off")
            isOn: root.toggle.isOn
            onToggled: isOn => root.toggle.toggle(isOn)
        }
    }
    Component {
        id: select

        ZenSelect {
            width: root.boxWidth
            name: root.title
            description: root.hint
            value: root.choice.value
            valueElide: root.choice.content === Setting.Path ? Text.ElideMiddle : Text.ElideRight
            choices: root.choice.choices
            selected: root.choice.selected
            isBusy: root.choice.isBusy
            busyText: Words.t("select.applying")
            onPicked: id => root.choice.pick(id)
        }
    }
    Component {
        id: field

        ZenTextField {
            id: typed

            width: root.boxWidth
            name: root.title
            description: root.hint
            placeholder: root.line.placeholder
            value: root.line.text
            isBusy: root.line.isBusy
            busyText: Words.t("select.applying")
            menu: menu
            onCommitted: text => root.line.commit(text)

            FieldMenu {
                id: menu

                input: typed.input
            }
        }
    }
}
