// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton

import QtQuick
import Quillon.Presentation

// The commands of context menus for what screens have in common: a video, its file, a
// message.
QtObject {
    function ofVideo(title: string, url: string): var {
        return [command("Copy title", () => Clipboard.copy(title)), ...only(url !== "", "Copy address", () => Clipboard.copy(url)), ...only(Presenters.links.canBrowse(url), "Open in browser", () => Presenters.links.browse(url))];
    }

    function ofFile(path: string): var {
        return [...only(path !== "", "Show in Finder", () => Presenters.links.reveal(path)), ...only(Presenters.links.canOpen(path), "Open", () => Presenters.links.open(path))];
    }

    function ofMessage(message: string): var {
        return only(message !== "", "Copy message", () => Clipboard.copy(message));
    }

    function only(isThere: bool, text: string, run: var): var {
        return isThere ? [command(text, run)] : [];
    }

    function command(text: string, run: var): var {
        return {
            "text": text,
            "run": run
        };
    }
}
