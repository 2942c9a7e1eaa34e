// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Starts, pauses and shows the download of single mode.
Column {
    id: root

    readonly property DownloadSectionPresenter section: Presenters.downloadSection

    readonly property alias actions: row
    readonly property alias entry: buttons.entry
    property bool awaitsGrowth: false
    readonly property bool isDownloading: section.isDownloading

    spacing: 14

    // A download comes into view when it is started, but not when it was started from afar.
    onIsDownloadingChanged: awaitsGrowth = isDownloading && Presenters.actionBar.sight === ActionBarPresenter.Sight.Shown

    onHeightChanged: {
        if (awaitsGrowth)
            Pages.reveal(root);
        awaitsGrowth = false;
    }

    Divider {
        opacity: 0.6
        width: parent.width
    }

    Item {
        id: row

        height: 34
        width: parent.width

        Row {
            height: parent.height

            DownloadActions {
                id: buttons

                height: parent.height
                next: root.section.isDone ? show : buttons.start
                section: root.section
            }

            Reveal {
                shown: root.section.isDone

                PushButton {
                    id: show

                    height: buttons.height
                    x: buttons.gap
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

        ElidedText {
            id: title

            isStop: true
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
