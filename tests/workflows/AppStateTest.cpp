// SPDX-License-Identifier: GPL-3.0-or-later
#include "StateFixture.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// The properties of the state, and its small services.
class AppStateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<StateFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void everyPropertyHasItsInitialValue()
    {
        const AppState &state = *m_fixture->state;
        const QualityOption best = QualityOption::best(MediaFormat::mp4);
        QVERIFY(state.mode() == AppMode::single);
        QCOMPARE(state.downloadDir(), u""_s);
        QCOMPARE(state.showSettings(), false);
        QCOMPARE(state.historyLimit(), 50);
        QCOMPARE(state.speedLimit(), u"0"_s);
        QCOMPARE(state.notificationsEnabled(), true);
        QCOMPARE(state.cookiesBrowser(), u"none"_s);
        QCOMPARE(state.singleURL(), u""_s);
        QVERIFY(!state.singleInfo());
        QCOMPARE(state.isFetching(), false);
        QVERIFY(!state.fetchError());
        QVERIFY(state.selectedFormat() == MediaFormat::mp4);
        QVERIFY(state.selectedQuality() == best);
        QVERIFY(state.selectedPlaylistItems().isEmpty());
        QCOMPARE(state.isDownloading(), false);
        QCOMPARE(state.downloadProgress(), 0.0);
        QCOMPARE(state.downloadSpeed(), u""_s);
        QCOMPARE(state.downloadETA(), u""_s);
        QVERIFY(state.downloadStatus() == DownloadUIStatus(Status::Idle{}));
        QCOMPARE(state.isPaused(), false);
        QCOMPARE(state.currentDownloadTitle(), u""_s);
        QCOMPARE(state.currentDownloadIndex(), 0);
        QCOMPARE(state.totalDownloadCount(), 0);
        QCOMPARE(state.fetchAsPlaylist(), false);
        QCOMPARE(state.multiURL(), u""_s);
        QVERIFY(state.queue().isEmpty());
        QVERIFY(state.multiFormat() == MediaFormat::mp4);
        QVERIFY(state.multiQuality() == best);
        QCOMPARE(state.isQueueDownloading(), false);
        QVERIFY(!state.nowPlaying());
        QCOMPARE(state.isLoadingStream(), false);
        QVERIFY(!state.playerError());
        QCOMPARE(state.browseSearchQuery(), u""_s);
        QVERIFY(state.browseResults().isEmpty());
        QCOMPARE(state.isBrowseSearching(), false);
        QVERIFY(!state.browseSearchError());
        QVERIFY(state.browseDownloadStatuses().isEmpty());
        QVERIFY(state.browseDownloadProgress().isEmpty());
        QVERIFY(state.history().isEmpty());
        QVERIFY(!state.streamLoadTask);
        QCOMPARE(state.historyKey, u"quillon.history.v2"_s);
        QCOMPARE(state.settingsKey, u"quillon.downloadDir"_s);
        QCOMPARE(state.historyLimitKey, u"quillon.historyLimit"_s);
        QCOMPARE(state.speedLimitKey, u"quillon.speedLimit"_s);
        QCOMPARE(state.notificationsKey, u"quillon.notifications"_s);
        QCOMPARE(state.cookiesBrowserKey, u"quillon.cookiesBrowser"_s);
        QCOMPARE(&state.service, m_fixture->service.get());
    }

    void publishedPropertiesAreDeclaredInTheirOrder()
    {
        QStringList names;
        const QMetaObject &meta = AppState::staticMetaObject;
        for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index)
            names.append(QString::fromLatin1(meta.property(index).name()));
        const QString derived = u" isMixedURL displayedDownloadStatus"_s;
        QCOMPARE(names.join(u' '),
                 u"mode downloadDir showSettings historyLimit speedLimit "
                 u"notificationsEnabled cookiesBrowser singleURL singleInfo "
                 u"isFetching fetchError selectedFormat selectedQuality "
                 u"selectedPlaylistItems isDownloading downloadProgress "
                 u"downloadSpeed downloadETA downloadStatus isPaused "
                 u"currentDownloadTitle currentDownloadIndex totalDownloadCount "
                 u"fetchAsPlaylist multiURL queue multiFormat multiQuality "
                 u"isQueueDownloading nowPlaying isLoadingStream playerError "
                 u"browseSearchQuery browseResults isBrowseSearching "
                 u"browseSearchError browseDownloadStatuses "
                 u"browseDownloadProgress history"_s
                     + derived);
    }

    void everyAssignmentNotifiesEvenIfEqual()
    {
        AppState &state = *m_fixture->state;
        const auto notifies = [&state](auto &property, auto changed) {
            const QSignalSpy spy(&state, changed);
            const auto value = property();
            property = value;
            property = value;
            return spy.count() == 2;
        };
#define NOTIFIES(name) QVERIFY(notifies(state.name, &AppState::name##Changed))
        NOTIFIES(mode);
        NOTIFIES(downloadDir);
        NOTIFIES(showSettings);
        NOTIFIES(historyLimit);
        NOTIFIES(speedLimit);
        NOTIFIES(notificationsEnabled);
        NOTIFIES(cookiesBrowser);
        NOTIFIES(singleURL);
        NOTIFIES(singleInfo);
        NOTIFIES(isFetching);
        NOTIFIES(fetchError);
        NOTIFIES(selectedFormat);
        NOTIFIES(selectedQuality);
        NOTIFIES(selectedPlaylistItems);
        NOTIFIES(isDownloading);
        NOTIFIES(downloadProgress);
        NOTIFIES(downloadSpeed);
        NOTIFIES(downloadETA);
        NOTIFIES(downloadStatus);
        NOTIFIES(isPaused);
        NOTIFIES(currentDownloadTitle);
        NOTIFIES(currentDownloadIndex);
        NOTIFIES(totalDownloadCount);
        NOTIFIES(fetchAsPlaylist);
        NOTIFIES(multiURL);
        NOTIFIES(queue);
        NOTIFIES(multiFormat);
        NOTIFIES(multiQuality);
        NOTIFIES(isQueueDownloading);
        NOTIFIES(nowPlaying);
        NOTIFIES(isLoadingStream);
        NOTIFIES(playerError);
        NOTIFIES(browseSearchQuery);
        NOTIFIES(browseResults);
        NOTIFIES(isBrowseSearching);
        NOTIFIES(browseSearchError);
        NOTIFIES(browseDownloadStatuses);
        NOTIFIES(browseDownloadProgress);
        NOTIFIES(history);
#undef NOTIFIES
    }

    void aMixedURLIsToldThroughBlanks()
    {
        AppState &state = *m_fixture->state;
        const QSignalSpy spy(&state, &AppState::singleURLChanged);
        state.singleURL = u" \n https://x/watch?v=abc&list=PL1 \n"_s;
        QVERIFY(state.isMixedURL());
        QCOMPARE(spy.count(), 1);
        state.singleURL = u"https://x/watch?v=abc"_s;
        QVERIFY(!state.isMixedURL());
    }

    void theDownloadFolderFollowsTheSetting()
    {
        AppState &state = *m_fixture->state;
        QCOMPARE(state.resolvedDownloadDir(), m_fixture->folder.path());
        m_fixture->desktop.folders->paths.clear();
        QCOMPARE(state.resolvedDownloadDir(), QString::fromLocal8Bit(qgetenv("HOME")));
        state.downloadDir = u" ~/x "_s;
        QCOMPARE(state.resolvedDownloadDir(), QString::fromLocal8Bit(qgetenv("HOME")) + u"/x"_s);
    }

    void revealingAMissingFileOpensItsFolder()
    {
        AppState &state = *m_fixture->state;
        const QString file = m_fixture->folder.filePath(u"a.mp4"_s);
        state.revealInFinder(file);
        QCOMPARE(m_fixture->desktop.fileViewer->opened, QStringList{m_fixture->folder.path()});
        QVERIFY(m_fixture->desktop.fileViewer->selected.isEmpty());
        writeFile(file, "x");
        state.revealInFinder(file);
        QCOMPARE(m_fixture->desktop.fileViewer->selected, QStringList{file});
    }

    void whatIsRevealedIsAbsolute()
    {
        m_fixture->state->revealInFinder(u"no such folder/a.mp4"_s);
        QCOMPARE(m_fixture->desktop.fileViewer->opened,
                 QStringList{QDir::homePath() + u"/no such folder"_s});
    }

    void aFinishedRunPlaysASoundAndNotifies()
    {
        m_fixture->state->sendCompleteNotification(u"A"_s, 1);
        m_fixture->state->sendCompleteNotification(u"A"_s, 2);
        const auto &posted = m_fixture->desktop.notifier->posted;
        QCOMPARE(m_fixture->desktop.sound->played, 2);
        QCOMPARE(posted.size(), 2);
        QCOMPARE(posted[0].title, u"Download Complete"_s);
        QCOMPARE(posted[0].body, u"\"A\" downloaded successfully"_s);
        QCOMPARE(posted[1].body, u"2 files downloaded successfully"_s);
        QVERIFY(!QUuid::fromString(posted[0].identifier).isNull());
        QVERIFY(posted[0].identifier != posted[1].identifier);
    }

    void aNotificationHasNoOverridesOfDirection()
    {
        m_fixture->state->sendCompleteNotification(u"song\u202E3pm.exe \u2067x"_s, 1);
        QCOMPARE(m_fixture->desktop.notifier->posted.first().body,
                 u"\"song3pm.exe \u2067x\u2069\" downloaded successfully"_s);
    }

    void withNotificationsOffThereIsNoSoundEither()
    {
        m_fixture->state->notificationsEnabled = false;
        m_fixture->state->sendCompleteNotification(u"A"_s, 1);
        QCOMPARE(m_fixture->desktop.sound->played, 0);
        QVERIFY(m_fixture->desktop.notifier->posted.isEmpty());
    }

private:
    std::unique_ptr<StateFixture> m_fixture;
};

QTEST_GUILESS_MAIN(AppStateTest)
#include "AppStateTest.moc"
