// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A button that consists of a word and brightens under the pointer.
BaseButton {
    id: root

    bottomPadding: 4
    leftPadding: 6
    rightPadding: 6
    ringRadius: 6
    topPadding: 4

    background: Rectangle {
        color: root.hovered ? Theme.primaryAt(0.06) : "transparent"
        radius: 6
    }
    contentItem: IconLabel {
        color: root.hovered ? Theme.primary : Theme.secondary
        size: 12
        text: root.text
    }
}
