// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// One result of a search.
ListRow {
    id: root

    required property string title
    required property string uploader
    required property string duration
    required property string thumbnailURL
    required property bool isNowPlaying
    required property string url

    onMenuAsked: commands = [
        {
            text: isNowPlaying ? "Stop" : "Play",
            run: () => activated()
        },
        {
            text: "Download MP4",
            run: () => downloaded(false)
        },
        {
            text: "Download MP3",
            run: () => downloaded(true)
        },
        ...VideoCommands.ofVideo(title, url)
    ]
    required property statusLook video
    required property statusLook audio

    texts: [titleText, uploaderText]

    signal downloaded(isAudio: bool)

    Accessible.description: uploader + (uploader !== "" && duration !== "" ? ", " : "") + duration
    Accessible.name: title
    Accessible.selectable: true
    Accessible.selected: isNowPlaying

    Rectangle {
        anchors.fill: parent
        color: root.isNowPlaying ? Theme.at(Theme.accentFill, 0.12) : Theme.primaryAt(0.05)
        radius: Theme.radius
        visible: root.isNowPlaying || root.isHovered || root.activeFocus
        z: -1
    }

    Item {
        id: number

        anchors.verticalCenter: parent.verticalCenter
        height: 20
        width: 26
        x: 8

        PlainText {
            anchors.centerIn: parent
            color: Theme.secondary
            size: 12
            text: root.index + 1
            visible: !root.isNowPlaying

            Accessible.ignored: true
        }

        SymbolIcon {
            anchors.centerIn: parent
            color: Theme.accent
            size: 14
            symbol: "waveform"
            visible: root.isNowPlaying
        }
    }

    ThumbnailView {
        id: thumbnail

        anchors.left: number.right
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        height: 54
        placeholder: "play.rectangle.fill"
        placeholderWhileLoading: true
        url: root.thumbnailURL
        width: 96

        BaseButton {
            id: play

            anchors.centerIn: parent
            activeFocusOnTab: false
            help: root.isNowPlaying ? "Stop" : "Play"
            implicitHeight: 34
            implicitWidth: 34
            objectName: "play" + root.index
            ringRadius: 17
            visible: root.isHovered || root.isNowPlaying || root.activeFocus

            onClicked: root.activated()
            onDoubleClicked: {} // whose second click would stop it again

            background: Rectangle {
                color: Theme.badge
                radius: 17
            }
            contentItem: Item {
                SymbolIcon {
                    anchors.centerIn: parent
                    color: Theme.overAccent
                    size: 18
                    symbol: root.isNowPlaying ? "stop.fill" : "play.fill"
                }
            }
        }
    }

    Column {
        anchors.left: thumbnail.right
        anchors.leftMargin: 12
        anchors.right: buttons.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        ElidedText {
            id: titleText

            font.weight: Font.Medium
            objectName: "rowTitle"
            text: root.title
            width: parent.width

            Accessible.ignored: true
        }

        Row {
            spacing: 12

            ElidedText {
                id: uploaderText

                color: Theme.secondary
                size: 12
                text: root.uploader
                visible: text !== ""
                width: Math.min(implicitWidth, root.width / 3)

                Accessible.ignored: true
            }

            IconLabel {
                color: Theme.secondary
                size: 12
                spacing: 4
                symbol: "clock"
                text: root.duration
                visible: root.duration !== ""
            }
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        spacing: 10

        BrowseDownloadButton {
            isAudio: false
            isTabStop: root.isCurrent
            label: "MP4"
            objectName: "video" + root.index
            look: root.video

            onClicked: root.downloaded(false)
        }

        BrowseDownloadButton {
            isAudio: true
            isTabStop: root.isCurrent
            label: "MP3"
            objectName: "audio" + root.index
            look: root.audio

            onClicked: root.downloaded(true)
        }
    }
}
