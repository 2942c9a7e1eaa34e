// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The five settings, which take effect at once and are stored by Save, and the tool.
Rectangle {
    id: root

    readonly property SettingsPresenter settings: Presenters.settings

    property ToolPresenter tool

    // The settings that a notice may lead to.
    readonly property alias cookiesBrowser: browser
    readonly property alias downloadDir: folder.field

    color: Theme.primaryAt(0.03)
    implicitHeight: rows.height + 28 + divider.height

    Column {
        id: rows

        spacing: 14
        width: root.width - 2 * Theme.margin
        x: Theme.margin
        y: 14

        FolderRow {
            id: folder

            settings: root.settings
            width: parent.width
        }

        // They wrap where the desktop's font is wide.
        Flow {
            spacing: 26
            width: parent.width - x
            x: folder.indent

            Row {
                spacing: 8

                SettingCaption {
                    icon: "clock.arrow.circlepath"
                    text: "History"
                }

                MenuPicker {
                    currentIndex: root.settings.historyIndex
                    label: "History"
                    model: root.settings.historyLabels
                    objectName: "historyLimit"
                    width: 90

                    onChosen: index => root.settings.historyIndex = index
                }
            }

            Row {
                spacing: 8

                SettingCaption {
                    icon: "speedometer"
                    text: "Speed"
                }

                MenuPicker {
                    currentIndex: root.settings.speedIndex
                    label: "Speed"
                    model: root.settings.speedLabels
                    objectName: "speedLimit"
                    width: 110

                    onChosen: index => root.settings.speedIndex = index
                }
            }

            Row {
                spacing: 8

                SettingCaption {
                    icon: "bell.fill"
                    text: "Notifications"
                }

                SwitchControl {
                    anchors.verticalCenter: parent.verticalCenter
                    checked: root.settings.notificationsEnabled
                    label: "Notifications"
                    objectName: "notifications"

                    onToggled: root.settings.notificationsEnabled = checked
                }
            }

            Row {
                spacing: 8

                SettingCaption {
                    icon: "globe"
                    text: "Cookies"
                }

                MenuPicker {
                    id: browser

                    currentIndex: root.settings.browserIndex
                    help: "Browser whose cookies yt-dlp uses to authenticate with YouTube"
                    label: "Cookies"
                    model: root.settings.browserLabels
                    objectName: "cookiesBrowser"
                    width: 90

                    onChosen: index => root.settings.browserIndex = index
                }
            }
        }

        ToolRow {
            tool: root.tool
            visible: root.tool
            width: parent.width - x
            x: folder.indent
        }
    }

    Divider {
        id: divider

        anchors.bottom: parent.bottom
        width: parent.width
    }
}
