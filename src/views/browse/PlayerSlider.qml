// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A bar over the picture that is clicked, dragged or moved by keys.
T.Slider {
    id: root

    // Where it stands while nobody moves it, and a second mark.
    property real current: 0
    property real mark: from
    property string name
    // What an arrow key adds; a stepSize would also round the mouse's position.
    property real keyStep: 1

    // What is shown. The value itself rests while the keyboard is here, since a screen reader
    // speaks each of its changes then.
    readonly property real place: pressed ? value : Math.min(to, current)

    function fraction(value: real): real {
        return Math.max(0, Math.min(1, (value - from) / Math.max(0.001, to - from)));
    }

    function nudge(by: real) {
        value = Math.max(from, Math.min(to, place + by));
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
        when: !root.pressed && !root.activeFocus
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
            width: parent.width * root.fraction(root.mark)
        }

        Rectangle {
            color: Theme.overAccent
            height: parent.height
            radius: 2
            width: parent.width * root.fraction(root.place)
        }
    }
    handle: Rectangle {
        color: Theme.overAccent
        height: width
        radius: width / 2
        width: root.pressed || root.hovered || root.visualFocus ? 14 : 12
        x: root.leftPadding + root.fraction(root.place) * root.availableWidth - width / 2
        y: (root.height - height) / 2
    }

    FocusRing {
        innerRadius: 6
        shown: root.visualFocus
    }
}
