// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StateFixture.h"

#include <QSignalSpy>

/// Three results to play, on an engine that plays nothing.
class PlaybackFixture : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        state().browseResults = AppState::Results{StateFixture::searchResult(u"a"_s),
                                                  StateFixture::searchResult(u"b"_s),
                                                  StateFixture::searchResult(u"c"_s)};
        tool().respond("print http://media/{id}.mp4");
    }
    void cleanup() { m_fixture.reset(); }

protected:
    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    RecordingDesktop::SilentEngine *engine() { return *m_fixture->desktop.engine; }

    [[nodiscard]] bool play(const QString &id)
    {
        state().playBrowseResult(StateFixture::searchResult(id));
        return waitFor([&] { return !state().isLoadingStream(); });
    }

    void end()
    {
        engine()->events.ended();
        QCoreApplication::processEvents();
    }

    QStringList played()
    {
        QStringList found;
        for (const QUrl &url : engine()->urls)
            found.append(url.toString());
        return found;
    }

    std::unique_ptr<StateFixture> m_fixture;
};
