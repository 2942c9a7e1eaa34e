// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

// A column with a row of actions in it.
Column {
    // The row with the screen's main button, what in it takes the focus, and where format
    // and quality are chosen; null while there is none.
    property Item actions: null
    property Item entry: null
    property Item choice: null
}
