// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A symbol and a text that is elided; it may be pressed with the pointer.
Item {
    id: root

    property color color: Theme.secondary
    property bool pressable: false
    property string symbol
    property string text
    property string whole: text

    readonly property alias label: label

    signal pressed

    implicitHeight: label.implicitHeight

    SymbolIcon {
        id: icon

        anchors.verticalCenter: parent.verticalCenter
        color: root.color
        size: 12
        symbol: root.symbol
        visible: root.symbol !== ""
    }

    ElidedText {
        id: label

        objectName: "line"
        color: root.color
        font.underline: hover.hovered && root.pressable
        size: 12
        text: root.text
        whole: root.whole
        width: Math.min(implicitWidth, root.width - x)
        x: icon.visible ? icon.width + 5 : 0

        Accessible.ignored: true

        HoverHandler {
            id: hover

            cursorShape: root.pressable ? Qt.PointingHandCursor : Qt.ArrowCursor
        }

        TapHandler {
            enabled: root.pressable

            onTapped: root.pressed()
        }
    }
}
