// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick

// Holds the open About window, or none. A closed one is forgotten, so that the
// next is made afresh.
QtObject {
    id: root

    required property string version
    property Window window: null

    function show() {
        if (!window) {
            window = Qt.createComponent("AboutWindow.qml").createObject(root, {
                version: version
            }) as Window;
            window.closing.connect(forget);
        }
        window.show();
        window.raise();
        window.requestActivate();
    }

    function close() {
        if (window)
            window.close();
    }

    function forget() {
        window.destroy();
        window = null;
    }
}
