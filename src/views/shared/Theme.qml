// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton

import QtQuick

// Every colour, size and duration of the program. The window sets what the user and the
// desktop want; everything else follows.
QtObject {
    id: root

    property bool dark: false
    property bool animates: true
    property bool highContrast: false
    property bool hasAccent: false
    property color desktopAccentText
    property color desktopAccentFill

    readonly property color videoBackground: "black"
    readonly property color window: dark ? "#1e1e20" : "#ececee"
    readonly property color card: dark ? "#2a2a2d" : "#ffffff"
    readonly property color primary: primaryAt(highContrast ? 1 : dark ? 0.88 : 0.85)
    readonly property color secondary: primaryAt(highContrast ? 0.9 : dark ? 0.62 : 0.6)
    readonly property color hairline: primaryAt(highContrast ? 0.6 : 0.08)
    readonly property color outline: primaryAt(highContrast ? 0.6 : 0.12)

    // The accent for text and symbols, and as a background for white text.
    readonly property color accent: hasAccent ? desktopAccentText : shade("#0a5cc8", "#5aa0ff", "#063d8a", "#9cc7ff")
    readonly property color accentFill: hasAccent ? desktopAccentFill : shade("#0a66e0", "#1f6fe5", "#0747a6", "#0b4fb3")
    readonly property color overAccent: "#ffffff"

    readonly property color red: shade("#ad1f1f", "#ff7b72", "#7a0f0f", "#ffb4ae")
    readonly property color redFill: shade("#bf2626", "#c93434", "#8f1414", "#8f1414")
    readonly property color green: shade("#166b32", "#4cc36e", "#0a4a20", "#7fe39c")
    readonly property color orange: shade("#984600", "#ffa24c", "#6b3000", "#ffc891")

    readonly property color markTop: Qt.rgba(1.0, 0.18, 0.18, 1)
    readonly property color markBottom: Qt.rgba(0.85, 0.06, 0.06, 1)
    readonly property color badge: Qt.rgba(0, 0, 0, 0.72)
    readonly property color shadow: Qt.rgba(0, 0, 0, 0.3)

    readonly property int margin: 20
    readonly property int radius: 10
    readonly property int smallRadius: 5
    readonly property int buttonRadius: 8
    readonly property int thumbnailRadius: 8
    readonly property int controlHeight: 36
    readonly property int focusWidth: 2

    readonly property int quick: animates ? 100 : 0
    readonly property int pill: animates ? 120 : 0
    readonly property int brief: animates ? 150 : 0
    readonly property int calm: animates ? 200 : 0
    readonly property int slow: animates ? 500 : 0

    // Black or white, whichever the scheme writes in.
    function primaryAt(opacity: real): color {
        return dark ? Qt.rgba(1, 1, 1, opacity) : Qt.rgba(0, 0, 0, opacity);
    }

    // Of one colour, what suits the scheme and the contrast that is wanted.
    function shade(light: color, dark: color, strongLight: color, strongDark: color): color {
        if (highContrast)
            return root.dark ? strongDark : strongLight;
        return root.dark ? dark : light;
    }

    function at(color: color, opacity: real): color {
        return Qt.rgba(color.r, color.g, color.b, color.a * opacity);
    }

    // A colour by the name that C++ gives it.
    function tone(name: string): color {
        switch (name) {
        case "red":
            return red;
        case "green":
            return green;
        case "orange":
            return orange;
        case "primary":
            return primary;
        case "secondary":
            return secondary;
        default:
            return accent;
        }
    }

    // Always light, since the path bar of Qt's own chooser is always white.
    readonly property Palette chooserPalette: Palette {
        base: "#ffffff"
        button: "#d4d4d9"
        buttonText: "#1d1d1f"
        dark: "#6a6a70"
        highlight: "#0a5cc8"
        highlightedText: "#1d1d1f"
        light: "#ffffff"
        mid: "#c4c4ca"
        midlight: "#ececee"
        text: "#1d1d1f"
        window: "#ececee"
        windowText: "#1d1d1f"
    }
}
