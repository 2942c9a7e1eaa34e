// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A symbol and a text side by side, centred; either may be missing.
Item {
    id: root

    property color color: Theme.primary
    property bool busy: false
    property int iconSize: 12
    property bool semibold: false
    property int size: 13
    property int spacing: 6
    property string symbol
    property string text

    implicitHeight: Math.max(label.implicitHeight, iconSize)
    implicitWidth: row.implicitWidth

    Row {
        id: row

        anchors.centerIn: parent
        spacing: root.spacing

        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            color: root.color
            size: root.iconSize
            visible: root.busy
        }

        SymbolIcon {
            anchors.verticalCenter: parent.verticalCenter
            color: root.color
            size: root.iconSize
            symbol: root.symbol
            visible: root.symbol !== "" && !root.busy
        }

        Text {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            color: root.color
            font.pixelSize: root.size
            font.weight: root.semibold ? Font.DemiBold : Font.Normal
            text: root.text
            textFormat: Text.PlainText
            visible: text !== ""

            Accessible.ignored: true
        }
    }
}
