// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Names the control beside it.
Row {
    id: root

    property string icon
    property string text

    height: 28
    spacing: 6

    SymbolIcon {
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.secondary
        size: 12
        symbol: root.icon
    }

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.secondary
        size: 12
        text: root.text

        Accessible.ignored: true
    }
}
