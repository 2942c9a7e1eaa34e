// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A switch that is on or off.
T.Switch {
    id: root

    property string label

    hoverEnabled: true
    implicitHeight: 24 // easier to hit than what is drawn
    implicitWidth: 36

    Accessible.name: label

    Accessible.onPressAction: if (enabled)
        toggleByAssistant()
    Accessible.onToggleAction: if (enabled)
        toggleByAssistant()
    Keys.onEnterPressed: event => toggleByKey(event)
    Keys.onReturnPressed: event => toggleByKey(event)

    function toggleByAssistant() {
        toggle();
        toggled();
    }

    function toggleByKey(event: KeyEvent) {
        if (!event.isAutoRepeat)
            toggleByAssistant();
    }

    background: FocusRing {
        anchors.bottomMargin: anchors.margins + 2
        anchors.topMargin: anchors.margins + 2
        innerRadius: 10
        shown: root.visualFocus
    }
    indicator: Rectangle {
        color: root.checked ? Theme.accentFill : Theme.primaryAt(root.hovered ? 0.3 : 0.24)
        height: 20
        radius: 10
        width: 36
        y: 2

        Behavior on color {
            ColorAnimation {
                duration: Theme.brief
            }
        }

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.overAccent
            height: 16
            radius: 8
            width: 16
            x: 2 + root.visualPosition * 16

            Behavior on x {
                NumberAnimation {
                    duration: Theme.brief
                    easing.type: Easing.InOutQuad
                }
            }
        }
    }
}
