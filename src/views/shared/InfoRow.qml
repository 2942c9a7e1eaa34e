// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A quiet line of a card: a symbol and a text.
Item {
    id: root

    property string icon
    property string text
    readonly property alias cutText: label.cutText

    implicitHeight: label.implicitHeight
    implicitWidth: label.x + label.implicitWidth

    SymbolIcon {
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.secondary
        size: 11
        symbol: root.icon
    }

    ElidedText {
        id: label

        color: Theme.secondary
        size: 12
        text: root.text
        width: Math.min(implicitWidth, root.width - x)
        x: 16
    }
}
