// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Starts and pauses a run of the queue, and tells where it is.
Item {
    id: root

    required property QueueModel queue
    required property QueueControlsPresenter run
    property bool isBar: false // whether it stands for the one on the page
    readonly property Item entry: run.isRunning ? pause : start
    property Item next: null // where the focus goes when nothing is left to start

    PushButton {
        id: start

        busy: root.run.isRunning
        enabled: root.queue.canDownload
        height: parent.height
        help: enabled ? "Downloads waiting entries, and finished and failed ones once more" : ""
        objectName: root.isBar ? "barStartQueue" : "startQueue"
        prominent: true
        symbol: "arrow.down.circle.fill"
        text: root.queue.downloadButtonLabel

        onClicked: {
            const byKeyboard = visualFocus;
            root.run.start();
            if (byKeyboard)
                pause.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    PushButton {
        id: pause

        anchors.left: start.right
        anchors.leftMargin: 10
        height: parent.height
        help: root.run.pauseHelp
        iconSize: 14
        objectName: root.isBar ? "barPauseQueue" : "pauseQueue"
        symbol: root.run.pauseIcon
        tint: root.run.isPaused ? Theme.green : Theme.orange
        visible: root.run.isRunning

        onClicked: root.run.togglePause()
        onVisibleChanged: {
            const to = start.enabled ? start : root.next;
            if (!visible && visualFocus)
                to?.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Item {
        anchors.bottom: parent.bottom
        anchors.left: pause.right
        anchors.leftMargin: 16
        anchors.right: parent.right
        anchors.top: parent.top
        visible: root.run.isRunning

        SymbolIcon {
            id: arrow

            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            size: 13
            symbol: "arrow.down.circle"
        }

        PlainText {
            id: position

            anchors.left: arrow.right
            anchors.leftMargin: 5
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            objectName: root.isBar ? "barQueuePosition" : "queuePosition"
            text: root.run.position
        }

        ElidedText {
            anchors.left: position.right
            anchors.leftMargin: 10
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            isStop: true
            objectName: root.isBar ? "barQueueTitle" : "queueTitle"
            opacity: text === "" ? 0 : 1
            text: root.run.title

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.calm
                }
            }
        }
    }
}
