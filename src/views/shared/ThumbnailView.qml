// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import Quillon.Shared

// A picture from a URL, with the duration in its corner. Its user sets the size.
Item {
    id: root

    property string duration
    // The symbol in place of a missing picture, and whether it also replaces the spinner.
    property string placeholder: "photo"
    property bool placeholderWhileLoading: false
    property int radius: Theme.thumbnailRadius
    property string url

    readonly property bool isLoaded: image.status === Image.Ready
    readonly property bool isLoading: image.status === Image.Loading
    readonly property bool showsPlaceholder: !isLoaded && (!isLoading || placeholderWhileLoading)

    // The size that the picture is requested in. While a window is being enlarged, the
    // last picture is stretched.
    property size settledSize

    function settle() {
        if (isLoaded)
            rest.restart();
        else
            settledSize = Qt.size(width, height);
    }

    onHeightChanged: settle()
    onWidthChanged: settle()

    Accessible.ignored: true

    Timer {
        id: rest

        interval: 150

        onTriggered: root.settledSize = Qt.size(root.width, root.height)
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.at(Theme.secondary, root.isLoading ? 0.08 : 0.1)
        radius: root.radius
        visible: !root.isLoaded

        Spinner {
            anchors.centerIn: parent
            color: Theme.secondary
            size: 16
            visible: root.isLoading && !root.showsPlaceholder
        }

        SymbolIcon {
            anchors.centerIn: parent
            color: Theme.at(Theme.secondary, 0.4)
            objectName: "placeholder"
            size: 20
            symbol: root.placeholder
            visible: root.showsPlaceholder
        }
    }

    Image {
        id: image

        anchors.fill: parent
        asynchronous: true
        source: root.url === "" || root.settledSize.width <= 0 || root.settledSize.height <= 0 ? "" : "image://thumbnail/" + root.radius * Screen.devicePixelRatio + "/" + Qt.btoa(root.url)
        sourceSize.height: root.settledSize.height
        sourceSize.width: root.settledSize.width
    }

    Rectangle {
        anchors.bottom: parent.bottom
        anchors.margins: 4
        anchors.right: parent.right
        color: Theme.badge
        height: badge.implicitHeight + 4
        objectName: "durationBadge"
        radius: Theme.smallRadius
        visible: root.duration !== ""
        width: badge.implicitWidth + 10

        PlainText {
            id: badge

            anchors.centerIn: parent
            color: Theme.overAccent
            font.weight: Font.Bold
            size: 10
            text: root.duration
        }
    }
}
