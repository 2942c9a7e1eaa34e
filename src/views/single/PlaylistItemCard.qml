// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon
import Quillon.Shared

// One entry of a playlist, to be selected or not.
BaseButton {
    id: root

    required property string title
    required property string thumbnailURL
    required property string duration
    required property bool isSelected
    required property string url
    required property bool isKnown

    property bool isTitleCut: false
    readonly property real thumbnailHeight: (width - 16) * 9 / 16

    bottomPadding: 8
    checkable: true
    checked: isSelected
    focusPolicy: Qt.ClickFocus // to Tab, the grid is one stop
    help: isTitleCut ? title : ""
    leftPadding: 8
    rightPadding: 8
    showsRing: activeFocus && focusReason !== Qt.MouseFocusReason
    topPadding: 8

    Accessible.checkable: true
    Accessible.checked: isSelected
    Accessible.focusable: true
    Accessible.name: isKnown ? title + ", downloaded" : title

    Accessible.onToggleAction: if (enabled)
        root.clicked()

    background: Rectangle {
        border.color: root.isSelected ? Theme.accent : Theme.hairline
        border.pixelAligned: false
        border.width: root.isSelected ? 1.5 : 0.5
        color: root.isSelected ? Theme.at(Theme.accent, 0.08) : Theme.primaryAt(0.08)
        radius: Theme.radius

        Rectangle {
            anchors.fill: parent
            color: Theme.primaryAt(root.down ? 0.08 : 0.04)
            radius: parent.radius
            visible: root.hovered
        }
    }
    HelpTip {
        text: root.help
        wanted: root.showsRing && !root.hovered
    }

    Keys.onPressed: event => menu.handleKey(event)

    ContextArea {
        id: menu

        onAsked: commands = [
            {
                text: root.isSelected ? "Deselect" : "Select",
                run: () => root.clicked()
            },
            ...VideoCommands.ofVideo(root.title, root.url)
        ]
    }

    contentItem: Item {
        ThumbnailView {
            duration: root.duration
            height: root.thumbnailHeight
            radius: 6
            url: root.thumbnailURL
            width: parent.width
        }

        SymbolIcon {
            color: Theme.shadow
            size: 18
            symbol: "circle"
            visible: !root.isSelected
            x: 5
            y: 6
        }

        Rectangle {
            color: Theme.overAccent
            height: 14
            radius: 7
            visible: root.isSelected
            width: 14
            x: 7
            y: 7
        }

        SymbolIcon {
            color: root.isSelected ? Theme.accentFill : Theme.at(Theme.overAccent, 0.85)
            size: 18
            symbol: root.isSelected ? "checkmark.circle.fill" : "circle"
            x: 5
            y: 5
        }

        Rectangle {
            color: Theme.green
            height: 16
            objectName: "known"
            radius: 8
            visible: root.isKnown
            width: 16
            x: parent.width - width - 6
            y: 6

            SymbolIcon {
                anchors.centerIn: parent
                color: Theme.card
                size: 10
                symbol: "checkmark"
            }
        }

        PlainText {
            maximumLineCount: 2
            size: 11
            text: root.title
            width: parent.width
            wrapMode: Text.Wrap
            y: root.thumbnailHeight + 6

            onTruncatedChanged: root.isTitleCut = truncated

            Accessible.ignored: true
        }
    }
}
