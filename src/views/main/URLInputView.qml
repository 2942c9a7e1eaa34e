// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon
import Quillon.Shared

// The mode switch, the field and its button, and under them the choice that a
// mixed address offers.
FocusScope {
    id: root

    required property ModeModel modeModel

    implicitHeight: row.height + 12 + (input.showsMixedBar ? mixed.height + 8 + 6 : 12)

    function takeText(text: string) {
        input.take(text);
    }

    URLInputModel {
        id: input
    }

    Item {
        id: row

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        height: Theme.controlHeight
        y: 12

        SegmentedControl {
            id: modes

            anchors.verticalCenter: parent.verticalCenter
            currentIndex: root.modeModel.currentIndex
            labels: root.modeModel.labels
            width: 180

            Accessible.name: "Mode"

            onSelected: index => root.modeModel.currentIndex = index
        }

        URLField {
            id: field

            anchors.left: modes.right
            anchors.leftMargin: 12
            anchors.right: action.left
            anchors.rightMargin: 12
            focus: true
            height: parent.height
            icon: input.fieldIcon
            placeholder: input.placeholder
            text: input.currentURL

            onAccepted: input.handleSubmit()
            onCleared: input.clearURL()
            onEdited: text => input.edit(text)
        }

        PushButton {
            id: action

            anchors.right: parent.right
            busy: input.isBusy
            enabled: input.canSubmit
            height: parent.height
            iconSize: 12
            objectName: "submit"
            prominent: true
            symbol: input.buttonIcon
            text: input.buttonLabel

            // Disabled, it would keep the keyboard nowhere.
            onClicked: {
                const byKeyboard = visualFocus;
                input.handleSubmit();
                if (byKeyboard && !enabled)
                    field.forceActiveFocus(Qt.TabFocusReason);
            }
        }
    }

    Loader {
        id: mixed

        active: input.showsMixedBar
        anchors.left: row.left
        anchors.right: row.right
        anchors.top: row.bottom
        anchors.topMargin: 8

        source: "MixedURLBar.qml"

        // What goes with the bar must not take the keyboard's place with it.
        onActiveChanged: if (!active && focus)
            field.focus = true
    }
}
