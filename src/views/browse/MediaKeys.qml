// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation

// The keyboard's media keys, where the desktop leaves them to the window.
Item {
    id: root

    required property PlayerPanelPresenter panel

    enabled: panel.isPresent

    Shortcut {
        context: Qt.ApplicationShortcut
        enabled: root.enabled
        sequences: ["Media Play", "Toggle Media Play/Pause"]

        onActivated: root.panel.player.togglePause()
    }

    Shortcut {
        context: Qt.ApplicationShortcut
        enabled: root.enabled
        sequences: ["Media Pause"]

        onActivated: root.panel.player.pause()
    }

    Shortcut {
        context: Qt.ApplicationShortcut
        enabled: root.enabled
        sequences: ["Media Stop"]

        onActivated: root.panel.stop()
    }

    Shortcut {
        context: Qt.ApplicationShortcut
        enabled: root.enabled
        sequences: ["Media Next"]

        onActivated: root.panel.playNext()
    }

    Shortcut {
        context: Qt.ApplicationShortcut
        enabled: root.enabled
        sequences: ["Media Previous"]

        onActivated: root.panel.playPrevious()
    }
}
