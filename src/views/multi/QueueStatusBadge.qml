// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The status of an entry as a small picture.
Item {
    id: root

    required property statusLook look

    readonly property bool isRunning: look.kind === StatusKind.Downloading || look.kind === StatusKind.Paused
    readonly property color tone: Theme.tone(look.tone)

    implicitHeight: 22
    implicitWidth: paused.visible ? paused.implicitWidth : 22

    SymbolIcon {
        anchors.centerIn: parent
        color: root.tone
        size: 16
        symbol: root.look.symbol
        visible: symbol !== ""
    }

    Spinner {
        anchors.centerIn: parent
        color: root.tone
        size: 16
        visible: root.look.kind === StatusKind.Fetching
    }

    ProgressRing {
        anchors.centerIn: parent
        color: root.tone
        height: 20
        objectName: "ring"
        progress: root.look.progress
        trackColor: Theme.primaryAt(0.1)
        visible: root.look.kind === StatusKind.Downloading
        width: 20
    }

    PlainText {
        id: paused

        anchors.centerIn: parent
        color: root.tone
        font.weight: Font.DemiBold
        size: 12
        text: root.look.text
        visible: root.look.kind === StatusKind.Paused

        Accessible.ignored: true
    }

    Accessible.ignored: !isRunning
    Accessible.name: look.text
    Accessible.role: Accessible.ProgressBar
}
