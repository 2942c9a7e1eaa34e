// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// One entry of the queue.
ListRow {
    id: root

    required property string title
    required property string thumbnailURL
    required property string symbol
    required property string statusLine
    required property string statusText
    required property statusLook badge
    required property bool canReveal
    required property string url
    required property string path
    required message
    texts: [titleText, status.label]

    onMenuAsked: commands = [...VideoCommands.ofFile(path), ...VideoCommands.ofMessage(message), ...VideoCommands.ofVideo(title, url), {
            text: "Remove",
            run: () => removed()
        }]

    readonly property bool isDone: badge.kind === StatusKind.Done
    readonly property bool hasFailed: badge.kind === StatusKind.Failed

    signal revealed

    // The colour of the row tells how the download ended.
    function rowFill(opacity: real): color {
        if (isDone)
            return Theme.at(Theme.green, opacity);
        return hasFailed ? Theme.at(Theme.red, opacity) : "transparent";
    }

    Accessible.description: statusText !== statusLine ? statusText : ""
    Accessible.name: title + ", " + badge.text + (statusLine !== "" ? ", " + statusLine : "")

    onActivated: revealed()
    onMessageCopied: Clipboard.copy(message)

    Card {
        anchors.fill: parent
        z: -1

        Rectangle {
            anchors.fill: parent
            border.color: root.rowFill(0.25)
            color: root.rowFill(0.07)
            radius: parent.radius
        }
    }

    ThumbnailView {
        id: thumbnail

        anchors.verticalCenter: parent.verticalCenter
        height: 45
        placeholder: root.symbol
        radius: 6
        url: root.thumbnailURL
        width: 80
        x: 12
    }

    Column {
        anchors.left: thumbnail.right
        anchors.leftMargin: 12
        anchors.right: remove.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 3

        ElidedText {
            id: titleText

            font.weight: Font.Medium
            objectName: "rowTitle"
            text: root.title
            width: parent.width

            Accessible.ignored: true
        }

        IconText {
            id: status

            color: root.hasFailed ? Theme.red : Theme.secondary
            objectName: "statusLine"
            pressable: root.canReveal
            symbol: root.canReveal ? "folder.fill" : ""
            text: root.statusLine
            visible: text !== ""
            whole: root.statusText
            width: parent.width

            onPressed: root.revealed()
        }
    }

    RowActionButton {
        id: remove

        anchors.right: mark.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        help: "Remove"
        isTabStop: root.isCurrent
        objectName: "remove" + root.index
        symbol: "xmark.circle.fill"
        visible: root.isHovered || root.activeFocus

        onClicked: root.removed()
    }

    QueueStatusBadge {
        id: mark

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        look: root.badge
    }
}
