// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Why the download has failed, to be read and copied.
Rectangle {
    id: root

    required property DownloadSectionPresenter section

    // What leaves keeps its text until it has left.
    property string text

    Binding on text {
        restoreMode: Binding.RestoreNone
        value: root.section.failure
        when: root.section.failure !== ""
    }

    border.color: Theme.at(Theme.red, 0.25)
    color: Theme.at(Theme.red, 0.07)
    implicitHeight: Math.max(label.height, copy.height) + 20
    radius: Theme.radius

    Accessible.name: text
    Accessible.role: Accessible.AlertMessage

    SelectableText {
        id: label

        anchors.left: parent.left
        anchors.leftMargin: 14 - padding
        anchors.right: copy.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        maximumLineCount: 3
        objectName: "failureText"
        text: root.text
    }

    PushButton {
        id: copy

        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        objectName: "copyFailure"
        text: "Copy"

        onClicked: Clipboard.copy(root.text)
    }
}
