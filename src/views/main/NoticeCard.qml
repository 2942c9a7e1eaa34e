// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// One notice: what there is to say, how far it is, and what can be done about it.
SlotCard {
    id: root

    required property NoticePresenter notices

    entry: action.visible ? action : copy.visible ? copy : dismiss
    implicitHeight: column.height + 24
    objectName: "notice"

    Accessible.name: "Notice"

    NumberAnimation on opacity {
        duration: Theme.calm
        from: 0
        to: 1
    }

    Column {
        id: column

        spacing: 10
        width: root.width - 28
        x: 14
        y: 12

        Item {
            height: Math.max(label.implicitHeight, buttons.height)
            width: parent.width

            Spinner {
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.secondary
                size: 15
                visible: root.notices.isBusy
            }

            SymbolIcon {
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.tone(root.notices.tone)
                size: 15
                symbol: root.notices.symbol
                visible: !root.notices.isBusy
            }

            ElidedText {
                id: label

                anchors.left: parent.left
                anchors.leftMargin: 27
                anchors.right: buttons.left
                anchors.rightMargin: 14
                anchors.verticalCenter: parent.verticalCenter
                isStop: true
                maximumLineCount: 4
                objectName: "noticeText"
                text: root.notices.text
                wrapMode: Text.Wrap

                // The alert says it already; an update's text keeps changing.
                Accessible.ignored: !root.notices.isBusy
            }

            Row {
                id: buttons

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                spacing: 8

                PushButton {
                    id: action

                    objectName: "noticeAction"
                    prominent: true
                    text: root.notices.actionText
                    visible: text !== ""

                    onClicked: root.acted()
                    // The focus stays in the notice when this goes.
                    onVisibleChanged: if (!visible && focus)
                        dismiss.forceActiveFocus(focusReason)
                }

                PushButton {
                    id: dismiss

                    objectName: "noticeDismiss"
                    text: root.notices.dismissText

                    onClicked: root.notices.dismiss()
                }
            }
        }

        Item {
            height: copy.height
            visible: root.notices.command !== ""
            width: parent.width

            Rectangle {
                anchors.left: parent.left
                anchors.leftMargin: 27
                anchors.right: copy.left
                anchors.rightMargin: 8
                color: Theme.primaryAt(0.05)
                height: parent.height
                radius: Theme.buttonRadius

                PlainText {
                    anchors.left: parent.left
                    anchors.leftMargin: 10
                    anchors.right: parent.right
                    anchors.rightMargin: 10
                    anchors.verticalCenter: parent.verticalCenter
                    font.family: "monospace"
                    objectName: "noticeCommand"
                    size: 12
                    text: root.notices.command
                }
            }

            PushButton {
                id: copy

                anchors.right: parent.right
                objectName: "noticeCopy"
                text: root.notices.copyText
                visible: root.notices.command !== ""

                onClicked: root.notices.copyCommand()
            }
        }

        ProgressLine {
            progress: root.notices.progress
            visible: root.notices.isBusy
            width: parent.width
        }
    }
}
