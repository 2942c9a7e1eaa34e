// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// One finished download. For Tab, its buttons count only while the keyboard is at
// this row.
FocusScope {
    id: root

    required property string title
    required property string thumbnailURL
    required property string symbol
    required property string date
    required property string details
    required property bool canReveal
    required property int index

    readonly property bool isHovered: hover.hovered
    readonly property bool isCurrent: GridView.isCurrentItem

    signal revealed
    signal refetched

    Accessible.focusable: true
    Accessible.focused: face.activeFocus
    Accessible.name: title + ", " + date + ", " + details
    Accessible.role: Accessible.ListItem

    HoverHandler {
        id: hover
    }

    Rectangle {
        anchors.fill: parent
        color: root.isHovered || root.activeFocus ? Theme.primaryAt(0.06) : "transparent"
        radius: Theme.radius
    }

    Item {
        id: face

        anchors.fill: parent
        focus: true

        Keys.onReturnPressed: root.canReveal ? root.revealed() : root.refetched()
        Keys.onSpacePressed: root.canReveal ? root.revealed() : root.refetched()

        FocusRing {
            gap: -2
            shown: face.activeFocus
        }
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

        PlainText {
            font.weight: Font.Medium
            text: root.title
            width: parent.width

            Accessible.ignored: true
        }

        PlainText {
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
