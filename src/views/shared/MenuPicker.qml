// SPDX-License-Identifier: GPL-3.0-or-later
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A choice from a menu; -1 selects none.
T.ComboBox {
    id: root

    property string label
    property string help

    signal chosen(index: int)

    implicitHeight: 28
    leftPadding: 10
    rightPadding: 24

    Accessible.description: displayText
    Accessible.name: label

    Accessible.onPressAction: if (enabled)
        popup.open()
    onActivated: index => chosen(index)

    HelpTip {
        text: root.help
        wanted: root.hovered && !root.popup.visible
    }

    background: Rectangle {
        border.color: Theme.outline
        color: root.hovered ? Theme.primaryAt(0.06) : Theme.card
        radius: 6

        FocusRing {
            innerRadius: 6
            shown: root.visualFocus
        }
    }
    // In wide fonts the longest choice is drawn smaller rather than cut.
    contentItem: PlainText {
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 10
        objectName: "choice"
        text: root.displayText

        Accessible.ignored: true
    }
    delegate: T.ItemDelegate {
        id: entry

        required property int index
        required property string modelData
        readonly property bool isHighlighted: root.highlightedIndex === index

        bottomPadding: 5
        highlighted: isHighlighted
        implicitHeight: implicitContentHeight + topPadding + bottomPadding
        leftPadding: 8
        objectName: "menuEntry" + index
        rightPadding: 8
        text: modelData
        topPadding: 5
        width: ListView.view?.width ?? 0

        Accessible.name: text
        Accessible.role: Accessible.MenuItem
        Accessible.selected: root.currentIndex === index

        Accessible.onPressAction: {
            root.chosen(index);
            root.popup.close();
        }

        background: Rectangle {
            color: entry.isHighlighted ? Theme.accentFill : "transparent"
            radius: Theme.smallRadius
        }
        contentItem: PlainText {
            color: entry.isHighlighted ? Theme.overAccent : Theme.primary
            text: entry.text

            Accessible.ignored: true
        }
    }
    indicator: SymbolIcon {
        color: Theme.secondary
        size: 12
        symbol: "chevron.up.chevron.down"
        x: root.width - width - 8
        y: (root.height - height) / 2
    }
    popup: T.Popup {
        implicitHeight: contentItem.implicitHeight + 10
        margins: 6
        padding: 5
        width: Math.max(root.width, 130)
        y: root.height + 4

        background: Rectangle {
            border.color: Theme.outline
            color: Theme.card
            radius: Theme.buttonRadius
        }
        contentItem: ListView {
            currentIndex: root.highlightedIndex
            implicitHeight: contentHeight
            model: root.delegateModel
        }
    }
}
