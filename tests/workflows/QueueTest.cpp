// SPDX-License-Identifier: GPL-3.0-or-later
#include "StateFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

using Case = DownloadStatus::Case;

namespace {

/// A script that answers fetches, and for downloads does what is said.
QByteArray script(const QByteArray &download = "echo \"[download] Destination: /d/$N.mp4\"")
{
    return "for LAST; do :; done\n"
           "entry() { echo '{\"_type\":\"url\",\"id\":\"'$1'\",\"title\":\"Title '$1'\","
           "\"url\":\"https://x/watch?v='$1'\"}'; }\n"
           "case \"$*\" in\n"
           "*--flat-playlist*) entry a; entry b; entry c;;\n"
           "*--dump-json*) echo '{\"id\":\"i\",\"title\":\"Title of '$LAST'\","
           "\"thumbnail\":\"http://x/t.jpg\"}';;\n"
           "*) "
        + download + ";;\nesac";
}

} // namespace

class QueueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        tool().setScript(script());
    }
    void cleanup() { m_fixture.reset(); }

    // Adding

    void anAddressIsSeenAtOnceAndThenKnown()
    {
        state().addURLToQueue(u"  https://x/watch?v=1\n"_s);
        QCOMPARE(statuses(), QList{Case::fetching});
        QCOMPARE(item(0)->url, u"https://x/watch?v=1"_s);
        QCOMPARE(item(0)->title(), u"https://x/watch?v=1"_s);
        WAIT_FOR(statuses() == QList{Case::waiting});
        QCOMPARE(item(0)->title(), u"Title of https://x/watch?v=1"_s);
    }

    void blankTextIsIgnored()
    {
        state().addURLToQueue(u" \n\t "_s);
        state().addURLToQueue(QString());
        QVERIFY(state().queue().isEmpty());
    }

    void textOfTwoLinesIsOneAddressWhoseFetchFails()
    {
        tool().setScript("echo 'is not a valid URL' >&2; exit 1");
        state().addURLToQueue(u"https://x/1\nhttps://x/2"_s);
        QCOMPARE(state().queue().size(), 1);
        WAIT_FOR(statuses() == QList{Case::failed});
        QCOMPARE(tool().calls().size(), 1);
        QCOMPARE(item(0)->status().message(), u"Failed to fetch info: is not a valid URL\n"_s);
    }

    void theSameAddressTwiceIsTwoEntries()
    {
        add({u"https://x/1"_s, u"https://x/1"_s});
        QCOMPARE(state().queue().size(), 2);
        QVERIFY(item(0)->id != item(1)->id);
    }

    void additionsAreFetchedInParallel()
    {
        tool().setScript(tool().gate("a") + script());
        state().addURLToQueue(u"https://x/1"_s);
        state().addURLToQueue(u"https://x/2"_s);
        WAIT_FOR(tool().processIdentifiers().size() == 2);
        tool().open("a");
        tool().open("a");
        WAIT_FOR(statuses() == QList<Case>(2, Case::waiting));
    }

    void aPlaylistGivesWayToItsEntriesAtTheEndOfTheQueue_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("playlist page") << u"https://x/playlist?p"_s;
        QTest::newRow("video of a playlist") << u"https://x/watch?v=1&list=2"_s;
    }

    void aPlaylistGivesWayToItsEntriesAtTheEndOfTheQueue()
    {
        QFETCH(QString, address);
        tool().setScript("case \"$*\" in *--flat-playlist*) " + tool().gate("list") + ";; esac\n"
                         + script());
        state().addURLToQueue(address);
        state().addURLToQueue(u"https://x/later"_s);
        WAIT_FOR(statuses() == QList({Case::fetching, Case::waiting}));
        tool().open("list");
        WAIT_FOR(state().queue().size() == 4);
        QCOMPARE(
            titles(),
            QStringList({u"Title of https://x/later"_s, u"Title a"_s, u"Title b"_s, u"Title c"_s}));
        QCOMPARE(item(1)->url, u"https://x/watch?v=a"_s);
        QCOMPARE(statuses(), QList<Case>(4, Case::waiting));
    }

    void theTestForPlaylistsIsTheQueuesOwn()
    {
        state().fetchAsPlaylist = false;
        state().addURLToQueue(u"https://x/watch?v=1&list=2"_s);
        WAIT_FOR(state().queue().size() == 3);
        state().fetchAsPlaylist = true;
        state().addURLToQueue(u"https://x/watch?v=1&LIST=2"_s);
        WAIT_FOR(statuses() == QList<Case>(4, Case::waiting));
    }

    void anEntryWithoutAddressGetsThePlaylists()
    {
        tool().setScript(R"(echo '{"_type":"url","id":"a","title":"A"}')");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        WAIT_FOR(statuses() == QList{Case::waiting});
        QCOMPARE(item(0)->title(), u"A"_s);
        QCOMPARE(item(0)->url, u"https://x/playlist?p"_s);
    }

    void anEmptyPlaylistLeavesNothing()
    {
        tool().setScript("exit 0");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        QCOMPARE(state().queue().size(), 1);
        WAIT_FOR(state().queue().isEmpty());
    }

    void aPlaylistThatFailsStaysWithItsReason()
    {
        tool().setScript("echo private >&2; exit 1");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        WAIT_FOR(statuses() == QList{Case::failed});
        QCOMPARE(item(0)->status().message(), u"Failed to fetch info: private\n"_s);
    }

    void aPlaceholderThatWasRemovedWhileItFetchesStillExpands()
    {
        tool().setScript(tool().gate("list") + script());
        state().addURLToQueue(u"https://x/playlist?p"_s);
        WAIT_FOR(tool().calls().size() == 1);
        state().removeFromQueue(item(0)->id);
        QVERIFY(state().queue().isEmpty());
        tool().open("list");
        WAIT_FOR(state().queue().size() == 3);
    }

    void anAddressLikeAnOptionFailsWithAClearText()
    {
        state().addURLToQueue(u"--exec=x"_s);
        WAIT_FOR(statuses() == QList{Case::failed});
        QVERIFY(item(0)->status().message().startsWith(u"Failed to fetch info: The address"_s));
        QVERIFY(tool().calls().isEmpty());
    }

    void aFetchThatHangsHoldsNothingUp()
    {
        tool().setScript("case \"$*\" in *hang*) " + tool().gate("never") + ";; esac\n" + script());
        state().addURLToQueue(u"https://x/hang"_s);
        add({u"https://x/1"_s});
        state().startQueueDownload();
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), QList({Case::fetching, Case::done}));
    }

    // Running

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
        QCOMPARE(statuses(), QList<Case>(2, Case::done));
        QCOMPARE(item(1)->status().path(), u"/d/4.mp4"_s);
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
        WAIT_FOR(item(0)->status().progress() > 0);
        QVERIFY(item(0)->status() == DownloadStatus::downloading(0.425, u"2MiB/s"_s, u"00:42"_s));
        QVERIFY(item(1)->status() == DownloadStatus::waiting());
        tool().open("a");
        WAIT_FOR(item(0)->status() == DownloadStatus::processing());
        QCOMPARE(state().downloadProgress(), 0.0);
        QVERIFY(state().downloadStatus() == DownloadUIStatus::idle());
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
        QCOMPARE(statuses(), QList({Case::done, Case::failed, Case::done}));
        QCOMPARE(item(1)->status().message(), u"Download failed: gone\n"_s);
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
        QCOMPARE(statuses(), QList{Case::failed});
        QCOMPARE(notifier().posted.first().body, u"\"Queue\" downloaded successfully"_s);
    }

    void doneAndFailedEntriesAreTakenAgain()
    {
        add({u"https://x/1"_s, u"https://x/bad"_s});
        tool().setScript(script("case $LAST in *bad) exit 1;; esac"));
        state().startQueueDownload();
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), QList({Case::done, Case::failed}));
        tool().setScript(script());
        state().startQueueDownload();
        QCOMPARE(state().totalDownloadCount(), 2);
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), QList<Case>(2, Case::done));
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
        WAIT_FOR(statuses() == QList{Case::downloading});
        add({u"https://x/2"_s});
        tool().open("run");
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), QList({Case::done, Case::waiting}));
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
        WAIT_FOR(statuses() == QList{Case::downloading});
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
        WAIT_FOR(statuses() == QList<Case>(100, Case::waiting));
        tool().setScript(
            script("[ $(( ${LAST##*/} % 3 )) = 0 ] && { echo third >&2; exit 1; }; :"));
        state().startQueueDownload();
        QVERIFY(QTest::qWaitFor([this] { return !state().isQueueDownloading(); }, 120'000));
        QCOMPARE(statuses().count(Case::failed), 34);
        QCOMPARE(statuses().count(Case::done), 66);
        QCOMPARE(item(99)->status().message(), u"Download failed: third\n"_s);
    }

    void aProcessThatIsKilledFromOutsideFailsItsEntryAlone()
    {
        add({u"https://x/1"_s, u"https://x/2"_s});
        tool().setScript(script("case $LAST in */1) " + tool().gate("never") + ";; esac"));
        state().startQueueDownload();
        WAIT_FOR(tool().calls().size() == 3);
        kill(static_cast<pid_t>(tool().processIdentifiers().last()), SIGKILL);
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), QList({Case::failed, Case::done}));
    }

    // Clearing, removing, pausing

    void clearingKeepsWhatIsGoingOnAndTheRunDownloadsTheRestUnseen()
    {
        add({u"https://x/1"_s, u"https://x/2"_s, u"https://x/3"_s});
        tool().setScript(script(tool().gate("run")));
        state().startQueueDownload();
        WAIT_FOR(statuses().first() == Case::downloading);
        tool().open("run");
        WAIT_FOR(statuses().at(1) == Case::downloading);
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
        WAIT_FOR(statuses() == QList({Case::fetching, Case::failed}));
        state().clearQueue();
        QCOMPARE(statuses(), QList{Case::fetching});
    }

    void removingARunningEntryDoesNotStopIt()
    {
        add({u"https://x/1"_s});
        tool().setScript(script(tool().gate("run")));
        state().startQueueDownload();
        WAIT_FOR(statuses() == QList{Case::downloading});
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
        WAIT_FOR(statuses() == QList{Case::processing});
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
        WAIT_FOR(statuses().first() == Case::processing);
        const qint64 process = tool().processIdentifiers().last();
        m_fixture->state.reset();
        QVERIFY(!isAlive(process));
        QCOMPARE(tool().calls().size(), 3);
        QVERIFY(notifier().posted.isEmpty());
    }

private:
    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    RecordingDesktop::RecordingNotifier &notifier() { return *m_fixture->desktop.notifier; }
    std::shared_ptr<DownloadItem> item(qsizetype index) { return state().queue().at(index); }

    /// Puts addresses into the queue and waits until they are known.
    void add(const QStringList &addresses)
    {
        for (const QString &address : addresses) {
            state().addURLToQueue(address);
            WAIT_FOR(item(state().queue().size() - 1)->status() == DownloadStatus::waiting());
        }
    }

    QList<Case> statuses()
    {
        QList<Case> found;
        for (const auto &each : state().queue())
            found.append(each->status().kind());
        return found;
    }

    QStringList titles()
    {
        QStringList found;
        for (const auto &each : state().queue())
            found.append(each->title());
        return found;
    }

    std::unique_ptr<StateFixture> m_fixture;
};

QTEST_MAIN(QueueTest)
#include "QueueTest.moc"
