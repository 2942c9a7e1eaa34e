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

    void anOpenedURLIsFetched()
    {
        m_fixture->tool.respond(R"(print {"id":"a","title":"T"})");
        AppState &state = app().state();
        state.mode = AppMode::browse;
        state.fetchAsPlaylist = true;
        app().open({u"https://x/1"_s});
        QVERIFY(state.mode() == AppMode::single);
        QCOMPARE(state.singleURL(), u"https://x/1"_s);
        QVERIFY(!state.fetchAsPlaylist());
        QTRY_VERIFY_WITH_TIMEOUT(state.singleInfo().has_value(), patience);
    }

    void severalOpenedURLsAreQueued()
    {
        m_fixture->tool.respond(R"(print {"id":"a","title":"T"})");
        AppState &state = app().state();
        app().open({u"https://x/1"_s, u"https://x/2"_s});
        QVERIFY(state.mode() == AppMode::multi);
        QCOMPARE(state.queue().size(), 2);
        QCOMPARE(state.queue()[1]->url, u"https://x/2"_s);
        QCOMPARE(state.singleURL(), QString());
        QTRY_VERIFY_WITH_TIMEOUT(kindOf(state.queue()[1]->status()) == StatusKind::Waiting,
                                 patience);
    }

    void anOpenedURLIsQueuedWhileSomethingRuns_data()
    {
        QTest::addColumn<int>("what");
        QTest::newRow("fetch") << 0;
        QTest::newRow("single download") << 1;
        QTest::newRow("queue") << 2;
        QTest::newRow("entry of the queue") << 3;
        QTest::newRow("download from browse") << 4;
    }
    void anOpenedURLIsQueuedWhileSomethingRuns()
    {
        QFETCH(int, what);
        m_fixture->tool.respond(R"(print {"id":"a","title":"T"})");
        AppState &state = app().state();
        state.singleURL = u"https://x/mine"_s;
        state.isFetching = what == 0;
        state.isDownloading = what == 1;
        state.isQueueDownloading = what == 2;
        if (what == 3)
            state.addURLToQueue(u"https://x/0"_s);
        if (what == 4)
            state.browseDownloadStatuses = {{u"a_mp4"_s, Status::Downloading{}}};
        app().open({u"https://x/1"_s});
        QCOMPARE(state.queue().last()->url, u"https://x/1"_s);
        QCOMPARE(state.singleURL(), u"https://x/mine"_s);
    }

    void onlyAHundredURLsOfTheWebAreOpened()
    {
        AppState &state = app().state();
        app().open({u"file:///etc/passwd"_s, u"--exec"_s, QString()});
        QVERIFY(state.queue().isEmpty());
        QCOMPARE(state.singleURL(), QString());
        QStringList many;
        for (int number = 0; number < 150; ++number)
            many.append(u"https://x/%1"_s.arg(number));
        app().open(many);
        QCOMPARE(state.queue().size(), 100);
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
