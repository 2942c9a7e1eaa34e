// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon.Presentation
import Quillon.Shared

// Format and, for video, quality.
Column {
    id: root

    required property FormatQualityPresenter choice

    // Handed the focus, it gives it to what is selected.
    onActiveFocusChanged: if (activeFocus)
        formats.itemAt(choice.selectedFormat).forceActiveFocus(Qt.TabFocusReason)

    spacing: 10

    Row {
        spacing: 10

        SectionLabel {
            anchors.verticalCenter: parent.verticalCenter
            text: "Format"
        }

        Repeater {
            id: formats

            model: root.choice.formats

            ModernPill {
                required property int index
                required property string modelData

                isSelected: index === root.choice.selectedFormat
                label: modelData
                objectName: "format" + index

                onClicked: root.choice.selectFormat(index)
            }
        }
    }

    Divider {
        opacity: 0.5
        visible: root.choice.showsQualities
        width: parent.width
    }

    Row {
        spacing: 10
        visible: root.choice.showsQualities
        width: parent.width

        SectionLabel {
            height: 29
            text: "Quality"
        }

        FlowLayout {
            spacing: 6
            width: parent.width - 72

            Repeater {
                model: root.choice.qualities

                ModernPill {
                    required property int index
                    required property string modelData

                    isSelected: index === root.choice.selectedQuality
                    label: modelData
                    objectName: "quality" + modelData

                    onClicked: root.choice.selectQuality(index)
                }
            }
        }
    }
}
