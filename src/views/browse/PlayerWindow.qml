// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The picture in its own window: full screen, or small and above others.
Window {
    id: root

    required property PlayerPanelPresenter panel
    required property bool fillsScreen
    // The window on whose screen it opens.
    required property Item origin

    signal fullScreenToggled
    signal dismissed

    color: Theme.videoBackground
    flags: fillsScreen ? Qt.Window : Qt.Window | Qt.WindowStaysOnTopHint
    height: 203
    minimumHeight: 135
    minimumWidth: 240
    title: panel.title
    // Otherwise it would be minimized with the main window.
    transientParent: null
    width: 360

    Component.onCompleted: {
        if (fillsScreen) {
            x = origin.Screen.virtualX;
            y = origin.Screen.virtualY;
            showFullScreen();
        } else {
            x = origin.Screen.virtualX + origin.Screen.width - width - 24;
            y = origin.Screen.virtualY + origin.Screen.height - height - 48;
            show();
        }
        requestActivate();
    }
    onClosing: root.dismissed()

    PlayerSurface {
        anchors.fill: parent
        focus: true
        isFullScreen: root.fillsScreen
        isPictureInPicture: !root.fillsScreen
        panel: root.panel

        onFullScreenToggled: root.fullScreenToggled()
        onDismissed: root.dismissed()
        onPictureInPictureToggled: root.dismissed()
    }
}
