// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "GreyPictures.h"
#include "WindowFixture.h"

/// Browse mode in the window, with a player that plays nothing.
class BrowseFixture : public WindowFixture
{
    Q_OBJECT

protected:
    QQmlImageProviderBase *makeThumbnails() override { return new GreyPictures; }

    [[nodiscard]] bool show(int count)
    {
        AppState::Results results;
        for (int number = 0; number < count; ++number)
            results.append(result(number));
        state().browseResults = results;
        state().mode = AppMode::browse;
        m_fixture->tool.respond("print http://127.0.0.1/a.mp4");
        return waitFor([&] { return count == 0 ? !placeholder().isEmpty() : shown("result0"); });
    }

    /// Plays a result until it is the engine's turn.
    [[nodiscard]] bool play(int row)
    {
        state().playBrowseResult(state().browseResults()[row]);
        if (!waitFor([&] { return !state().isLoadingStream() && state().avPlayer.hasItem(); }))
            return false;
        if (!waitFor([&] {
                return shown("playerPanel") && item("playerPanel")->parentItem()->opacity() > 0.99;
            }))
            return false;
        engine()->sought.clear();
        return true;
    }

    /// Plays the first result and pauses, so that the controls stay.
    [[nodiscard]] bool playPaused(const PlayerStatus &status)
    {
        if (!show(1) || !play(0))
            return false;
        engine()->events.statusChanged(status);
        state().avPlayer.setMuted(false);
        state().avPlayer.setVolume(1);
        state().avPlayer.pause();
        if (!waitFor([&] { return shown("positionBar"); }))
            return false;
        m_window->grabWindow();
        return true;
    }

    RecordingDesktop::SilentEngine *engine() { return *m_fixture->desktop.engine; }

    /// The title of what stands in the place of results.
    QString placeholder() { return placeholderIn(m_window->contentItem()); }

    static QString placeholderIn(const QQuickItem *parent)
    {
        const QList<QQuickItem *> children = parent->childItems();
        for (const QQuickItem *const child : children) {
            if (child->objectName() == u"browsePlaceholder" && child->isVisible())
                return child->property("text").toString();
            if (const QString found = placeholderIn(child); !found.isEmpty())
                return found;
        }
        return {};
    }

    QPoint centreOf(const char *name)
    {
        const QQuickItem *const target = item(name);
        return target->mapToScene({target->width() / 2, target->height() / 2}).toPoint();
    }
};
