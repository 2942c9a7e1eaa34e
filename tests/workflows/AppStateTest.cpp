// SPDX-License-Identifier: GPL-3.0-or-later
#include "StateFixture.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

HistoryItem record(int number)
{
    return {.id = QUuid::createUuid(),
            .title = QString::number(number),
            .thumbnailURL = {},
            .url = {},
            .format = u"mp4"_s,
            .quality = u"Best"_s,
            .savedPath = {},
            .date = ReferenceDate::now()};
}

void fillHistory(AppState &state, int count)
{
    AppState::History records;
    for (int number = 0; number < count; ++number)
        records.append(record(number));
    state.history = records;
}

} // namespace

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
        QVERIFY(state.downloadStatus() == DownloadUIStatus::idle());
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
        QCOMPARE(names.size(), 41); // the published ones and two that are derived
        QCOMPARE(names.first(), u"mode"_s);
        QCOMPARE(names.indexOf(u"isMixedURL"_s), 39);
    }

    void everyAssignmentNotifiesOnceAlsoOfAnEqualValue()
    {
        AppState &state = *m_fixture->state;
        const QMetaObject &meta = AppState::staticMetaObject;
        for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index) {
            const QMetaProperty property = meta.property(index);
            if (!property.isWritable())
                continue;
            QSignalSpy spy(&state, property.notifySignal());
            const QVariant value = property.read(&state);
            QVERIFY2(property.write(&state, value), property.name());
            QVERIFY2(property.write(&state, value), property.name());
            QVERIFY2(spy.count() == 2, property.name());
        }
        const QSignalSpy statuses(&state, &AppState::downloadStatusChanged);
        state.downloadStatus = DownloadUIStatus::idle();
        state.downloadStatus = DownloadUIStatus::idle();
        QCOMPARE(statuses.count(), 2);
        const QSignalSpy infos(&state, &AppState::singleInfoChanged);
        state.singleInfo = AppState::Info();
        QCOMPARE(infos.count(), 1);
        const QSignalSpy modes(&state, &AppState::modeChanged);
        state.mode = AppMode::single;
        QCOMPARE(modes.count(), 1);
    }

    void theFirstStartHasTheDefaultSettings()
    {
        QVERIFY(!QFile::exists(m_fixture->preferences->path()));
        QCOMPARE(m_fixture->state->historyLimit(), 50);
    }

    void savedSettingsSurviveARestart()
    {
        AppState &state = *m_fixture->state;
        state.downloadDir = u"~/Movies"_s;
        state.speedLimit = u"5M"_s;
        state.notificationsEnabled = false;
        state.cookiesBrowser = u"firefox"_s;
        state.historyLimit = 100;
        state.saveSettings();
        m_fixture->restart();
        QCOMPARE(m_fixture->state->downloadDir(), u"~/Movies"_s);
        QCOMPARE(m_fixture->state->speedLimit(), u"5M"_s);
        QCOMPARE(m_fixture->state->notificationsEnabled(), false);
        QCOMPARE(m_fixture->state->cookiesBrowser(), u"firefox"_s);
        QCOMPARE(m_fixture->state->historyLimit(), 100);
    }

    void aSettingThatIsNotSavedIsLost()
    {
        m_fixture->state->downloadDir = u"~/Movies"_s;
        m_fixture->restart();
        QCOMPARE(m_fixture->state->downloadDir(), QString());
    }

    void anUnlimitedHistoryReadsBackAs50()
    {
        m_fixture->state->historyLimit = 0;
        m_fixture->state->saveSettings();
        m_fixture->restart();
        QCOMPARE(m_fixture->state->historyLimit(), 50);
    }

    void aNegativeHistoryLimitLoadsUnchangedAndMeansUnlimited()
    {
        m_fixture->preferences->setInteger(u"quillon.historyLimit"_s, -3);
        m_fixture->restart();
        AppState &state = *m_fixture->state;
        QCOMPARE(state.historyLimit(), -3);
        fillHistory(state, 60);
        state.addToHistory(record(99));
        QCOMPARE(state.history().size(), 61);
    }

    void notificationsStoredAsTextOrNumberReadAsTrue()
    {
        m_fixture->preferences->setString(u"quillon.notifications"_s, u"false"_s);
        m_fixture->restart();
        QCOMPARE(m_fixture->state->notificationsEnabled(), true);
        m_fixture->preferences->setInteger(u"quillon.notifications"_s, 0);
        m_fixture->restart();
        QCOMPARE(m_fixture->state->notificationsEnabled(), true);
    }

    void settingsOfOtherKindsFallBack()
    {
        m_fixture->preferences->setString(u"quillon.historyLimit"_s, u"200"_s);
        m_fixture->preferences->setInteger(u"quillon.speedLimit"_s, 5);
        m_fixture->restart();
        QCOMPARE(m_fixture->state->historyLimit(), 200);
        QCOMPARE(m_fixture->state->speedLimit(), u"5"_s);
    }

    void theOldestRecordIsDroppedAtTheLimit()
    {
        AppState &state = *m_fixture->state;
        state.historyLimit = 25;
        fillHistory(state, 25);
        state.addToHistory(record(99));
        QCOMPARE(state.history().size(), 25);
        QCOMPARE(state.history().first().title, u"99"_s);
        QCOMPARE(state.history().last().title, u"23"_s);
    }

    void aLoweredLimitTakesEffectAtTheNextRecord()
    {
        AppState &state = *m_fixture->state;
        state.historyLimit = 200;
        fillHistory(state, 100);
        state.historyLimit = 25;
        state.saveSettings();
        QCOMPARE(state.history().size(), 100);
        state.addToHistory(record(99));
        QCOMPARE(state.history().size(), 25);
    }

    void theHistoryComesBackExactly()
    {
        AppState &state = *m_fixture->state;
        HistoryItem item = record(1);
        item.date.seconds = 785412345.1234567;
        state.addToHistory(item);
        state.addToHistory(item); // downloaded twice, recorded twice
        m_fixture->restart();
        QCOMPARE(m_fixture->state->history(), AppState::History({item, item}));
    }

    void anUndecodableHistoryStaysUntilTheNextSave()
    {
        const QByteArray broken = "[{\"id\":5}]";
        m_fixture->preferences->setBlob(u"quillon.history.v2"_s,
                                        [broken] { return std::optional(broken); });
        m_fixture->restart();
        QVERIFY(m_fixture->state->history().isEmpty());
        m_fixture->state->saveSettings();
        m_fixture->restart();
        QCOMPARE(m_fixture->preferences->blob(u"quillon.history.v2"_s), broken);
        m_fixture->state->addToHistory(record(1));
        m_fixture->restart();
        QCOMPARE(m_fixture->state->history().size(), 1);
    }

    void aMixedAddressIsToldThroughBlanks()
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

    void aFileIsRevealedAndAMissingOneOpensItsFolder()
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

    void aFinishedRunIsAnnouncedBySoundAndNotification()
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
