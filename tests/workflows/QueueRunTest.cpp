// SPDX-License-Identifier: GPL-3.0-or-later
#include "AssignmentRecorder.h"
#include "QueueFixture.h"
#include "QuillonApp.h"

/// What a run does with the queue.
class QueueRunTest : public QueueFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aRunAssignsInItsOrder()
    {
        QVERIFY(add({u"https://x/1"_s}));
        AssignmentRecorder recorder(state());
        state().startQueueDownload();
        QCOMPARE(recorder.take(),
                 QStringList({u"isQueueDownloading"_s, u"isPaused"_s, u"totalDownloadCount"_s,
                              u"currentDownloadIndex"_s}));
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(recorder.take(),
                 QStringList({u"currentDownloadIndex"_s, u"currentDownloadTitle"_s, u"history"_s,
                              u"isQueueDownloading"_s, u"isPaused"_s, u"currentDownloadTitle"_s,
                              u"currentDownloadIndex"_s, u"totalDownloadCount"_s}));
    }

    void anEntryWithoutInfoIsRecordedByURL()
    {
        state().queue = {std::make_shared<DownloadItem>(u"https://x/1"_s)};
        state().startQueueDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        const HistoryItem record = state().history().first();
        QCOMPARE(record.title, u"https://x/1"_s);
        QCOMPARE(record.url, u"https://x/1"_s);
        QCOMPARE(record.thumbnailURL, QString());
    }

    void anEmptyQueueDoesNotStart()
    {
        const QSignalSpy spy(&state(), &AppState::isQueueDownloadingChanged);
        state().startQueueDownload();
        QCOMPARE(spy.count(), 0);
        QVERIFY(notifier().posted.isEmpty());
    }

    void entriesAreDownloadedInOrderAndRecorded()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/2"_s}));
        state().multiQuality = QualityOption::queueOptions().at(2);
        QStringList course;
        connect(&state(), &AppState::currentDownloadTitleChanged, &state(), [&] {
            course.append(u"%1/%2 %3"_s.arg(state().currentDownloadIndex())
                              .arg(state().totalDownloadCount())
                              .arg(state().currentDownloadTitle()));
        });
        state().startQueueDownload();
        QVERIFY(state().isQueueDownloading() && !state().isDownloading());
        QCOMPARE(state().totalDownloadCount(), 2);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(
            course,
            QStringList({u"1/2 Title of https://x/1"_s, u"2/2 Title of https://x/2"_s, u"2/2 "_s}));
        QCOMPARE(statuses(), Kinds(2, StatusKind::Done));
        QCOMPARE(pathOf(item(1)->status()), u"/d/4.mp4"_s);
        const HistoryItem record = state().history().first();
        QCOMPARE(record.title, u"Title of https://x/2"_s);
        QCOMPARE(record.thumbnailURL, u"http://x/t.jpg"_s);
        QCOMPARE(record.url, u"https://x/2"_s);
        QCOMPARE(record.format, u"mp4"_s);
        QCOMPARE(record.quality, u"720p"_s);
        QCOMPARE(record.savedPath, u"/d/4.mp4"_s);
        QCOMPARE(state().totalDownloadCount(), 0);
        QCOMPARE(state().currentDownloadIndex(), 0);
        QCOMPARE(notifier().posted.first().body, u"2 files downloaded successfully"_s);
    }

    void reportsChangeTheEntryAlone()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/2"_s}));
        respondToFetches("print [download]  42.5% of 1MiB at 2MiB/s ETA 00:42\n"
                         "wait a\n"
                         "print [Merger] x\n"
                         "wait b");
        const QSignalSpy queueSpy(&state(), &AppState::queueChanged);
        state().startQueueDownload();
        QTRY_VERIFY_WITH_TIMEOUT(progressOf(item(0)->status()) > 0, patience);
        QVERIFY(item(0)->status()
                == DownloadStatus(Status::Downloading{0.425, u"2MiB/s"_s, u"00:42"_s}));
        QVERIFY(item(1)->status() == DownloadStatus(Status::Waiting{}));
        tool().open("a");
        QTRY_COMPARE_WITH_TIMEOUT(item(0)->status(), DownloadStatus(Status::Processing{}),
                                  patience);
        QCOMPARE(state().downloadProgress(), 0.0);
        QVERIFY(state().downloadStatus() == DownloadUIStatus(Status::Idle{}));
        QCOMPARE(queueSpy.count(), 0);
        for (const char *gate : {"b", "a", "b"})
            tool().open(gate);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
    }

    void theNotificationAlsoCountsFailures()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/bad"_s, u"https://x/3"_s}));
        respondToFetches("for *bad fail gone");
        state().startQueueDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(statuses(), Kinds({StatusKind::Done, StatusKind::Failed, StatusKind::Done}));
        QCOMPARE(messageOf(item(1)->status()), u"Download failed: gone\n"_s);
        QCOMPARE(state().history().size(), 2);
        QVERIFY(!state().history().first().savedPath.has_value());
        QCOMPARE(notifier().posted.first().body, u"3 files downloaded successfully"_s);
    }

    void aRunOfOneAnnouncesQueueEvenFailed()
    {
        QVERIFY(add({u"https://x/1"_s}));
        tool().respond("exit 1");
        state().startQueueDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(statuses(), Kinds{StatusKind::Failed});
        QCOMPARE(notifier().posted.first().body, u"\"Queue\" downloaded successfully"_s);
    }

    void doneAndFailedEntriesAreTakenAgain()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/bad"_s}));
        respondToFetches("for *bad exit 1");
        state().startQueueDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(statuses(), Kinds({StatusKind::Done, StatusKind::Failed}));
        respondToFetches();
        state().startQueueDownload();
        QCOMPARE(state().totalDownloadCount(), 2);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(statuses(), Kinds(2, StatusKind::Done));
        QCOMPARE(state().history().size(), 3);
    }

    void anEntryThatIsFetchedIsNotTaken()
    {
        QVERIFY(add({u"https://x/1"_s}));
        tool().respond("for *hang* wait never\n" + sample("fetches"));
        state().addURLToQueue(u"https://x/hang"_s);
        state().startQueueDownload();
        QCOMPARE(state().totalDownloadCount(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
    }

    void entriesAddedLaterAreNotInTheRun()
    {
        QVERIFY(add({u"https://x/1"_s}));
        respondToFetches("wait run");
        state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Downloading}, patience);
        QVERIFY(add({u"https://x/2"_s}));
        tool().open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(statuses(), Kinds({StatusKind::Done, StatusKind::Waiting}));
    }

    void onlyFormatQualityAndFolderAreFixed()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/2"_s}));
        respondToFetches("wait run");
        state().multiQuality = QualityOption::queueOptions().at(4);
        state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 3, patience);
        state().multiFormat = MediaFormat::mp3;
        state().multiQuality = QualityOption::best(MediaFormat::mp3);
        state().downloadDir = u"/elsewhere"_s;
        state().speedLimit = u"2M"_s;
        state().cookiesBrowser = u"edge"_s;
        tool().open("run");
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 4, patience);
        const QStringList second = tool().calls().last();
        QVERIFY(second.contains(QualityOption::queueOptions().at(4).formatString));
        QVERIFY(second.contains(m_fixture->folder.path() + u"/%(title)s.%(ext)s"_s));
        QVERIFY(second.contains(u"2M"_s) && second.contains(u"edge"_s));
        tool().open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
    }

    void mp3OverridesTheQuality()
    {
        QVERIFY(add({u"https://x/1"_s}));
        state().multiFormat = MediaFormat::mp3;
        state().multiQuality = QualityOption::queueOptions().at(2);
        state().startQueueDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QVERIFY(tool().calls().last().contains(u"bestaudio/best"_s));
        QCOMPARE(state().history().first().format, u"mp3"_s);
        QCOMPARE(state().history().first().quality, u"Best"_s);
    }

    void aSecondStartDuringARunIsRefused()
    {
        QVERIFY(add({u"https://x/1"_s}));
        respondToFetches("wait run");
        state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Downloading}, patience);
        state().startQueueDownload();
        tool().open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(notifier().posted.size(), 1);
        QCOMPARE(tool().calls().size(), 2);
    }

    void aRunOfAHundredSurvivesItsFailures()
    {
        for (int number = 0; number < 100; ++number)
            state().addURLToQueue(u"https://x/%1"_s.arg(number));
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds(100, StatusKind::Waiting), patience);
        QByteArray thirdsFail;
        for (int number = 0; number < 100; number += 3)
            thirdsFail += "for */" + QByteArray::number(number) + " fail third\n";
        respondToFetches(thirdsFail);
        state().startQueueDownload();
        QVERIFY(QTest::qWaitFor([this] { return !state().isQueueDownloading(); }, 120'000));
        QCOMPARE(statuses().count(StatusKind::Failed), 34);
        QCOMPARE(statuses().count(StatusKind::Done), 66);
        QCOMPARE(messageOf(item(99)->status()), u"Download failed: third\n"_s);
    }

    void killingAProcessFailsOnlyItsEntry()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/2"_s}));
        respondToFetches("for */1 wait never");
        state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 3, patience);
        kill(static_cast<pid_t>(tool().processIdentifiers().last()), SIGKILL);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(statuses(), Kinds({StatusKind::Failed, StatusKind::Done}));
    }

    // Clearing, removing, pausing

    void clearingInMidRunStillDownloadsTheRest()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/2"_s, u"https://x/3"_s}));
        respondToFetches("wait run");
        state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(statuses().first(), StatusKind::Downloading, patience);
        tool().open("run");
        QTRY_COMPARE_WITH_TIMEOUT(statuses().at(1), StatusKind::Downloading, patience);
        state().clearQueue();
        QCOMPARE(titles(), QStringList{u"Title of https://x/2"_s});
        tool().open("run");
        tool().open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(state().history().size(), 3);
        QCOMPARE(notifier().posted.first().body, u"3 files downloaded successfully"_s);
    }

    void clearingKeepsEntriesThatAreFetched()
    {
        tool().respond("for *hang* wait never\n"
                       "exit 1");
        state().addURLToQueue(u"https://x/hang"_s);
        state().addURLToQueue(u"https://x/bad"_s);
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds({StatusKind::Fetching, StatusKind::Failed}),
                                  patience);
        state().clearQueue();
        QCOMPARE(statuses(), Kinds{StatusKind::Fetching});
    }

    void removingARunningEntryDoesNotStopIt()
    {
        QVERIFY(add({u"https://x/1"_s}));
        respondToFetches("wait run");
        state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Downloading}, patience);
        state().removeFromQueue(item(0)->id);
        QVERIFY(state().queue().isEmpty());
        tool().open("run");
        QTRY_COMPARE_WITH_TIMEOUT(state().history().size(), 1, patience);
    }

    void pauseStopsTheToolUntilTheEnd()
    {
        QVERIFY(add({u"https://x/1"_s}));
        respondToFetches("print [Merger] x\n"
                         "wait run");
        state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Processing}, patience);
        state().togglePause();
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()), QByteArray("T"),
                                  patience);
        QVERIFY(state().isPaused());
        state().togglePause();
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()) != "T", patience);
        state().togglePause();
        kill(static_cast<pid_t>(tool().processIdentifiers().last()), SIGCONT);
        tool().open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QVERIFY(!state().isPaused());
    }

    void quittingStartsNoFurtherEntry()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/2"_s}));
        respondToFetches("print [Merger] x\n"
                         "wait never");
        state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(statuses().first(), StatusKind::Processing, patience);
        const qint64 process = tool().processIdentifiers().last();
        m_fixture->state.reset();
        QVERIFY(!isAlive(process));
        QCOMPARE(tool().calls().size(), 3);
        QVERIFY(notifier().posted.isEmpty());
    }

    void theMenusPauseIsForSingleModeAlone()
    {
        m_fixture->state.reset();
        QuillonApp app(m_fixture->parts());
        app.state().queue = AppState::Queue{std::make_shared<DownloadItem>(u"https://x/1"_s)};
        respondToFetches("wait run");
        app.state().startQueueDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        QVERIFY(!app.canPause());
        app.togglePause();
        QVERIFY(!app.state().isPaused());
        tool().open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!app.state().isQueueDownloading(), patience);
    }
};

QTEST_MAIN(QueueRunTest)
#include "QueueRunTest.moc"
