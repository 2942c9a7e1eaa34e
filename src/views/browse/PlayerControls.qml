// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// What lies over the lower edge of the picture.
Rectangle {
    id: root

    required property PlayerPanelPresenter panel
    readonly property MediaPlayer player: panel.player
    property bool isFullScreen: false
    property bool isPictureInPicture: false
    // Not all of them fit into a small window.
    readonly property bool isNarrow: width < 420
    // Under Wayland no window can keep itself above others.
    readonly property string pictureInPictureHelp: Qt.platform.pluginName.startsWith("wayland") ? "Picture in picture, which other windows may cover here" : "Picture in picture"

    signal fullScreenToggled
    signal pictureInPictureToggled

    height: 72
    gradient: Gradient {
        GradientStop {
            color: "transparent"
            position: 0
        }

        GradientStop {
            color: Theme.badge
            position: 1
        }
    }

    Row {
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
        spacing: 6
        width: parent.width - 2 * x
        x: 8

        PlayerButton {
            id: play

            help: root.player.hasEnded ? "Play again" : root.player.isPaused ? "Resume" : "Pause"
            objectName: "playPause"
            symbol: root.player.isPaused ? "play.fill" : "pause.fill"

            onClicked: root.player.togglePause()
        }

        PlainText {
            id: elapsed

            anchors.verticalCenter: parent.verticalCenter
            color: Theme.overAccent
            objectName: "elapsed"
            size: 12
            text: root.panel.elapsed
        }

        PlayerSlider {
            id: bar

            anchors.verticalCenter: parent.verticalCenter
            current: root.player.position
            enabled: root.player.duration > 0
            keyStep: 5
            mark: root.player.loadedTo
            name: "Position"
            objectName: "positionBar"
            to: Math.max(0.1, root.player.duration)
            width: Math.max(20, parent.width - x - right.width - parent.spacing)

            onMoved: {
                if (!pressed)
                    root.player.seek(value);
                else if (!whileDragged.running)
                    whileDragged.start();
            }
            onPressedChanged: {
                whileDragged.stop();
                if (!pressed)
                    root.player.seek(value);
            }

            // A seek may cost a request, so dragging seeks only now and then. Dragging to
            // the end does not end the video: the user is still choosing a position.
            Timer {
                id: whileDragged

                interval: 200

                onTriggered: root.player.seek(Math.min(bar.value, root.player.duration - 0.5))
            }
        }

        Row {
            id: right

            spacing: 2

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.overAccent
                objectName: "total"
                rightPadding: 6
                size: 12
                text: root.panel.total
            }

            PlayerButton {
                help: root.player.isMuted ? "Unmute" : "Mute"
                objectName: "mute"
                symbol: root.player.isMuted || root.player.volume === 0 ? "speaker.slash.fill" : "speaker.wave.2.fill"
                visible: !root.isNarrow

                onClicked: root.player.isMuted = !root.player.isMuted
            }

            PlayerSlider {
                current: root.player.isMuted ? 0 : root.player.volume
                keyStep: 0.05
                name: "Volume"
                objectName: "volumeBar"
                to: 1
                visible: !root.isNarrow

                onMoved: {
                    root.player.isMuted = false;
                    root.player.volume = value;
                }
            }

            PlayerButton {
                help: root.isPictureInPicture ? "Back into the window" : root.pictureInPictureHelp
                objectName: "pictureInPicture"
                symbol: root.isPictureInPicture ? "pip.exit" : "pip.enter"

                onClicked: root.pictureInPictureToggled()
            }

            PlayerButton {
                help: root.isFullScreen ? "Leave full screen" : "Full screen"
                objectName: "fullScreen"
                symbol: root.isFullScreen ? "arrow.down.right.and.arrow.up.left" : "arrow.up.left.and.arrow.down.right"

                onClicked: root.fullScreenToggled()
            }
        }
    }
}
