// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A text field with a leading symbol and a button that empties it.
FocusScope {
    id: root

    property string icon
    property string placeholder
    property string text
    readonly property bool urlFocused: field.activeFocus

    signal accepted
    signal cleared
    signal edited(text: string)

    T.TextField {
        id: field

        anchors.fill: parent
        color: Theme.primary
        focus: true
        font.family: hint.fontInfo.family // without a style it would be the desktop's
        font.pixelSize: 13
        leftPadding: 32
        objectName: "urlField"
        placeholderText: root.placeholder
        placeholderTextColor: Theme.secondary
        rightPadding: clear.visible ? 36 : 12
        selectByMouse: true
        selectedTextColor: Theme.overAccent
        selectionColor: Theme.accentFill
        text: root.text
        verticalAlignment: TextInput.AlignVCenter

        Accessible.name: root.placeholder

        background: Rectangle {
            border.color: root.urlFocused ? Theme.at(Theme.accent, 0.7) : Theme.hairline
            border.pixelAligned: false
            border.width: root.urlFocused ? 1.5 : 1
            color: Theme.card
            radius: Theme.radius

            Behavior on border.width {
                NumberAnimation {
                    duration: Theme.brief
                    easing.type: Easing.InOutQuad
                }
            }
            Behavior on border.color {
                ColorAnimation {
                    duration: Theme.brief
                    easing.type: Easing.InOutQuad
                }
            }
        }

        onAccepted: root.accepted()
        onTextEdited: root.edited(text)

        PlainText {
            id: hint

            anchors.fill: parent
            anchors.leftMargin: field.leftPadding
            anchors.rightMargin: field.rightPadding
            color: field.placeholderTextColor
            text: field.placeholderText
            visible: field.length === 0 && field.preeditText === ""

            Accessible.ignored: true
        }
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
