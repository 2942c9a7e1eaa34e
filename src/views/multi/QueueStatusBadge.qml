// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon.Shared

// How far an entry is, as a small picture.
Item {
    id: root

    required property string status
    required property real progress
    required property bool isPaused
    property string badge

    readonly property bool isDownloading: status === "downloading"
    // In words, for those who do not see it.
    readonly property string spoken: isDownloading && isPaused ? "Paused" : badge

    readonly property color tone: {
        switch (status) {
        case "downloading":
            return isPaused ? Theme.orange : Theme.accent;
        case "processing":
            return Theme.orange;
        case "done":
            return Theme.green;
        case "failed":
            return Theme.red;
        default:
            return Theme.secondary;
        }
    }
    readonly property string symbol: {
        switch (status) {
        case "waiting":
            return "circle.dotted";
        case "processing":
            return "gearshape.fill";
        case "done":
            return "checkmark";
        case "failed":
            return "xmark";
        default:
            return "";
        }
    }

    implicitHeight: 22
    implicitWidth: paused.visible ? paused.implicitWidth : 22

    SymbolIcon {
        anchors.centerIn: parent
        color: root.tone
        size: 16
        symbol: root.symbol
        visible: root.symbol !== ""
    }

    Spinner {
        anchors.centerIn: parent
        color: root.tone
        size: 16
        visible: root.status === "fetching"
    }

    ProgressRing {
        anchors.centerIn: parent
        color: root.tone
        height: 20
        objectName: "ring"
        progress: root.progress
        trackColor: Theme.primaryAt(0.1)
        visible: root.isDownloading && !root.isPaused
        width: 20
    }

    PlainText {
        id: paused

        anchors.centerIn: parent
        color: root.tone
        font.weight: Font.DemiBold
        size: 12
        text: "Paused"
        visible: root.isDownloading && root.isPaused

        Accessible.ignored: true
    }

    Accessible.ignored: !isDownloading
    Accessible.name: spoken
    Accessible.role: Accessible.ProgressBar
}
