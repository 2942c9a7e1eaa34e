// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The player above the results.
Card {
    id: root

    required property PlayerPanelPresenter panel
    // Of the page; at the smallest window, more than half of it is left to the results.
    property real roomForResults: 264
    property real pageHeight: Infinity

    // Where the picture is shown: in the panel, in full screen, or in a small window.
    enum Place {
        InPanel,
        FullScreen,
        SmallWindow
    }

    property int place: BrowsePlayerPanel.InPanel

    property Window window: null

    // A button used by key that needs another place for the focus now.
    signal dismissed

    function toggle(other: int) {
        place = place === other ? BrowsePlayerPanel.InPanel : other;
    }

    function toggleFullScreen() {
        toggle(BrowsePlayerPanel.FullScreen);
    }

    function comeBack() {
        place = BrowsePlayerPanel.InPanel;
    }

    function open() {
        const made = Qt.createComponent("PlayerWindow.qml").createObject(root, {
            panel: panel,
            fillsScreen: place === BrowsePlayerPanel.FullScreen,
            origin: root
        }) as PlayerWindow;
        made.dismissed.connect(comeBack);
        made.fullScreenToggled.connect(toggleFullScreen);
        window = made;
    }

    // A window that closes asks for this once more.
    function forget() {
        const left = window;
        window = null;
        left?.close();
        left?.destroy();
    }

    onPlaceChanged: {
        forget();
        if (place !== BrowsePlayerPanel.InPanel)
            open();
    }

    // What has stopped is not shown anywhere.
    Connections {
        function onPresenceChanged() {
            if (!root.panel.isPresent)
                root.comeBack();
        }

        target: root.panel
    }

    // The program ends with its own window.
    Connections {
        function onClosing() {
            root.comeBack();
        }

        target: root.Window.window
    }

    Component.onDestruction: forget()

    MediaKeys {
        panel: root.panel
    }

    implicitHeight: surface.height + bar.height + 20

    PlayerSurface {
        id: surface

        height: Math.round(Math.min(width * 9 / 16, 320, Math.max(120, root.pageHeight - root.roomForResults - bar.height - 20)))
        panel: root.panel
        radius: Theme.radius
        visible: root.place === BrowsePlayerPanel.InPanel
        width: root.width - 20
        x: 10
        y: 10

        onFullScreenToggled: root.toggleFullScreen()
        onPictureInPictureToggled: root.toggle(BrowsePlayerPanel.SmallWindow)
    }

    Rectangle {
        anchors.fill: surface
        color: Theme.videoBackground
        radius: Theme.radius
        visible: root.place !== BrowsePlayerPanel.InPanel

        PlainText {
            anchors.centerIn: parent
            color: Theme.overAccent
            text: root.place === BrowsePlayerPanel.FullScreen ? "Playing in full screen" : "Playing in picture in picture"
        }
    }

    Item {
        id: bar

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.right: parent.right
        anchors.rightMargin: 12
        height: 48

        PlainText {
            id: number

            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            objectName: "playerPlace"
            size: 12
            text: root.panel.place
            width: Math.max(implicitWidth, widest.advanceWidth("00 / 00")) // so that nothing moves
        }

        FontMetrics {
            id: widest

            font: number.font
        }

        PlayerNavButton {
            id: previous

            anchors.left: number.right
            anchors.leftMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            enabled: root.panel.hasPrevious
            help: "Previous"
            symbol: "backward.end.fill"
            objectName: "playPrevious"

            onClicked: {
                const byKeyboard = visualFocus;
                root.panel.playPrevious();
                if (byKeyboard && !enabled)
                    next.forceActiveFocus(Qt.TabFocusReason);
            }
        }

        PlayerNavButton {
            id: next

            anchors.left: previous.right
            anchors.leftMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            enabled: root.panel.hasNext
            help: "Next"
            symbol: "forward.end.fill"
            objectName: "playNext"

            onClicked: {
                const byKeyboard = visualFocus;
                root.panel.playNext();
                if (byKeyboard && !enabled)
                    previous.forceActiveFocus(Qt.TabFocusReason);
            }
        }

        ElidedText {
            anchors.left: next.right
            anchors.leftMargin: 12
            anchors.right: video.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            font.weight: Font.Medium
            isStop: true
            objectName: "playerTitle"
            text: root.panel.title
        }

        BrowseDownloadButton {
            id: video

            anchors.right: audio.left
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            isAudio: false
            label: "MP4"
            objectName: "panelVideo"
            look: root.panel.video

            onClicked: root.panel.download(false)
        }

        BrowseDownloadButton {
            id: audio

            anchors.right: close.left
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            isAudio: true
            label: "MP3"
            objectName: "panelAudio"
            look: root.panel.audio

            onClicked: root.panel.download(true)
        }

        RowActionButton {
            id: close

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            help: "Close player"
            objectName: "closePlayer"
            symbol: "xmark"

            onClicked: {
                const byKeyboard = visualFocus;
                root.panel.stop();
                if (byKeyboard)
                    root.dismissed();
            }
        }
    }
}
