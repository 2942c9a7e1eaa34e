// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Quillon.Shared

// What every button here has in common: mouse, keyboard, screen reader, tooltip
// and focus ring. Its face is the background and content of the ones that build
// on it.
T.AbstractButton {
    id: root

    // The tooltip; it names a button that shows no text.
    property string help
    property int ringRadius: Theme.radius

    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding

    Accessible.checkable: checkable
    Accessible.checked: checked
    Accessible.name: text !== "" ? text : help
    Accessible.role: Accessible.Button
    ToolTip.delay: 600
    ToolTip.text: help
    ToolTip.visible: help !== "" && hovered && !pressed

    Accessible.onPressAction: if (enabled)
        root.clicked()
    Keys.onEnterPressed: event => {
        if (!event.isAutoRepeat)
            root.clicked();
    }
    Keys.onReturnPressed: event => {
        if (!event.isAutoRepeat)
            root.clicked();
    }

    FocusRing {
        innerRadius: root.ringRadius
        shown: root.visualFocus
    }
}
