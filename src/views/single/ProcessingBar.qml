// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Shows that the tool is working when its progress is unknown.
Rectangle {
    id: root

    border.color: Theme.at(Theme.orange, 0.2)
    border.width: 1
    color: Theme.at(Theme.orange, 0.06)
    implicitHeight: column.height + 28
    objectName: "processingBar"
    radius: Theme.radius

    Accessible.name: label.text
    Accessible.role: Accessible.ProgressBar

    Column {
        id: column

        spacing: 10
        width: parent.width - 28
        x: 14
        y: 14

        PlainText {
            id: label

            color: Theme.secondary
            text: "Post-processing with ffmpeg..."

            Accessible.ignored: true
        }

        Rectangle {
            id: track

            clip: true
            color: Theme.at(Theme.orange, 0.15)
            height: 6
            radius: 3
            width: parent.width

            Rectangle {
                id: runner

                color: Theme.orange
                height: parent.height
                radius: parent.radius
                width: Theme.animates ? track.width / 4 : track.width

                NumberAnimation on x {
                    duration: 1400
                    easing.type: Easing.InOutQuad
                    from: -track.width / 4
                    loops: Animation.Infinite
                    running: root.visible && Theme.animates
                    to: track.width
                }
            }
        }
    }
}
