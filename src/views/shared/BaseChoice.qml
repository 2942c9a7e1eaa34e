// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A button for one of several choices. Pressing it only emits the click: its user decides
// what is selected.
T.RadioButton {
    id: root

    property bool isSelected: false
    property int ringRadius: Theme.radius

    autoExclusive: false
    checkable: true
    checked: isSelected
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding

    Accessible.name: text

    Accessible.onPressAction: if (enabled)
        root.clicked()
    Accessible.onToggleAction: if (enabled)
        root.clicked()
    Keys.forwardTo: [behavior]
    // A press checks it by itself, which would end the binding's say.
    onToggled: checked = Qt.binding(() => root.isSelected)

    ButtonBehavior {
        id: behavior

        button: root
        ringRadius: root.ringRadius
        showsRing: root.visualFocus
    }
}
