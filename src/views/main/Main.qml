// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Presentation
import Quillon.Shared

// The one window.
T.ApplicationWindow {
    id: root

    required property QuillonApp app
    required property Appearance appearance
    // null without a tool keeper
    required property NoticePresenter notices
    required property ToolPresenter tool

    // The content's own minimum is 880 by 600; the menu bar comes on top.
    minimumHeight: 600 + (menuBar?.height ?? 0)
    minimumWidth: 880
    title: "Quillon"
    visible: true

    color: Theme.window
    // For the folder chooser used where the desktop has none of its own.
    palette: Theme.chooserPalette

    menuBar: AppMenuBar {
        app: root.app

        onAboutRequested: about.show()
    }

    onClosing: about.close()

    AboutWindowController {
        id: about

        version: root.app.versionText
    }

    ContentView {
        anchors.fill: parent
        appearance: root.appearance
        focus: true
        notices: root.notices
        tool: root.tool
    }

    Binding {
        property: "dark"
        target: Theme
        value: root.appearance.isDark
    }

    Binding {
        property: "animates"
        target: Theme
        value: !root.appearance.reducesMotion
    }

    Binding {
        property: "highContrast"
        target: Theme
        value: root.appearance.highContrast
    }

    Binding {
        property: "hasAccent"
        target: Theme
        value: root.appearance.hasAccent
    }

    Binding {
        property: "desktopAccentText"
        target: Theme
        value: root.appearance.accentText
    }

    Binding {
        property: "desktopAccentFill"
        target: Theme
        value: root.appearance.accentFill
    }
}
