// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A bar over the picture that is clicked, dragged or moved by keys.
T.Slider {
    id: root

    // Its value while nobody moves it, and a second mark.
    property real current: 0
    property real mark: from
    property string name
    // What an arrow key adds; a stepSize would also round the mouse's position.
    property real keyStep: 1

    function nudge(by: real) {
        value = Math.max(from, Math.min(to, value + by));
        moved();
    }

    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    implicitHeight: 32
    implicitWidth: 80
    leftPadding: 6
    rightPadding: 6

    Accessible.name: name
    Keys.onLeftPressed: nudge(-keyStep)
    Keys.onRightPressed: nudge(keyStep)

    Binding on value {
        restoreMode: Binding.RestoreNone
        // A value beyond the end would be cut off, and stay so when the end moves.
        value: Math.min(root.to, root.current)
        when: !root.pressed
    }

    background: Rectangle {
        color: Theme.at(Theme.overAccent, 0.35)
        height: 4
        radius: 2
        width: root.availableWidth
        x: root.leftPadding
        y: (root.height - height) / 2

        Rectangle {
            color: Theme.at(Theme.overAccent, 0.35)
            height: parent.height
            radius: 2
            width: parent.width * Math.max(0, Math.min(1, (root.mark - root.from) / Math.max(0.001, root.to - root.from)))
        }

        Rectangle {
            color: Theme.overAccent
            height: parent.height
            radius: 2
            width: parent.width * root.visualPosition
        }
    }
    handle: Rectangle {
        color: Theme.overAccent
        height: width
        radius: width / 2
        width: root.pressed || root.hovered || root.visualFocus ? 14 : 12
        x: root.leftPadding + root.visualPosition * root.availableWidth - width / 2
        y: (root.height - height) / 2
    }

    FocusRing {
        innerRadius: 6
        shown: root.visualFocus
    }
}
