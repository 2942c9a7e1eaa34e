// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Says how the queue is filled.
Column {
    bottomPadding: 40
    objectName: "emptyQueue"
    spacing: 8
    topPadding: 48

    SymbolIcon {
        anchors.horizontalCenter: parent.horizontalCenter
        color: Theme.at(Theme.secondary, 0.7)
        size: 36
        symbol: "tray"
    }

    PlainText {
        anchors.horizontalCenter: parent.horizontalCenter
        font.weight: Font.DemiBold
        size: 15
        text: "Queue is empty"
        topPadding: 4

        Accessible.role: Accessible.Heading
    }

    PlainText {
        anchors.horizontalCenter: parent.horizontalCenter
        color: Theme.secondary
        text: "Paste a URL above and click \"Add to Queue\""
    }
}
