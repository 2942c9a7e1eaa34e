// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// What a button does apart from its appearance: tooltip, focus ring, and Return as well
// as Space. It lies over the button, which forwards its keys here.
Item {
    id: root

    required property T.AbstractButton button
    property alias help: tip.text
    property alias ringRadius: ring.innerRadius
    property alias showsRing: ring.shown

    function press(event: KeyEvent) {
        if (!event.isAutoRepeat)
            button.clicked();
    }

    anchors.fill: parent

    Keys.onEnterPressed: event => press(event)
    Keys.onReturnPressed: event => press(event)

    HelpTip {
        id: tip

        wanted: root.button.hovered && !root.button.pressed
    }

    FocusRing {
        id: ring
    }
}
