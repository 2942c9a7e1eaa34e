// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// One finished download.
ListRow {
    id: root

    required property string title
    required property string thumbnailURL
    required property string symbol
    required property string date
    required property string details
    required property bool canReveal
    required property string url
    required property string path

    onMenuAsked: commands = [...VideoCommands.ofFile(path), {
            text: "Fetch again",
            run: () => refetched()
        }, ...VideoCommands.ofVideo(title, url), {
            text: "Remove from history",
            run: () => removed()
        }]

    texts: [titleText, detailsText]

    signal revealed
    signal refetched

    Accessible.name: title + ", " + date + ", " + details

    onActivated: if (canReveal)
        revealed()

    Rectangle {
        anchors.fill: parent
        color: Theme.primaryAt(0.06)
        radius: Theme.radius
        visible: root.isHovered || root.activeFocus
        z: -1
    }

    ThumbnailView {
        id: thumbnail

        anchors.verticalCenter: parent.verticalCenter
        height: 36
        placeholder: root.symbol
        placeholderWhileLoading: true
        radius: 6
        url: root.thumbnailURL
        width: 64
        x: 10
    }

    Column {
        anchors.left: thumbnail.right
        anchors.leftMargin: 12
        anchors.right: actions.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        ElidedText {
            id: titleText

            font.weight: Font.Medium
            objectName: "rowTitle"
            text: root.title
            width: parent.width

            Accessible.ignored: true
        }

        ElidedText {
            id: detailsText

            color: Theme.secondary
            size: 11
            text: root.date + "  ·  " + root.details
            width: parent.width

            Accessible.ignored: true
        }
    }

    Row {
        id: actions

        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12

        RowActionButton {
            isTabStop: root.isCurrent
            help: "Show in Finder"
            symbol: "folder"
            objectName: "reveal" + root.index
            visible: root.canReveal

            onClicked: root.revealed()
        }

        RowActionButton {
            isTabStop: root.isCurrent
            help: "Re-fetch"
            symbol: "arrow.clockwise"
            objectName: "refetch" + root.index

            onClicked: root.refetched()
        }
    }
}
