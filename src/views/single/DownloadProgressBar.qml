// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The current file's progress, speed and remaining time.
Card {
    id: root

    required property DownloadSectionPresenter section

    implicitHeight: column.height + 28
    objectName: "progressBar"

    Accessible.description: section.description
    Accessible.name: "Download " + section.percent
    Accessible.role: Accessible.ProgressBar

    Column {
        id: column

        spacing: 10
        width: parent.width - 28
        x: 14
        y: 14

        Item {
            height: percent.implicitHeight
            width: parent.width

            PlainText {
                id: percent

                font.weight: Font.DemiBold
                objectName: "percent"
                size: 12
                text: root.section.percent
            }

            Row {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                opacity: root.section.isPaused ? 0.55 : 1 // they stand still
                spacing: 16

                MetaTag {
                    icon: "bolt.fill"
                    objectName: "speed"
                    text: root.section.speed
                    visible: text !== ""
                }

                MetaTag {
                    icon: "clock.fill"
                    objectName: "remaining"
                    text: root.section.remaining
                    visible: text !== ""
                }
            }
        }

        ProgressLine {
            height: 6
            progress: root.section.progress
            width: parent.width
        }
    }
}
