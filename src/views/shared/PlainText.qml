// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Literal text: a title with "<b>" in it is shown with "<b>". One line unless wrapped.
Text {
    property int size: 13

    color: Theme.primary
    elide: Text.ElideRight
    horizontalAlignment: Text.AlignLeft // even for right-to-left text
    font.pixelSize: size
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
