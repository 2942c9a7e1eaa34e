// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The mode switch, the field and its button, and under them the choice that a
// mixed URL offers.
FocusScope {
    id: root

    readonly property URLInputPresenter input: Presenters.urlInput

    required property ModePresenter mode

    implicitHeight: row.height + 12 + (root.input.showsMixedBar ? mixed.height + 8 + 6 : 12)

    function focusField() {
        field.selectAll();
    }

    function handleDrop(text: string) {
        root.input.take(text);
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
            currentIndex: root.mode.currentIndex
            labels: root.mode.labels
            width: 180

            Accessible.name: "Mode"

            onClicked: field.forceActiveFocus(Qt.OtherFocusReason)
            onSelected: index => root.mode.currentIndex = index
        }

        URLField {
            id: field

            anchors.left: modes.right
            anchors.leftMargin: 12
            anchors.right: action.left
            anchors.rightMargin: 12
            focus: true
            height: parent.height
            icon: root.input.fieldIcon
            placeholder: root.input.placeholder
            text: root.input.currentURL

            onAccepted: root.input.handleSubmit()
            onCleared: root.input.clearURL()
            onMenuAsked: moreCommands = [
                {
                    text: root.input.pasteLabel,
                    enabled: Clipboard.text() !== "",
                    run: () => root.input.pasteAndSubmit()
                }
            ]
            onEdited: text => root.input.edit(text)
        }

        PushButton {
            id: action

            anchors.right: parent.right
            busy: root.input.isBusy
            enabled: root.input.canSubmit
            height: parent.height
            iconSize: 12
            objectName: "submit"
            prominent: true
            symbol: root.input.buttonIcon
            text: root.input.buttonLabel

            // A disabled button would lose the focus.
            onClicked: {
                const byKeyboard = visualFocus;
                root.input.handleSubmit();
                if (byKeyboard && !enabled)
                    field.forceActiveFocus(Qt.TabFocusReason);
            }
        }
    }

    Loader {
        id: mixed

        active: root.input.showsMixedBar
        anchors.left: row.left
        anchors.right: row.right
        anchors.top: row.bottom
        anchors.topMargin: 8

        source: "MixedURLBar.qml"

        // What leaves with the bar must not take the focus along.
        onActiveChanged: if (!active && focus)
            field.focus = true
    }
}
