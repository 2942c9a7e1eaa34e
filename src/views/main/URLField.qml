// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A text field with a leading symbol and a button that empties it.
FocusScope {
    id: root

    property string icon
    property string placeholder
    property string text
    property alias moreCommands: field.moreCommands
    readonly property bool urlFocused: field.activeFocus

    function selectAll() {
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.selectAll();
    }

    signal accepted
    signal menuAsked
    signal cleared
    signal edited(text: string)

    InputField {
        id: field

        anchors.fill: parent
        focus: true
        leftPadding: 32
        objectName: "urlField"
        placeholderText: root.placeholder
        radius: Theme.radius
        rightPadding: clear.visible ? 36 : 12
        text: root.text

        Accessible.name: root.placeholder

        onAccepted: root.accepted()
        onMenuAsked: root.menuAsked()
        onTextEdited: root.edited(text)
    }

    SymbolIcon {
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.secondary
        size: 12
        symbol: root.icon
    }

    BaseButton {
        id: clear

        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        enabled: root.text !== "" // not while it fades
        help: "Clear"
        implicitHeight: 22
        implicitWidth: 22
        objectName: "clearField"
        opacity: root.text !== "" ? 1 : 0
        ringRadius: 11
        visible: opacity > 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.brief
                easing.type: Easing.InOutQuad
            }
        }

        contentItem: Item {
            SymbolIcon {
                anchors.centerIn: parent
                color: Theme.at(Theme.secondary, clear.hovered ? 1 : 0.6)
                size: 14
                symbol: "xmark.circle.fill"
            }
        }

        onClicked: {
            root.cleared();
            field.forceActiveFocus();
        }
    }
}
