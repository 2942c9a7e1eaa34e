// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Stands for the download section, or for the one download of single mode while that is
// out of sight.
SlotCard {
    id: root

    readonly property ActionBarPresenter bar: Presenters.actionBar
    property int kind: ActionBarPresenter.Kind.Section
    readonly property DownloadSectionPresenter section: Presenters.downloadSection
    readonly property bool isRun: kind === ActionBarPresenter.Kind.Run

    readonly property string amount: section.showsProgress ? section.percent : section.chip.text

    // Kept while it leaves.
    Binding on kind {
        restoreMode: Binding.RestoreNone
        value: root.bar.kind
        when: root.bar.kind !== ActionBarPresenter.Kind.None
    }

    entry: !isRun && section.isDisabled && !section.isDownloading ? choice : buttons.entry
    implicitHeight: 58
    objectName: "downloadBar"

    Accessible.name: "Download actions"

    DownloadActions {
        id: buttons

        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        height: 34
        isBar: true
        next: root.isRun ? null : start
        offersStart: !root.isRun
        section: root.section
    }

    Item {
        anchors.bottom: buttons.bottom
        anchors.left: buttons.right
        anchors.leftMargin: 16
        anchors.right: choice.left
        anchors.rightMargin: 10
        anchors.top: buttons.top
        objectName: "barProgress"
        visible: root.section.isDownloading

        Accessible.description: root.section.description
        Accessible.name: root.section.runLine + ", " + root.amount
        Accessible.role: Accessible.ProgressBar

        ElidedText {
            height: parent.height - 10
            objectName: "barTitle"
            size: 12
            text: root.section.runLine
            width: parent.width - 70

            Accessible.ignored: true
        }

        PlainText {
            anchors.right: parent.right
            color: Theme.secondary
            height: parent.height - 10
            size: 12
            text: root.amount

            Accessible.ignored: true
        }

        ProgressLine {
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 4
            progress: root.section.progress
            visible: root.section.showsProgress
            width: parent.width
        }

        BaseButton {
            id: link

            anchors.fill: parent
            anchors.leftMargin: -6
            anchors.rightMargin: -6
            help: "Show download"
            objectName: "barLink"
            ringRadius: 6
            visible: root.isRun && root.bar.isElsewhere

            background: Rectangle {
                color: link.hovered ? Theme.primaryAt(0.06) : "transparent"
                radius: 6
            }

            onClicked: root.led()
        }
    }

    StatusChip {
        anchors.left: buttons.right
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        look: root.section.chip
        objectName: "barChip"
        visible: !root.section.isDownloading && text !== ""
    }

    TextButton {
        id: choice

        anchors.right: parent.right
        anchors.rightMargin: visible ? 8 : 0
        anchors.verticalCenter: parent.verticalCenter
        help: "Choose format and quality"
        objectName: "barChoice"
        text: root.bar.choice
        visible: !root.isRun
        width: visible ? implicitWidth : 0

        onClicked: root.choiceRequested()
    }
}
