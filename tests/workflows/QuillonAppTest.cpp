// SPDX-License-Identifier: GPL-3.0-or-later
#include "QuillonApp.h"
#include "StateFixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// The program as a whole: its start, and the commands of its menus.
class QuillonAppTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        m_fixture->state.reset(); // the program makes one of its own
        m_app = std::make_unique<QuillonApp>(m_fixture->parts());
    }
    void cleanup()
    {
        m_app.reset();
        m_fixture.reset();
    }

    void permissionIsRequestedOnceBeforeTheState()
    {
        m_app.reset();
        RecordingDesktop::RecordingNotifier &notifier = *m_fixture->desktop.notifier;
        notifier.requests = 0;
        notifier.onRequest = [this] {
            m_fixture->preferences->setInteger(u"quillon.historyLimit"_s, 7);
        };
        m_app = std::make_unique<QuillonApp>(m_fixture->parts());
        QCOMPARE(notifier.requests, 1);
        QCOMPARE(app().state().historyLimit(), 7); // which was loaded after it
    }

    void menuCommandsFollowTheirRules()
    {
        AppState &state = app().state();
        const QSignalSpy spy(&app(), &QuillonApp::commandsChanged);
        QVERIFY(!app().canStartDownload() && !app().canPause());
        state.singleInfo = StateFixture::video(u"a"_s);
        QVERIFY(app().canStartDownload());
        state.isDownloading = true;
        QVERIFY(!app().canStartDownload() && app().canPause());
        QCOMPARE(app().pauseTitle(), u"Pause Download"_s);
        state.isPaused = true;
        QCOMPARE(app().pauseTitle(), u"Resume Download"_s);
        QCOMPARE(spy.count(), 3);
    }

    void fetchInfoTestsTheURLUntrimmedInEveryMode()
    {
        const QSignalSpy fetches(&app().state(), &AppState::isFetchingChanged);
        app().fetchInfo();
        QCOMPARE(fetches.count(), 0);
        app().state().mode = AppMode::browse;
        app().state().singleURL = u"https://x/"_s;
        app().fetchInfo();
        QVERIFY(app().state().isFetching());
        QTRY_VERIFY_WITH_TIMEOUT(!app().state().isFetching(), patience);
    }

    void theMenusStartAllowsAnEmptySelection()
    {
        app().state().singleInfo = StateFixture::playlist({u"a"_s});
        app().state().downloadStatus = Status::Done{u"/old"_s};
        const QSignalSpy statuses(&app().state(), &AppState::downloadStatusChanged);
        app().startDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!app().state().isDownloading(), patience);
        QVERIFY(app().state().downloadStatus()
                == DownloadUIStatus(Status::Done{m_fixture->folder.path()}));
        QCOMPARE(statuses.count(), 2); // downloading and done, no idle before
        QCOMPARE(m_fixture->desktop.notifier->posted.size(), 1);
    }

    void theVersionReadsAsAboutShowsIt() { QCOMPARE(QuillonApp::versionText(), u"Version 1.0"_s); }

    void toggleModeNeverReachesBrowse()
    {
        app().toggleMode();
        QVERIFY(app().state().mode() == AppMode::multi);
        app().toggleMode();
        QVERIFY(app().state().mode() == AppMode::single);
        app().state().mode = AppMode::browse;
        app().toggleMode();
        QVERIFY(app().state().mode() == AppMode::single);
    }

private:
    QuillonApp &app() { return *m_app; }

    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<QuillonApp> m_app;
};

QTEST_GUILESS_MAIN(QuillonAppTest)
#include "QuillonAppTest.moc"
