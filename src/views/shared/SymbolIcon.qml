// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A symbol of the system's set, in one colour.
SymbolImage {
    property int size: 14

    color: Theme.primary
    height: size
    width: size

    Accessible.ignored: true
}
