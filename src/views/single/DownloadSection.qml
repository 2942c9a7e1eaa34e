// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon
import Quillon.Shared

// Starts, pauses and shows the download of single mode.
Column {
    id: root

    property bool keyboardIsHere: false
    property bool awaitsGrowth: false

    spacing: 14

    // Whoever starts a download sees it run.
    onHeightChanged: {
        if (awaitsGrowth)
            Pages.reveal(root);
        awaitsGrowth = false;
    }

    DownloadSectionModel {
        id: section
    }

    // The keyboard stays where the work goes on: a button that goes or is disabled
    // would take it along. Where it goes is known when all have changed.
    Timer {
        id: leavePause

        interval: 0

        onTriggered: (section.isDone ? show : download).forceActiveFocus(Qt.TabFocusReason)
    }

    Connections {
        function onChanged() {
            if (root.keyboardIsHere && section.isDownloading)
                pause.forceActiveFocus(Qt.TabFocusReason);
            root.keyboardIsHere = false;
        }

        target: section
    }

    Connections {
        function onIsDownloadingChanged() {
            root.awaitsGrowth = AppState.isDownloading;
        }

        target: AppState
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

                busy: section.isDownloading
                enabled: !section.isDisabled
                height: parent.height
                objectName: "download"
                prominent: true
                symbol: "arrow.down.circle.fill"
                text: section.buttonLabel

                onClicked: {
                    root.keyboardIsHere = visualFocus;
                    section.download();
                }
            }

            Reveal {
                shown: section.isDownloading

                PushButton {
                    id: pause

                    height: actions.height
                    x: actions.gap
                    help: section.pauseHelp
                    iconSize: 14
                    objectName: "pause"
                    symbol: section.pauseIcon
                    tint: section.isPaused ? Theme.green : Theme.orange

                    onActiveFocusChanged: if (!activeFocus && !section.isDownloading)
                        leavePause.start()
                    onClicked: section.togglePause()
                }
            }

            Reveal {
                shown: section.isDone

                PushButton {
                    id: show

                    height: actions.height
                    x: actions.gap
                    objectName: "showInFinder"
                    symbol: "folder.fill"
                    text: "Show in Finder"

                    onClicked: section.showInFinder()
                }
            }
        }

        Reveal {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            shown: section.chipText !== ""
            width: chip.width

            StatusChip {
                id: chip

                objectName: "statusChip"

                // What it says stays until it has left.
                Binding on icon {
                    restoreMode: Binding.RestoreNone
                    value: section.chipIcon
                    when: section.chipText !== ""
                }
                Binding on text {
                    restoreMode: Binding.RestoreNone
                    value: section.chipText
                    when: section.chipText !== ""
                }
                Binding on tone {
                    restoreMode: Binding.RestoreNone
                    value: Theme.tone(section.chipTone)
                    when: section.chipText !== ""
                }
            }
        }
    }

    Item {
        height: title.implicitHeight
        visible: section.showsRunLine
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

            text: section.runLineTitle
            width: Math.min(implicitWidth, parent.width - x - count.implicitWidth - 10)
            x: note.width + 8
        }

        PlainText {
            id: count

            anchors.left: title.right
            anchors.leftMargin: 10
            color: Theme.accent
            objectName: "runCount"
            text: section.runLineCount
        }
    }

    DownloadProgressBar {
        model: section
        visible: section.showsProgress
        width: parent.width
    }

    ProcessingBar {
        visible: section.showsProcessing
        width: parent.width
    }
}
