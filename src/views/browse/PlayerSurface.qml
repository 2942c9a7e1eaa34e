// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The picture with its controls and keys, and the texts that take its place.
FocusScope {
    id: root

    required property PlayerPanelPresenter panel
    property alias isFullScreen: controls.isFullScreen
    property alias isPictureInPicture: controls.isPictureInPicture
    property int radius: 0

    readonly property MediaPlayer player: panel.player
    readonly property bool showsControls: player.hasItem && (player.isPaused || lately.running || hover.hoversControls || controlsHaveFocus)
    readonly property bool controlsHaveFocus: controls.visible && activeFocus && !face.activeFocus

    signal fullScreenToggled
    signal pictureInPictureToggled
    signal dismissed

    function wake() {
        lately.restart();
    }

    Timer {
        id: lately

        interval: 2500
    }

    HoverHandler {
        id: hover

        readonly property bool hoversControls: hovered && place.y > root.height - controls.height
        readonly property point place: point.position

        onPlaceChanged: root.wake()
    }

    ContextArea {
        id: menu

        onAsked: commands = [
            {
                text: root.player.isPaused ? "Play" : "Pause",
                enabled: root.player.hasItem,
                run: () => root.player.togglePause()
            },
            ...VideoCommands.ofMessage(root.panel.errorText),
            ...VideoCommands.ofVideo(root.panel.title, root.panel.url)
        ]
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.videoBackground
        radius: root.radius
    }

    PlayerViewRepresentable {
        anchors.fill: parent
        // The panel is broader than any picture: its round corners stay free.
        anchors.leftMargin: root.radius
        anchors.rightMargin: root.radius
        player: root.player
        visible: root.player.hasItem
    }

    Item {
        id: face

        activeFocusOnTab: true
        anchors.fill: parent
        focus: true
        objectName: "video"

        Accessible.focusable: true
        Accessible.name: "Video"
        Accessible.onPressAction: root.player.togglePause()
        Accessible.role: Accessible.Graphic

        onActiveFocusChanged: root.wake()

        Keys.onPressed: event => {
            menu.handleKey(event);
            tip.handleKey(event);
        }

        TapHandler {
            onDoubleTapped: root.fullScreenToggled()
            onTapped: {
                face.forceActiveFocus(Qt.MouseFocusReason);
                root.player.togglePause();
            }
        }

        FocusRing {
            gap: -3
            innerRadius: root.radius
            shown: face.activeFocus && !root.isFullScreen && !root.isPictureInPicture
        }
    }

    Column {
        anchors.centerIn: parent
        spacing: 10
        visible: root.panel.isLoading || (root.player.hasItem && root.player.isBuffering)

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.overAccent
            objectName: "buffering"
            size: 28
        }

        PlainText {
            color: Theme.overAccent
            objectName: "loadingStream"
            text: "Loading stream…"
            visible: root.panel.isLoading
        }
    }

    ElidedText {
        id: error

        anchors.centerIn: parent
        color: Theme.overAccent
        horizontalAlignment: Text.AlignHCenter
        maximumLineCount: 8
        objectName: "playerError"
        text: root.panel.errorText
        visible: text !== ""
        width: parent.width - 48
        wrapMode: Text.Wrap

        Accessible.role: Accessible.AlertMessage

        HelpTip {
            id: tip

            offersCopy: error.text !== ""
            text: error.cutText
            wanted: face.activeFocus

            onCopied: Clipboard.copy(error.text)
        }
    }

    // A handler's cursor would change with the next move only.
    MouseArea {
        acceptedButtons: Qt.NoButton
        anchors.fill: parent
        cursorShape: root.isFullScreen && !root.showsControls ? Qt.BlankCursor : Qt.ArrowCursor
    }

    PlayerControls {
        id: controls

        anchors.bottom: parent.bottom
        opacity: root.showsControls ? 1 : 0
        panel: root.panel
        radius: root.radius
        visible: opacity > 0
        width: parent.width

        onFullScreenToggled: root.fullScreenToggled()
        onPictureInPictureToggled: root.pictureInPictureToggled()

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.calm
            }
        }
    }

    Keys.onPressed: event => {
        const seconds = {
            [Qt.Key_Left]: -5,
            [Qt.Key_Right]: 5,
            [Qt.Key_J]: -10,
            [Qt.Key_L]: 10
        }[event.key];
        if (event.modifiers !== Qt.NoModifier && event.modifiers !== Qt.KeypadModifier)
            return;
        if (seconds !== undefined)
            root.player.seek(root.player.position + seconds);
        else if (event.isAutoRepeat)
            return;
        else if (event.key === Qt.Key_Space || event.key === Qt.Key_K)
            root.player.togglePause();
        else if (event.key === Qt.Key_M)
            root.player.isMuted = !root.player.isMuted;
        else if (event.key === Qt.Key_F)
            root.fullScreenToggled();
        else if (event.key === Qt.Key_Escape && (root.isFullScreen || root.isPictureInPicture))
            root.dismissed();
        else
            return;
        root.wake();
        event.accepted = true;
    }
}
