// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Turns in twelve steps rather than smoothly: it may turn for an hour, and every step
// costs a frame.
SymbolIcon {
    id: root

    symbol: "spinner"

    Timer {
        interval: 100
        repeat: true
        running: root.visible && Theme.animates && root.Window.visibility !== Window.Hidden && root.Window.visibility !== Window.Minimized

        onTriggered: root.rotation = (root.rotation + 30) % 360
    }
}
