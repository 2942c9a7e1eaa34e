// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton

import QtQuick

// Scrolling, for items anywhere on a page.
QtObject {
    // The page that holds an item; null if there is none.
    function of(item: Item): Flickable {
        let each = item.parent;
        while (each && !(each instanceof Flickable))
            each = each.parent;
        return each as Flickable;
    }

    // Where an item begins on its page; in a binding it follows whatever moves above it.
    function offset(item: Item, page: Flickable): real {
        let sum = 0;
        for (let each = item; each && page && each !== page.contentItem; each = each.parent)
            sum += each.y;
        return sum;
    }

    // Scrolls as little as needed to show the range between two heights.
    function show(page: Flickable, top: real, bottom: real) {
        if (top < page.contentY)
            page.contentY = Math.max(0, top);
        else if (bottom > page.contentY + page.height - page.bottomMargin)
            page.contentY = bottom - page.height + page.bottomMargin;
    }

    function reveal(item: Item) {
        const page = of(item);
        if (!page)
            return;
        const top = item.mapToItem(page.contentItem, 0, 0).y;
        show(page, top - Theme.margin, top + item.height + Theme.margin);
    }
}
