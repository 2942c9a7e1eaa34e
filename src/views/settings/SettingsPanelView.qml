// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon
import Quillon.Shared

// The five settings, which count at once and are kept by Save, and the tool.
Rectangle {
    id: root

    property ToolModel tool

    color: Theme.primaryAt(0.03)
    implicitHeight: rows.height + 28 + divider.height

    SettingsModel {
        id: settings
    }

    Column {
        id: rows

        spacing: 14
        width: root.width - 2 * Theme.margin
        x: Theme.margin
        y: 14

        FolderRow {
            settings: settings
            width: parent.width
        }

        Item {
            height: 28
            width: parent.width

            Row {
                anchors.left: parent.left
                spacing: 8

                SettingCaption {
                    icon: "clock.arrow.circlepath"
                    text: "History"
                }

                MenuPicker {
                    currentIndex: settings.historyIndex
                    label: "History"
                    model: settings.historyLabels
                    objectName: "historyLimit"
                    width: 90

                    onChosen: index => settings.historyIndex = index
                }
            }

            Row {
                spacing: 8
                x: (parent.width - width) * 0.31

                SettingCaption {
                    icon: "speedometer"
                    text: "Speed"
                }

                MenuPicker {
                    currentIndex: settings.speedIndex
                    label: "Speed"
                    model: settings.speedLabels
                    objectName: "speedLimit"
                    width: 110

                    onChosen: index => settings.speedIndex = index
                }
            }

            Row {
                spacing: 8
                x: (parent.width - width) * 0.67

                SettingCaption {
                    icon: "bell.fill"
                    text: "Notifications"
                }

                SwitchControl {
                    anchors.verticalCenter: parent.verticalCenter
                    checked: AppState.notificationsEnabled
                    label: "Notifications"
                    objectName: "notifications"

                    onToggled: AppState.notificationsEnabled = checked
                }
            }

            Row {
                anchors.right: parent.right
                spacing: 8

                SettingCaption {
                    icon: "globe"
                    text: "Cookies"
                }

                MenuPicker {
                    currentIndex: settings.browserIndex
                    help: "Browser whose cookies yt-dlp uses to authenticate with YouTube"
                    label: "Cookies"
                    model: settings.browserLabels
                    objectName: "cookiesBrowser"
                    width: 90

                    onChosen: index => settings.browserIndex = index
                }
            }
        }

        ToolRow {
            tool: root.tool
            visible: root.tool
            width: parent.width
        }
    }

    Divider {
        id: divider

        anchors.bottom: parent.bottom
        width: parent.width
    }
}
