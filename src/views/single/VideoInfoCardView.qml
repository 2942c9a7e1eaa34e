// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// One video: its picture, title, uploader and duration.
Card {
    id: root

    required property videoInfo info

    readonly property SingleModePresenter mode: Presenters.singleMode

    activeFocusOnTab: true
    implicitHeight: Math.max(thumbnail.height, facts.height) + 32
    objectName: "videoCard"

    Accessible.focusable: true
    Accessible.name: info.title
    Accessible.role: Accessible.Grouping

    Keys.onPressed: event => menu.handleKey(event)

    ContextArea {
        id: menu

        onAsked: commands = VideoCommands.ofVideo(root.info.title, root.info.originalURL)
    }

    HelpTip {
        text: titleText.cutText + (titleText.cutText !== "" && uploader.cutText !== "" ? "\n" : "") + uploader.cutText
        wanted: root.activeFocus
    }

    FocusRing {
        shown: root.activeFocus
    }

    ThumbnailView {
        id: thumbnail

        duration: root.info.formattedDuration
        height: 118
        objectName: "videoThumbnail"
        url: root.info.thumbnailURL
        width: 210
        x: 16
        y: 16
    }

    Column {
        id: facts

        anchors.left: thumbnail.right
        anchors.leftMargin: 16
        anchors.right: parent.right
        anchors.rightMargin: 16
        spacing: 8
        y: 16

        ElidedText {
            id: titleText

            font.weight: Font.DemiBold
            maximumLineCount: 4
            objectName: "videoTitle"
            size: 15
            text: root.info.title
            width: parent.width
            wrapMode: Text.Wrap

            Accessible.role: Accessible.Heading
        }

        InfoRow {
            id: uploader

            icon: "person.circle.fill"
            objectName: "videoUploader"
            text: root.info.uploader
            visible: text !== ""
            width: parent.width
        }

        InfoRow {
            icon: "clock.fill"
            objectName: "videoDuration"
            text: root.info.formattedDuration
            visible: text !== ""
            width: parent.width
        }

        Row {
            spacing: 6
            visible: root.mode.known !== ""

            InfoRow {
                anchors.verticalCenter: parent.verticalCenter
                icon: "checkmark.circle.fill"
                objectName: "known"
                text: root.mode.known
                width: implicitWidth
            }

            TextButton {
                anchors.verticalCenter: parent.verticalCenter
                objectName: "revealKnown"
                text: "Show in Finder"
                visible: root.mode.knownPath !== ""

                onClicked: Presenters.links.reveal(root.mode.knownPath)
            }
        }
    }
}
