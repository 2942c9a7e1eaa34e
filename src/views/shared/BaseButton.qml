// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// What all buttons have in common: mouse, keyboard, screen reader, tooltip and focus
// ring. Derived buttons bring background and content.
T.AbstractButton {
    id: root

    // The tooltip; it names a button that shows no text.
    property string help
    property int ringRadius: Theme.radius
    property bool showsRing: visualFocus

    // Hidden buttons take no keys. Late, for the sake of those who move the focus on.
    Binding on focus {
        delayed: true
        restoreMode: Binding.RestoreNone
        value: false
        when: !root.visible
    }

    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding

    // In words, since Qt 6.4 does not report that a control is disabled.
    Accessible.description: enabled ? "" : "Unavailable"
    Accessible.name: text !== "" ? text : help

    Accessible.onPressAction: if (enabled)
        root.clicked()
    Keys.forwardTo: [behavior]

    ButtonBehavior {
        id: behavior

        button: root
        help: root.help
        ringRadius: root.ringRadius
        showsRing: root.showsRing
    }
}
