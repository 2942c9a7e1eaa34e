// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// Takes the place of results until there are some.
Item {
    id: root

    property string symbol
    property string title
    property string subtitle
    property bool loading: false
    property bool isAlert: false

    Accessible.ignored: !isAlert
    Accessible.name: title + ": " + subtitle
    Accessible.role: isAlert ? Accessible.AlertMessage : Accessible.Grouping

    implicitHeight: content.height + 96

    Column {
        id: content

        anchors.centerIn: parent
        spacing: 10
        width: parent.width

        Spinner {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.secondary
            size: 28
            visible: root.loading
        }

        SymbolIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.at(Theme.secondary, 0.7)
            size: 36
            symbol: root.symbol
            visible: !root.loading
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            font.weight: Font.DemiBold
            objectName: "browsePlaceholder"
            size: 15
            text: root.title
            topPadding: 2

            Accessible.role: Accessible.Heading
        }

        ElidedText {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.secondary
            horizontalAlignment: Text.AlignHCenter
            isStop: true
            maximumLineCount: 6
            text: root.subtitle
            visible: text !== ""
            width: Math.min(implicitWidth, root.width - 2 * Theme.margin)
            wrapMode: Text.Wrap
        }
    }
}
