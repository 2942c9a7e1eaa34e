// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A small fact: a symbol and a text in one colour.
Row {
    id: root

    property string icon
    property string text
    property color color: Theme.secondary

    spacing: 4

    SymbolIcon {
        anchors.verticalCenter: parent.verticalCenter
        color: root.color
        size: 10
        symbol: root.icon
    }

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        color: root.color
        font.weight: Font.Medium
        size: 11
        text: root.text
    }
}
