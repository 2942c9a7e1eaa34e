// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Presentation
import Quillon.Shared

// The tool: its version, what that means, and an update.
Item {
    id: root

    required property ToolPresenter tool // null without a tool keeper

    implicitHeight: 32

    SettingCaption {
        id: caption

        anchors.verticalCenter: parent.verticalCenter
        icon: "arrow.down.circle"
        objectName: "toolName"
        text: root.tool?.name ?? ""
    }

    PlainText {
        id: meaning

        anchors.left: caption.right
        anchors.leftMargin: 10
        anchors.right: update.visible ? update.left : parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        color: root.tool?.isUseless ? Theme.orange : Theme.secondary
        objectName: "toolMeaning"
        size: 12
        text: root.tool?.meaning ?? ""

        Accessible.description: root.tool?.path ?? ""
        Accessible.name: caption.text + ", " + text
    }

    HoverHandler {
        id: hover
    }

    Item {
        height: parent.height
        width: Math.min(parent.width, meaning.x + meaning.contentWidth)

        HelpTip {
            objectName: "toolPath"
            text: root.tool?.path ?? ""
            wanted: hover.hovered && !update.hovered
        }
    }

    PushButton {
        id: update

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        height: 32
        objectName: "updateTool"
        symbol: "arrow.down.circle"
        text: root.tool?.buttonText ?? ""
        visible: text !== ""

        onClicked: root.tool.update()
    }
}
