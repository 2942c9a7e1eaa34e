// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The buttons that start, pause and stop the download of single mode.
Row {
    id: root

    required property DownloadSectionPresenter section
    property bool isBar: false // whether it stands for the one on the page
    property bool offersStart: true
    readonly property alias start: download
    readonly property PushButton entry: isDownloading ? pause : download
    property Item next: download // where the focus goes when the run has ended

    readonly property real gap: 10
    readonly property bool isDownloading: section.isDownloading
    property bool keyboardIsHere: false

    // The focus moves along with the work, since a button that goes or is disabled would
    // lose it. Where to is known once everything has changed.
    Timer {
        id: leaveRun

        interval: 0

        onTriggered: root.next?.forceActiveFocus(Qt.TabFocusReason)
    }

    Connections {
        function onChanged() {
            if (root.keyboardIsHere && root.isDownloading)
                pause.forceActiveFocus(Qt.TabFocusReason);
            root.keyboardIsHere = false;
        }

        target: root.section
    }

    PushButton {
        id: download

        busy: root.isDownloading
        enabled: !root.section.isDisabled
        height: parent.height
        objectName: root.isBar ? "barDownload" : "download"
        prominent: true
        symbol: "arrow.down.circle.fill"
        text: root.section.buttonLabel
        visible: root.offersStart

        onClicked: {
            root.keyboardIsHere = visualFocus;
            root.section.download();
        }
    }

    Reveal {
        shown: root.isDownloading

        PushButton {
            id: pause

            height: root.height
            help: root.section.pauseHelp
            iconSize: 14
            objectName: root.isBar ? "barPause" : "pause"
            symbol: root.section.pauseIcon
            tint: root.section.isPaused ? Theme.green : Theme.orange
            x: root.offersStart ? root.gap : 0

            onActiveFocusChanged: if (!activeFocus && !root.isDownloading)
                leaveRun.start()
            onClicked: root.section.togglePause()
        }

        PushButton {
            anchors.left: pause.right
            anchors.leftMargin: root.gap
            height: root.height
            help: "Stop download"
            iconSize: 14
            objectName: root.isBar ? "barStop" : "stop"
            symbol: "stop.fill"
            tint: Theme.red

            onActiveFocusChanged: if (!activeFocus && !root.isDownloading)
                leaveRun.start()
            onClicked: root.section.stop()
        }
    }
}
