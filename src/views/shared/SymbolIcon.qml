// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Controls.impl
import Quillon.Shared

// A symbol of the system's set, in one colour.
IconImage {
    property string symbol
    property int size: 14

    color: Theme.primary
    height: size
    source: symbol === "" ? "" : "qrc:/symbols/" + symbol + ".svg"
    sourceSize.height: size
    sourceSize.width: size
    width: size

    Accessible.ignored: true
}
