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
        add({u"https://x/1"_s});
        AssignmentRecorder recorder(state());
        state().startQueueDownload();
        QCOMPARE(recorder.take(),
                 QStringList({u"isQueueDownloading"_s, u"isPaused"_s, u"totalDownloadCount"_s,
                              u"currentDownloadIndex"_s}));
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(recorder.take(),
                 QStringList({u"currentDownloadIndex"_s, u"currentDownloadTitle"_s, u"history"_s,
                              u"isQueueDownloading"_s, u"isPaused"_s, u"currentDownloadTitle"_s,
                              u"currentDownloadIndex"_s, u"totalDownloadCount"_s}));
    }

    void anEntryWithoutInfoIsRecordedByItsAddress()
    {
        state().queue = {std::make_shared<DownloadItem>(u"https://x/1"_s)};
        state().startQueueDownload();
        WAIT_FOR(!state().isQueueDownloading());
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
        add({u"https://x/1"_s, u"https://x/2"_s});
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
        WAIT_FOR(!state().isQueueDownloading());
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
        add({u"https://x/1"_s, u"https://x/2"_s});
        tool().setScript(script("echo '[download]  42.5% of 1MiB at 2MiB/s ETA 00:42'\n"
                                + tool().gate("a") + "echo '[Merger] x'\n" + tool().gate("b")));
        const QSignalSpy queueSpy(&state(), &AppState::queueChanged);
        state().startQueueDownload();
        WAIT_FOR(progressOf(item(0)->status()) > 0);
        QVERIFY(item(0)->status()
                == DownloadStatus(Status::Downloading{0.425, u"2MiB/s"_s, u"00:42"_s}));
        QVERIFY(item(1)->status() == DownloadStatus(Status::Waiting{}));
        tool().open("a");
        WAIT_FOR(item(0)->status() == DownloadStatus(Status::Processing{}));
        QCOMPARE(state().downloadProgress(), 0.0);
        QVERIFY(state().downloadStatus() == DownloadUIStatus(Status::Idle{}));
        QCOMPARE(queueSpy.count(), 0);
        for (const char *gate : {"b", "a", "b"})
            tool().open(gate);
        WAIT_FOR(!state().isQueueDownloading());
    }

    void ofThreeOneFailsAndTheNotificationCountsThree()
    {
        add({u"https://x/1"_s, u"https://x/bad"_s, u"https://x/3"_s});
        tool().setScript(script("case $LAST in *bad) echo gone >&2; exit 1;; esac"));
        state().startQueueDownload();
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), Kinds({StatusKind::Done, StatusKind::Failed, StatusKind::Done}));
        QCOMPARE(messageOf(item(1)->status()), u"Download failed: gone\n"_s);
        QCOMPARE(state().history().size(), 2);
        QVERIFY(!state().history().first().savedPath.has_value());
        QCOMPARE(notifier().posted.first().body, u"3 files downloaded successfully"_s);
    }

    void aRunOfOneAnnouncesQueueAlsoWhenItFailed()
    {
        add({u"https://x/1"_s});
        tool().setScript("exit 1");
        state().startQueueDownload();
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), Kinds{StatusKind::Failed});
        QCOMPARE(notifier().posted.first().body, u"\"Queue\" downloaded successfully"_s);
    }

    void doneAndFailedEntriesAreTakenAgain()
    {
        add({u"https://x/1"_s, u"https://x/bad"_s});
        tool().setScript(script("case $LAST in *bad) exit 1;; esac"));
        state().startQueueDownload();
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), Kinds({StatusKind::Done, StatusKind::Failed}));
        tool().setScript(script());
        state().startQueueDownload();
        QCOMPARE(state().totalDownloadCount(), 2);
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), Kinds(2, StatusKind::Done));
        QCOMPARE(state().history().size(), 3);
    }

    void anEntryThatIsFetchedIsNotTaken()
    {
        add({u"https://x/1"_s});
        tool().setScript("case \"$*\" in *hang*) " + tool().gate("never") + ";; esac\n" + script());
        state().addURLToQueue(u"https://x/hang"_s);
        state().startQueueDownload();
        QCOMPARE(state().totalDownloadCount(), 1);
        WAIT_FOR(!state().isQueueDownloading());
    }

    void anEntryThatWasAddedLaterIsNotPartOfTheRun()
    {
        add({u"https://x/1"_s});
        tool().setScript(script(tool().gate("run")));
        state().startQueueDownload();
        WAIT_FOR(statuses() == Kinds{StatusKind::Downloading});
        add({u"https://x/2"_s});
        tool().open("run");
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), Kinds({StatusKind::Done, StatusKind::Waiting}));
    }

    void formatQualityAndFolderAreFixedAndTheOtherSettingsRead()
    {
        add({u"https://x/1"_s, u"https://x/2"_s});
        tool().setScript(script(tool().gate("run")));
        state().multiQuality = QualityOption::queueOptions().at(4);
        state().startQueueDownload();
        WAIT_FOR(tool().calls().size() == 3);
        state().multiFormat = MediaFormat::mp3;
        state().multiQuality = QualityOption::best(MediaFormat::mp3);
        state().downloadDir = u"/elsewhere"_s;
        state().speedLimit = u"2M"_s;
        state().cookiesBrowser = u"edge"_s;
        tool().open("run");
        WAIT_FOR(tool().calls().size() == 4);
        const QStringList second = tool().calls().last();
        QVERIFY(second.contains(QualityOption::queueOptions().at(4).formatString));
        QVERIFY(second.contains(m_fixture->folder.path() + u"/%(title)s.%(ext)s"_s));
        QVERIFY(second.contains(u"2M"_s) && second.contains(u"edge"_s));
        tool().open("run");
        WAIT_FOR(!state().isQueueDownloading());
    }

    void mp3OverridesTheQuality()
    {
        add({u"https://x/1"_s});
        state().multiFormat = MediaFormat::mp3;
        state().multiQuality = QualityOption::queueOptions().at(2);
        state().startQueueDownload();
        WAIT_FOR(!state().isQueueDownloading());
        QVERIFY(tool().calls().last().contains(u"bestaudio/best"_s));
        QCOMPARE(state().history().first().format, u"mp3"_s);
        QCOMPARE(state().history().first().quality, u"Best"_s);
    }

    void aSecondStartDuringARunIsRefused()
    {
        add({u"https://x/1"_s});
        tool().setScript(script(tool().gate("run")));
        state().startQueueDownload();
        WAIT_FOR(statuses() == Kinds{StatusKind::Downloading});
        state().startQueueDownload();
        tool().open("run");
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(notifier().posted.size(), 1);
        QCOMPARE(tool().calls().size(), 2);
    }

    void ofAHundredWhereEveryThirdFailsTheRunGoesOnToTheEnd()
    {
        for (int number = 0; number < 100; ++number)
            state().addURLToQueue(u"https://x/%1"_s.arg(number));
        WAIT_FOR(statuses() == Kinds(100, StatusKind::Waiting));
        tool().setScript(
            script("[ $(( ${LAST##*/} % 3 )) = 0 ] && { echo third >&2; exit 1; }; :"));
        state().startQueueDownload();
        QVERIFY(QTest::qWaitFor([this] { return !state().isQueueDownloading(); }, 120'000));
        QCOMPARE(statuses().count(StatusKind::Failed), 34);
        QCOMPARE(statuses().count(StatusKind::Done), 66);
        QCOMPARE(messageOf(item(99)->status()), u"Download failed: third\n"_s);
    }

    void aProcessThatIsKilledFromOutsideFailsItsEntryAlone()
    {
        add({u"https://x/1"_s, u"https://x/2"_s});
        tool().setScript(script("case $LAST in */1) " + tool().gate("never") + ";; esac"));
        state().startQueueDownload();
        WAIT_FOR(tool().calls().size() == 3);
        kill(static_cast<pid_t>(tool().processIdentifiers().last()), SIGKILL);
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), Kinds({StatusKind::Failed, StatusKind::Done}));
    }

    // Clearing, removing, pausing

    void clearingKeepsWhatIsGoingOnAndTheRunDownloadsTheRestUnseen()
    {
        add({u"https://x/1"_s, u"https://x/2"_s, u"https://x/3"_s});
        tool().setScript(script(tool().gate("run")));
        state().startQueueDownload();
        WAIT_FOR(statuses().first() == StatusKind::Downloading);
        tool().open("run");
        WAIT_FOR(statuses().at(1) == StatusKind::Downloading);
        state().clearQueue();
        QCOMPARE(titles(), QStringList{u"Title of https://x/2"_s});
        tool().open("run");
        tool().open("run");
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(state().history().size(), 3);
        QCOMPARE(notifier().posted.first().body, u"3 files downloaded successfully"_s);
    }

    void clearingKeepsEntriesThatAreFetched()
    {
        tool().setScript("case \"$*\" in *hang*) " + tool().gate("never") + ";; *) exit 1;; esac");
        state().addURLToQueue(u"https://x/hang"_s);
        state().addURLToQueue(u"https://x/bad"_s);
        WAIT_FOR(statuses() == Kinds({StatusKind::Fetching, StatusKind::Failed}));
        state().clearQueue();
        QCOMPARE(statuses(), Kinds{StatusKind::Fetching});
    }

    void removingARunningEntryDoesNotStopIt()
    {
        add({u"https://x/1"_s});
        tool().setScript(script(tool().gate("run")));
        state().startQueueDownload();
        WAIT_FOR(statuses() == Kinds{StatusKind::Downloading});
        state().removeFromQueue(item(0)->id);
        QVERIFY(state().queue().isEmpty());
        tool().open("run");
        WAIT_FOR(state().history().size() == 1);
    }

    void pauseStopsTheRunningToolAndTheEndUnsetsIt()
    {
        add({u"https://x/1"_s});
        tool().setScript(script("echo '[Merger] x'\n" + tool().gate("run")));
        state().startQueueDownload();
        WAIT_FOR(statuses() == Kinds{StatusKind::Processing});
        state().togglePause();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        QVERIFY(state().isPaused());
        state().togglePause();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) != "T");
        state().togglePause();
        kill(static_cast<pid_t>(tool().processIdentifiers().last()), SIGCONT);
        tool().open("run");
        WAIT_FOR(!state().isQueueDownloading());
        QVERIFY(!state().isPaused());
    }

    void theEndOfTheProgramStartsNoFurtherEntry()
    {
        add({u"https://x/1"_s, u"https://x/2"_s});
        tool().setScript(script("echo '[Merger] x'\n" + tool().gate("never")));
        state().startQueueDownload();
        WAIT_FOR(statuses().first() == StatusKind::Processing);
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
        tool().setScript(script(tool().gate("run")));
        app.state().startQueueDownload();
        WAIT_FOR(tool().calls().size() == 1);
        QVERIFY(!app.canPause());
        app.togglePause();
        QVERIFY(!app.state().isPaused());
        tool().open("run");
        WAIT_FOR(!app.state().isQueueDownloading());
    }

    void singleModeAndTheQueueShareTitleCountAndPause()
    {
        add({u"https://x/1"_s});
        state().singleInfo = StateFixture::video(u"a"_s);
        const QByteArray single = tool().gate("single");
        tool().setScript(
            script("case $LAST in */1) " + tool().gate("queue") + ";; *) " + single + ";; esac"));
        state().startSingleDownload();
        WAIT_FOR(tool().calls().size() == 2);
        const qint64 first = tool().processIdentifiers().last();
        WAIT_FOR(state().service.activeProcess()
                 && state().service.activeProcess()->processIdentifier() == first);
        state().togglePause();
        WAIT_FOR(stateOf(first) == "T");
        state().startQueueDownload();
        QVERIFY(!state().isPaused());
        WAIT_FOR(stateOf(first) != "T");
        WAIT_FOR(tool().calls().size() == 3);
        QCOMPARE(state().currentDownloadTitle(), u"Title of https://x/1"_s);
        tool().open("queue");
        WAIT_FOR(!state().isQueueDownloading());
        // The single run goes on; what it showed was zeroed with the queue's.
        QVERIFY(state().isDownloading());
        QCOMPARE(state().totalDownloadCount(), 0);
        QCOMPARE(state().currentDownloadTitle(), QString());
        tool().open("single");
        WAIT_FOR(!state().isDownloading());
    }
};

QTEST_MAIN(QueueRunTest)
#include "QueueRunTest.moc"
