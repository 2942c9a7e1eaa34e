// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Format and quality of a run, its start, and how far it is.
Card {
    id: root

    required property QueueModel queue
    required property QueueControlsPresenter run

    // Where the focus goes when a run has ended.
    property Item next

    implicitHeight: content.height + 28

    Column {
        id: content

        spacing: 12
        width: root.width - 28
        x: 14
        y: 14

        FormatQualityPickerView {
            choice: Presenters.queueFormat
            width: parent.width
        }

        Item {
            height: 32
            width: parent.width

            PushButton {
                id: start

                busy: root.run.isRunning
                enabled: root.queue.canDownload
                height: parent.height
                help: "Downloads waiting entries, and finished and failed ones once more"
                objectName: "startQueue"
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
                objectName: "pauseQueue"
                symbol: root.run.pauseIcon
                tint: root.run.isPaused ? Theme.green : Theme.orange
                visible: root.run.isRunning

                onClicked: root.run.togglePause()
                onVisibleChanged: {
                    const to = start.enabled ? start : root.next;
                    if (!visible && visualFocus)
                        to.forceActiveFocus(Qt.TabFocusReason);
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
                    objectName: "queuePosition"
                    text: root.run.position
                }

                LineText {
                    anchors.left: position.right
                    anchors.leftMargin: 10
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    color: Theme.secondary
                    objectName: "queueTitle"
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
    }
}
