// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Text as it is: a title with "<b>" in it reads so. One line unless wrapped.
Text {
    property int size: 13

    color: Theme.primary
    elide: Text.ElideRight
    horizontalAlignment: Text.AlignLeft // also where the text runs from right to left
    font.pixelSize: size
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
