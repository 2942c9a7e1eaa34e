// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import QtQuick.Templates as T
import Quillon.Shared

// A menu of the menu bar; its entries show their shortcuts. They are made when the menu
// is first opened, to keep the start of the program short.
MenuSurface {
    id: root

    default property list<QtObject> entries

    onAboutToShow: {
        if (count > 0)
            return;
        for (let index = 0; index < entries.length; ++index) {
            const separator = entries[index] as Item;
            if (separator)
                addItem(separator);
            else
                addAction(entries[index] as T.Action);
        }
    }
}
