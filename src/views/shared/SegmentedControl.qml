// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon.Shared

// A few exclusive choices side by side. One stop of the Tab key; the arrow keys move and
// choose.
Rectangle {
    id: root

    property int currentIndex: 0
    property var labels: []

    signal selected(index: int)
    signal clicked // by mouse, so that the keyboard is free for something else

    function choose(index: int) {
        const wrapped = (index + labels.length) % labels.length;
        selected(wrapped);
        segments.itemAt(wrapped).forceActiveFocus(Qt.TabFocusReason);
    }

    color: Theme.primaryAt(0.06)
    implicitHeight: 32
    implicitWidth: 180
    radius: Theme.buttonRadius

    Accessible.role: Accessible.PageTabList

    FontMetrics {
        id: metrics

        font.pixelSize: 13
        font.weight: Font.DemiBold
    }

    // Each as wide as its word, so that all have the same room around them.
    Row {
        id: row

        readonly property real room: {
            let left = width;
            for (const label of root.labels)
                left -= metrics.advanceWidth(label);
            return left / root.labels.length;
        }

        anchors.fill: parent
        anchors.margins: 2

        Repeater {
            id: segments

            model: root.labels

            BaseChoice {
                id: segment

                required property int index
                required property string modelData

                activeFocusOnTab: isSelected || activeFocus
                height: parent.height
                isSelected: index === root.currentIndex
                objectName: "mode" + modelData
                ringRadius: 6
                text: modelData
                width: metrics.advanceWidth(modelData) + row.room

                Keys.onLeftPressed: root.choose(index - 1)
                Keys.onRightPressed: root.choose(index + 1)
                onClicked: {
                    root.selected(index);
                    if (!visualFocus)
                        root.clicked();
                }

                background: Rectangle {
                    border.color: Theme.primaryAt(0.06)
                    border.width: segment.isSelected ? 1 : 0
                    color: segment.isSelected ? (Theme.dark ? Theme.primaryAt(0.2) : Theme.card) : "transparent"
                    radius: 6
                }
                contentItem: IconLabel {
                    color: segment.isSelected || segment.hovered ? Theme.primary : Theme.secondary
                    semibold: segment.isSelected
                    text: segment.text
                }
            }
        }
    }
}
