// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The status of the download in a word.
Rectangle {
    id: root

    property statusLook look
    property color tone: Theme.tone(look.tone)

    readonly property string text: look.text

    Behavior on tone {
        enabled: root.visible

        ColorAnimation {
            duration: Theme.calm
        }
    }

    border.color: Theme.at(tone, 0.25)
    border.width: 1
    color: Theme.at(tone, 0.1)
    implicitHeight: label.implicitHeight + 10
    implicitWidth: label.implicitWidth + 20
    radius: Theme.radius

    Accessible.name: text
    Accessible.role: Accessible.StaticText

    IconLabel {
        id: label

        anchors.centerIn: parent
        color: root.tone
        iconSize: 11
        size: 12
        symbol: root.look.symbol
        text: root.text
    }
}
