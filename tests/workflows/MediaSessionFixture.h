// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MediaSession.h"
#include "StateFixture.h"

#include <QDBusConnection>

using namespace Qt::StringLiterals;

/// What the desktop learns of the playback, on a bus of the test's own.
class MediaSessionFixture : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void init()
    {
        QVERIFY2(m_desktop.isConnected(), "this test needs a session bus: use dbus-run-session");
        m_fixture = std::make_unique<StateFixture>();
        m_control = std::make_unique<MediaControl>();
        m_inhibitor = std::make_unique<Inhibitor>(screenServices());
        m_session = std::make_unique<MediaSession>(state(), *m_control, *m_inhibitor);
        state().browseResults = AppState::Results{result(u"a"_s), result(u"b"_s), result(u"c"_s)};
        m_fixture->tool.respond("print http://media/{id}.mp4");
    }
    void cleanup()
    {
        m_session.reset();
        m_inhibitor.reset();
        m_control.reset();
        m_fixture.reset();
    }

protected:
    static SearchResult result(const QString &id)
    {
        SearchResult result;
        result.id = id;
        result.title = u"Title "_s + id;
        result.uploader = u"Someone"_s;
        result.duration = 90;
        result.thumbnailURL = u"http://127.0.0.1/%1.jpg"_s.arg(id);
        result.videoURL = u"https://example.org/"_s + id;
        return result;
    }

    AppState &state() { return *m_fixture->state; }
    RecordingDesktop::SilentEngine *engine() { return *m_fixture->desktop.engine; }

    [[nodiscard]] bool play(const QString &id)
    {
        state().playBrowseResult(result(id));
        return waitFor([&] { return !state().isLoadingStream(); });
    }

    void reportPosition(double position)
    {
        engine()->events.statusChanged({.position = position, .duration = 90});
    }

    /// The desktop's side of the bus, a connection of its own.
    QDBusConnection m_desktop =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"desktop"_s);

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<MediaControl> m_control;
    std::unique_ptr<Inhibitor> m_inhibitor;
    std::unique_ptr<MediaSession> m_session;
};
