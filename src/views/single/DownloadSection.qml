// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Starts, pauses and shows the download of single mode.
Column {
    id: root

    readonly property DownloadSectionPresenter section: Presenters.downloadSection

    property bool keyboardIsHere: false
    property bool awaitsGrowth: false
    readonly property bool isDownloading: section.isDownloading

    spacing: 14

    onIsDownloadingChanged: awaitsGrowth = isDownloading

    // A download comes into view when it is started.
    onHeightChanged: {
        if (awaitsGrowth)
            Pages.reveal(root);
        awaitsGrowth = false;
    }

    // The focus moves along with the work, since a button that goes or is disabled would
    // lose it. Where to is known once everything has changed.
    Timer {
        id: leaveRun

        interval: 0

        onTriggered: (root.section.isDone ? show : download).forceActiveFocus(Qt.TabFocusReason)
    }

    Connections {
        function onChanged() {
            if (root.keyboardIsHere && root.isDownloading)
                pause.forceActiveFocus(Qt.TabFocusReason);
            root.keyboardIsHere = false;
        }

        target: root.section
    }

    Divider {
        opacity: 0.6
        width: parent.width
    }

    Item {
        height: 34
        width: parent.width

        Row {
            id: actions

            readonly property real gap: 10

            height: parent.height

            PushButton {
                id: download

                busy: root.isDownloading
                enabled: !root.section.isDisabled
                height: parent.height
                objectName: "download"
                prominent: true
                symbol: "arrow.down.circle.fill"
                text: root.section.buttonLabel

                onClicked: {
                    root.keyboardIsHere = visualFocus;
                    root.section.download();
                }
            }

            Reveal {
                shown: root.isDownloading

                PushButton {
                    id: pause

                    height: actions.height
                    x: actions.gap
                    help: root.section.pauseHelp
                    iconSize: 14
                    objectName: "pause"
                    symbol: root.section.pauseIcon
                    tint: root.section.isPaused ? Theme.green : Theme.orange

                    onActiveFocusChanged: if (!activeFocus && !root.isDownloading)
                        leaveRun.start()
                    onClicked: root.section.togglePause()
                }

                PushButton {
                    anchors.left: pause.right
                    anchors.leftMargin: actions.gap
                    height: actions.height
                    help: "Stop download"
                    iconSize: 14
                    objectName: "stop"
                    symbol: "stop.fill"
                    tint: Theme.red

                    onActiveFocusChanged: if (!activeFocus && !root.isDownloading)
                        leaveRun.start()
                    onClicked: root.section.stop()
                }
            }

            Reveal {
                shown: root.section.isDone

                PushButton {
                    id: show

                    height: actions.height
                    x: actions.gap
                    objectName: "showInFinder"
                    symbol: "folder.fill"
                    text: "Show in Finder"

                    onClicked: root.section.reveal()
                }
            }
        }

        Reveal {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            shown: root.section.chip.text !== ""
            width: chip.width

            StatusChip {
                id: chip

                objectName: "statusChip"

                // Its text stays until it has left.
                Binding on look {
                    restoreMode: Binding.RestoreNone
                    value: root.section.chip
                    when: root.section.chip.text !== ""
                }
            }
        }
    }

    Item {
        height: title.implicitHeight
        visible: root.section.showsRunLine
        width: parent.width

        SymbolIcon {
            id: note

            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            size: 12
            symbol: "music.note.list"
        }

        LineText {
            id: title

            text: root.section.runLineTitle
            width: Math.min(implicitWidth, parent.width - x - count.implicitWidth - 10)
            x: note.width + 8
        }

        PlainText {
            id: count

            anchors.left: title.right
            anchors.leftMargin: 10
            color: Theme.accent
            objectName: "runCount"
            text: root.section.runLineCount
        }
    }

    Reveal {
        shown: root.section.failure !== ""
        slides: true
        width: parent.width

        FailureNote {
            objectName: "failure"
            section: root.section
            width: root.width
        }
    }

    DownloadProgressBar {
        section: root.section
        visible: root.section.showsProgress
        width: parent.width
    }

    ProcessingBar {
        visible: root.section.showsProcessing
        width: parent.width
    }
}
