// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Downloads a result as video or as sound, and shows how far that is.
BaseButton {
    id: root

    required property bool isAudio
    required property string label
    required property statusLook look

    property bool isTabStop: true

    readonly property bool hasEnded: look.kind === StatusKind.Done || look.kind === StatusKind.Failed
    readonly property bool isRunning: look.kind === StatusKind.Downloading || look.kind === StatusKind.Processing
    readonly property string symbol: look.symbol

    Binding on activeFocusOnTab {
        delayed: true
        value: root.isTabStop
    }

    help: look.text !== "" ? look.text : isAudio ? "Download the sound" : "Download the video"
    implicitHeight: 28
    implicitWidth: 66
    ringRadius: Theme.buttonRadius

    Accessible.description: look.text
    Accessible.name: label

    background: Rectangle {
        border.color: Theme.outline
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
            color: Theme.tone(root.look.tone)
            size: 12
            symbol: root.symbol
            text: root.hasEnded ? "" : root.label
            visible: !root.isRunning
        }

        ProgressRing {
            anchors.centerIn: parent
            color: Theme.accent
            height: 16
            objectName: "downloadRing"
            progress: root.look.progress
            trackColor: Theme.primaryAt(0.12)
            visible: root.isRunning
            width: 16
        }
    }
}
