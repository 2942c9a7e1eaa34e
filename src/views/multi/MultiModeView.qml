// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The queue, or what to do where there is none.
ModePage {
    id: root

    readonly property QueueModel queue: Presenters.queue
    readonly property QueueControlsPresenter run: Presenters.queueControls

    actions: controls.visible ? controls.actions : null
    entry: controls.actions.entry

    spacing: 10

    // When nothing is left here, the focus goes to the previous stop.
    function leaveEmptyQueue() {
        if (root.queue.count === 0)
            rows.nextItemInFocusChain(false).forceActiveFocus(Qt.TabFocusReason);
    }

    EmptyQueueView {
        visible: root.queue.count === 0
        width: root.innerWidth
    }

    Item {
        height: 28
        visible: root.queue.count > 0
        width: root.innerWidth

        PlainText {
            id: heading

            anchors.verticalCenter: parent.verticalCenter
            font.weight: Font.DemiBold
            objectName: "queueHeading"
            size: 14
            text: "Queue"

            Accessible.name: "Queue, " + root.queue.count
            Accessible.role: Accessible.Heading
        }

        Rectangle {
            anchors.left: heading.right
            anchors.leftMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.primaryAt(0.07)
            height: 20
            radius: Theme.radius
            width: Math.max(24, count.implicitWidth + 14)

            PlainText {
                id: count

                anchors.centerIn: parent
                color: Theme.secondary
                objectName: "queueCount"
                size: 12
                text: root.queue.count

                Accessible.ignored: true
            }
        }

        TextButton {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            objectName: "clearQueue"
            help: "Removes finished, waiting and failed entries"
            text: "Clear done"

            onClicked: {
                const byKeyboard = visualFocus;
                root.run.clear();
                if (byKeyboard)
                    root.leaveEmptyQueue();
            }
        }
    }

    QueueControlsView {
        id: controls

        next: rows.view
        queue: root.queue
        run: root.run
        visible: root.queue.count > 0
        width: root.innerWidth
    }

    LazyGrid {
        id: rows

        cellHeight: 66
        model: root.queue
        objectName: "queueList"
        spacing: 12
        view.objectName: "queueRows"
        visible: root.queue.count > 0
        width: root.innerWidth

        delegate: QueueItemView {
            grid: rows
            height: rows.cellHeight
            objectName: "queue" + index
            width: rows.cellWidth

            onRemoved: {
                const hadKeyboard = activeFocus;
                root.queue.remove(index);
                if (hadKeyboard)
                    root.leaveEmptyQueue();
            }
            onRevealed: root.queue.reveal(index)
        }
    }
}
