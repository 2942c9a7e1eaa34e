// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A line of text to edit.
T.TextField {
    id: root

    property real radius: Theme.buttonRadius

    // What a field offers beside the commands of every field, in front of them; set in
    // answer to menuAsked().
    property var moreCommands: []

    signal menuAsked

    readonly property bool hasSelection: selectedText !== ""

    persistentSelection: true

    Keys.onPressed: event => menu.handleKey(event)

    ContextArea {
        id: menu

        // Only now: looking at the clipboard makes Qt load all picture formats.
        onAsked: {
            root.menuAsked();
            commands = [...root.moreCommands,
                {
                    text: "Undo",
                    enabled: root.canUndo,
                    run: () => root.undo()
                },
                {
                    text: "Cut",
                    enabled: root.hasSelection,
                    run: () => root.cut()
                },
                {
                    text: "Copy",
                    enabled: root.hasSelection,
                    run: () => root.copy()
                },
                {
                    text: "Paste",
                    enabled: root.canPaste,
                    run: () => root.paste()
                },
                {
                    text: "Delete",
                    enabled: root.hasSelection,
                    run: () => {
                        root.remove(root.selectionStart, root.selectionEnd);
                        root.textEdited();
                    }
                },
                {
                    text: "Select All",
                    enabled: root.length > 0,
                    run: () => root.selectAll()
                }
            ];
        }
    }

    color: Theme.primary
    font.family: hint.fontInfo.family // without a style, the colour would be the desktop's
    font.pixelSize: 13
    leftPadding: 10
    placeholderTextColor: Theme.secondary
    rightPadding: 10
    selectByMouse: true
    selectedTextColor: Theme.overAccent
    selectionColor: Theme.accentFill
    verticalAlignment: TextInput.AlignVCenter

    background: Rectangle {
        border.color: root.activeFocus ? Theme.at(Theme.accent, 0.7) : Theme.hairline
        border.pixelAligned: false
        border.width: root.activeFocus ? 1.5 : 1
        color: Theme.card
        radius: root.radius

        Behavior on border.width {
            NumberAnimation {
                duration: Theme.brief
                easing.type: Easing.InOutQuad
            }
        }
        Behavior on border.color {
            ColorAnimation {
                duration: Theme.brief
                easing.type: Easing.InOutQuad
            }
        }
    }

    PlainText {
        id: hint

        anchors.fill: parent
        anchors.leftMargin: root.leftPadding
        anchors.rightMargin: root.rightPadding
        color: root.placeholderTextColor
        text: root.placeholderText
        visible: root.length === 0 && root.preeditText === ""

        Accessible.ignored: true
    }
}
