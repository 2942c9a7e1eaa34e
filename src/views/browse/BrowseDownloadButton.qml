// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Downloads a result as video or as sound, and shows how far that is.
BaseButton {
    id: root

    required property bool isAudio
    required property string label
    required property real progress
    required property string spoken
    required property string status

    property bool isTabStop: true

    readonly property bool isRunning: status === "downloading" || status === "processing"
    readonly property string symbol: {
        switch (status) {
        case "done":
            return "checkmark";
        case "failed":
            return "arrow.counterclockwise";
        default:
            return isAudio ? "music.note" : "film";
        }
    }

    Binding on activeFocusOnTab {
        delayed: true
        value: root.isTabStop
    }

    help: spoken !== "" ? spoken : isAudio ? "Download the sound" : "Download the video"
    implicitHeight: 28
    implicitWidth: 66
    ringRadius: Theme.buttonRadius

    Accessible.description: spoken
    Accessible.name: label

    background: Rectangle {
        border.color: Theme.primaryAt(0.12)
        color: Theme.card
        radius: Theme.buttonRadius

        Rectangle {
            anchors.fill: parent
            color: Theme.primaryAt(root.down ? 0.12 : root.hovered ? 0.06 : 0)
            radius: parent.radius
        }
    }
    contentItem: Item {
        IconLabel {
            anchors.centerIn: parent
            color: root.status === "done" ? Theme.green : root.status === "failed" ? Theme.red : Theme.primary
            size: 12
            symbol: root.symbol
            text: root.status === "done" || root.status === "failed" ? "" : root.label
            visible: !root.isRunning
        }

        ProgressRing {
            anchors.centerIn: parent
            color: Theme.accent
            height: 16
            objectName: "downloadRing"
            progress: root.progress
            trackColor: Theme.primaryAt(0.12)
            visible: root.isRunning
            width: 16
        }
    }
}
