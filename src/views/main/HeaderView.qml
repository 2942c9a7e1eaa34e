// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The program's mark and name, and the buttons for appearance and settings.
Item {
    id: root

    required property Appearance appearance

    function leaveSettings() {
        Presenters.settings.isShown = false;
        settings.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitHeight: row.height + 26 + divider.height

    Item {
        id: row

        anchors.left: parent.left
        anchors.leftMargin: Theme.margin
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        height: 32
        y: 13

        Rectangle {
            id: mark

            anchors.verticalCenter: parent.verticalCenter
            height: 28
            radius: 14
            width: 28

            gradient: Gradient {
                GradientStop {
                    color: Theme.markTop
                    position: 0
                }

                GradientStop {
                    color: Theme.markBottom
                    position: 1
                }
            }

            SymbolIcon {
                anchors.centerIn: parent
                color: Theme.overAccent
                size: 14
                symbol: "arrow.down.circle.fill"
            }
        }

        PlainText {
            anchors.left: mark.right
            anchors.leftMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            font.weight: Font.DemiBold
            size: 17
            text: "Quillon"

            Accessible.role: Accessible.Heading
        }

        HeaderIconButton {
            anchors.right: settings.left
            anchors.rightMargin: 10
            help: "Toggle theme"
            symbol: root.appearance.themeIcon
            objectName: "toggleTheme"

            onClicked: root.appearance.cycle()
        }

        HeaderIconButton {
            id: settings

            anchors.right: parent.right
            help: "Settings"
            symbol: isActive ? "gearshape.fill" : "gearshape"
            isActive: Presenters.settings.isShown
            objectName: "settings"

            Accessible.checkable: true
            Accessible.checked: isActive

            onClicked: Presenters.settings.isShown = !isActive
        }
    }

    Divider {
        id: divider

        anchors.bottom: parent.bottom
        width: parent.width
    }
}
