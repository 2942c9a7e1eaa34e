// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import Quillon
import Quillon.Shared

// Format and, for video, quality.
Column {
    id: root

    spacing: 10

    FormatQualityModel {
        id: picker
    }

    Row {
        spacing: 10

        SectionLabel {
            anchors.verticalCenter: parent.verticalCenter
            text: "Format"
        }

        Repeater {
            model: picker.formats

            ModernPill {
                required property int index
                required property string modelData

                isSelected: index === picker.selectedFormat
                label: modelData
                objectName: "format" + index

                onClicked: picker.selectFormat(index)
            }
        }
    }

    Divider {
        opacity: 0.5
        visible: picker.showsQualities
        width: parent.width
    }

    Row {
        spacing: 10
        visible: picker.showsQualities
        width: parent.width

        SectionLabel {
            height: 29
            text: "Quality"
        }

        FlowLayout {
            spacing: 6
            width: parent.width - 72

            Repeater {
                model: picker.qualities

                ModernPill {
                    required property int index
                    required property string modelData

                    isSelected: index === picker.selectedQuality
                    label: modelData
                    objectName: "quality" + modelData

                    onClicked: picker.selectQuality(index)
                }
            }
        }
    }
}
