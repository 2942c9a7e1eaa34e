// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A tooltip below its parent, inside the window.
T.ToolTip {
    id: root

    readonly property HelpTip tip: parent as HelpTip
    readonly property bool offersCopy: tip?.offersCopy ?? false
    readonly property real widest: 420

    bottomMargin: 6
    bottomPadding: 5
    closePolicy: offersCopy ? T.Popup.NoAutoClose : T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent
    delay: 600
    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: contentWidth + leftPadding + rightPadding
    leftMargin: 6
    leftPadding: 9
    objectName: "tip"
    text: tip?.text ?? ""
    rightMargin: 6
    rightPadding: 9
    topMargin: 6
    topPadding: 5
    visible: true
    x: ((parent?.width ?? 0) - implicitWidth) / 2
    y: (parent?.height ?? 0) + 6

    background: Rectangle {
        border.color: Theme.outline
        color: Theme.card
        radius: Theme.smallRadius
    }
    contentItem: Column {
        spacing: 4

        PlainText {
            maximumLineCount: 30
            size: 12
            text: root.text
            visible: text !== ""
            width: Math.min(implicitWidth, root.widest - root.leftPadding - root.rightPadding)
            wrapMode: Text.Wrap
        }

        Row {
            spacing: 4
            visible: root.offersCopy

            TextButton {
                focusPolicy: Qt.NoFocus
                objectName: "copyTip"
                text: "Copy"

                onClicked: root.tip.copied()
            }

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.secondary
                size: 12
                text: "Ctrl+C"
            }
        }
    }
}
