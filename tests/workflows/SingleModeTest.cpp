// SPDX-License-Identifier: GPL-3.0-or-later
#include "StateFixture.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

/// Writes down the names of the properties that are assigned.
class AssignmentRecorder : public QObject
{
    Q_OBJECT

public:
    explicit AssignmentRecorder(AppState &state)
    {
        const QMetaObject &meta = AppState::staticMetaObject;
        const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("note()"));
        for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index)
            connect(&state, meta.property(index).notifySignal(), this, slot);
    }

    QStringList take() { return std::exchange(m_names, {}); }

public Q_SLOTS:
    void note()
    {
        const QByteArray signal = sender()->metaObject()->method(senderSignalIndex()).name();
        const QString name = QString::fromLatin1(signal.chopped(7)); // "Changed"
        if (name != u"displayedDownloadStatus") // follows others, is never assigned
            m_names.append(name);
    }

private:
    QStringList m_names;
};

const QByteArray oneVideo = R"(echo '{"id":"i","title":"T","uploader":"U"}')";

} // namespace

class SingleModeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<StateFixture>(); }
    void cleanup() { m_fixture.reset(); }

    // Fetching

    void aFetchAssignsInItsOrder()
    {
        tool().setScript(oneVideo);
        state().singleURL = u" https://x/watch?v=a \n"_s;
        AssignmentRecorder recorder(state());
        state().fetchSingleInfo();
        QCOMPARE(recorder.take(),
                 QStringList({u"isFetching"_s, u"fetchError"_s, u"singleInfo"_s,
                              u"selectedPlaylistItems"_s, u"downloadStatus"_s}));
        WAIT_FOR(!state().isFetching());
        QCOMPARE(recorder.take(), QStringList({u"singleInfo"_s, u"isFetching"_s}));
        QCOMPARE(state().singleInfo()->originalURL, u"https://x/watch?v=a"_s);
        QCOMPARE(tool().calls().first().last(), u"https://x/watch?v=a"_s);
    }

    void aBlankAddressDoesNothingAndKeepsTheError()
    {
        state().fetchError = u"old"_s;
        state().singleURL = u" \n\t "_s;
        AssignmentRecorder recorder(state());
        state().fetchSingleInfo();
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(state().fetchError(), u"old"_s);
    }

    void aMixedAddressIsFetchedAsChosen()
    {
        state().singleURL = u"https://x/watch?v=abc&list=PL1"_s;
        fetch();
        QVERIFY(tool().calls().last().contains(u"--no-playlist"_s));
        state().fetchAsPlaylist = true;
        fetch();
        QVERIFY(tool().calls().last().contains(u"--yes-playlist"_s));
    }

    void aPlaylistAddressIsFetchedAsOneWhateverWasChosen()
    {
        state().singleURL = u"https://x/playlist?list=PL1"_s;
        fetch();
        QVERIFY(tool().calls().last().contains(u"--yes-playlist"_s));
    }

    void aPlaylistStartsWithEveryEntrySelected()
    {
        tool().setScript("for i in a b a; do "
                         "printf '{\"id\":\"%s\",\"url\":\"u%s\"}\\n' $i $i; done");
        state().singleURL = u"https://x/playlist?list=PL1"_s;
        AssignmentRecorder recorder(state());
        fetch();
        QCOMPARE(recorder.take().mid(5),
                 QStringList({u"singleInfo"_s, u"selectedPlaylistItems"_s, u"isFetching"_s}));
        QCOMPARE(state().singleInfo()->playlistEntries.size(), 3);
        QCOMPARE(state().selectedPlaylistItems(), AppState::EntrySelection({u"a"_s, u"b"_s}));
    }

    void aFailedFetchTellsWhy()
    {
        tool().setScript("echo no >&2; exit 1");
        state().singleURL = u"https://x/"_s;
        AssignmentRecorder recorder(state());
        fetch();
        QCOMPARE(recorder.take().mid(5), QStringList({u"fetchError"_s, u"isFetching"_s}));
        QCOMPARE(state().fetchError(), u"Failed to fetch info: no\n"_s);
        QVERIFY(!state().singleInfo());
    }

    void theReadersOwnErrorIsShownUnprefixed()
    {
        tool().setScript("echo garbage");
        state().singleURL = u"https://x/"_s;
        fetch();
        QVERIFY(!state().fetchError()->isEmpty());
        QVERIFY(!state().fetchError()->contains(u"rror:"_s));
    }

    void aMissingToolIsReported()
    {
        QFile::remove(tool().path());
        state().singleURL = u"https://x/"_s;
        fetch();
        QVERIFY(state().fetchError()->startsWith(u"Failed to fetch info: "_s));
    }

    void theBrowserOfTheMomentGivesTheCookies()
    {
        state().cookiesBrowser = u"brave"_s;
        state().singleURL = u"https://x/"_s;
        fetch();
        QVERIFY(tool().calls().last().contains(u"brave"_s));
    }

    void ofTwoFetchesTheOneThatEndsLastWins()
    {
        tool().setScript("if [ $N = 1 ]; then\n" + tool().gate("first")
                         + "echo '{\"title\":\"first\"}'; else echo '{\"title\":\"second\"}'; fi");
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        WAIT_FOR(tool().processIdentifiers().size() == 1);
        state().fetchSingleInfo();
        WAIT_FOR(state().singleInfo().has_value());
        QCOMPARE(state().singleInfo()->title, u"second"_s);
        tool().open("first");
        WAIT_FOR(state().singleInfo()->title == u"first"_s);
    }

    void aFetchThatComesBackAfterAClearStillLands()
    {
        tool().setScript(tool().gate("go") + oneVideo);
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        WAIT_FOR(tool().processIdentifiers().size() == 1);
        state().singleURL = QString();
        state().singleInfo = AppState::Info();
        state().resetDownload();
        tool().open("go");
        WAIT_FOR(state().singleInfo().has_value());
    }

    // Downloading

    void aRunAssignsInItsOrder()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        AssignmentRecorder recorder(state());
        state().startSingleDownload();
        QCOMPARE(recorder.take(),
                 QStringList({u"isDownloading"_s, u"isPaused"_s, u"downloadProgress"_s,
                              u"downloadSpeed"_s, u"downloadETA"_s, u"downloadStatus"_s,
                              u"totalDownloadCount"_s, u"currentDownloadIndex"_s,
                              u"currentDownloadTitle"_s}));
        QCOMPARE(state().currentDownloadIndex(), 0);
        WAIT_FOR(m_fixture->hasEnded());
        QCOMPARE(
            recorder.take(),
            QStringList({u"currentDownloadIndex"_s, u"currentDownloadTitle"_s, u"downloadStatus"_s,
                         u"downloadProgress"_s, u"history"_s, u"downloadStatus"_s,
                         u"isDownloading"_s, u"isPaused"_s, u"downloadProgress"_s}));
        // Single mode leaves its totals after the end.
        QCOMPARE(state().totalDownloadCount(), 1);
        QCOMPARE(state().currentDownloadIndex(), 1);
        QCOMPARE(state().currentDownloadTitle(), u"Title a"_s);
    }

    void withoutInfoNothingStarts()
    {
        AssignmentRecorder recorder(state());
        state().startSingleDownload();
        QCOMPARE(recorder.take(), QStringList());
    }

    void aFinishedRunIsRecordedAndAnnounced()
    {
        tool().setScript("echo '[download] Destination: /d/a.mp4'");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().selectedQuality = QualityOption::mp4Options().at(3);
        download();
        QVERIFY(state().downloadStatus() == DownloadUIStatus::done(m_fixture->folder.path()));
        QCOMPARE(state().history().size(), 1);
        const HistoryItem record = state().history().first();
        QCOMPARE(record.title, u"Title a"_s);
        QCOMPARE(record.thumbnailURL, u"http://127.0.0.1/a"_s);
        QCOMPARE(record.url, u"https://example.org/watch?v=a"_s);
        QCOMPARE(record.format, u"mp4"_s);
        QCOMPARE(record.quality, u"1080p"_s);
        QCOMPARE(record.savedPath, u"/d/a.mp4"_s);
        QCOMPARE(notifier().posted.size(), 1);
        QCOMPARE(notifier().posted.first().body, u"\"Title a\" downloaded successfully"_s);
        const QStringList arguments = tool().calls().last();
        QCOMPARE(arguments.last(), u"https://example.org/watch?v=a"_s);
        QVERIFY(arguments.contains(m_fixture->folder.path() + u"/%(title)s.%(ext)s"_s));
    }

    void mp3OverridesTheQualityAndIsRecordedAsSuch()
    {
        tool().setScript("echo '[download] Destination: /d/a.webm'\n"
                         "echo '[ExtractAudio] Destination: /d/a.mp3'");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().selectedQuality = QualityOption::mp4Options().at(3);
        state().selectedFormat = MediaFormat::mp3;
        download();
        QVERIFY(tool().calls().last().contains(u"bestaudio/best"_s));
        QCOMPARE(state().history().first().format, u"mp3"_s);
        QCOMPARE(state().history().first().quality, u"Best"_s);
        QCOMPARE(state().history().first().savedPath, u"/d/a.webm"_s);
    }

    void selectedEntriesAreDownloadedOneAfterAnother()
    {
        tool().setScript("echo \"[download] Destination: /d/$N.mp4\"");
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"c"_s, u"a"_s});
        QList<qint64> indexes;
        connect(&state(), &AppState::currentDownloadIndexChanged, &state(),
                [&] { indexes.append(state().currentDownloadIndex()); });
        download();
        QCOMPARE(indexes, QList<qint64>({0, 1, 2}));
        QCOMPARE(state().totalDownloadCount(), 2);
        QCOMPARE(state().history().size(), 2);
        QCOMPARE(state().history().at(0).title, u"Title c"_s); // newest first
        QCOMPARE(state().history().at(0).savedPath, u"/d/2.mp4"_s);
        QCOMPARE(state().history().at(1).title, u"Title a"_s);
        QCOMPARE(notifier().posted.first().body, u"2 files downloaded successfully"_s);
    }

    void theFailureOfTheSecondOfThreeStopsTheRun()
    {
        tool().setScript("[ $N = 2 ] && { echo no >&2; exit 1; }; exit 0");
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s, u"b"_s, u"c"_s});
        AssignmentRecorder recorder(state());
        download();
        QCOMPARE(recorder.take().last(3),
                 QStringList({u"downloadStatus"_s, u"isDownloading"_s, u"isPaused"_s}));
        QVERIFY(state().downloadStatus() == DownloadUIStatus::failed(u"Download failed: no\n"_s));
        QCOMPARE(state().history().size(), 1);
        QCOMPARE(state().currentDownloadIndex(), 2);
        QCOMPARE(tool().calls().size(), 2);
        QVERIFY(notifier().posted.isEmpty());
    }

    void anEmptySelectionIsDoneAtOnceAndAnnouncedByTitle()
    {
        VideoInfo playlist = StateFixture::playlist({u"a"_s});
        playlist.playlistTitle = u"Mix"_s;
        state().singleInfo = playlist;
        download();
        QVERIFY(state().downloadStatus() == DownloadUIStatus::done(m_fixture->folder.path()));
        QCOMPARE(state().downloadProgress(), 1.0);
        QCOMPARE(notifier().posted.first().body, u"\"Mix\" downloaded successfully"_s);
        QVERIFY(tool().calls().isEmpty());
    }

    void anEntryWithoutAddressIsPassedAsEmptyText()
    {
        VideoInfo playlist = StateFixture::playlist({u"a"_s});
        playlist.playlistEntries.first().originalURL = QString();
        state().singleInfo = playlist;
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s});
        download();
        QCOMPARE(tool().calls().first().last(), QString());
    }

    void anEntrysAddressLikeAnOptionFailsTheRun()
    {
        VideoInfo video = StateFixture::video(u"a"_s);
        video.originalURL = u"--exec=x"_s;
        state().singleInfo = video;
        download();
        QVERIFY(state().downloadStatus().message().startsWith(u"Download failed: The address"_s));
        QVERIFY(tool().calls().isEmpty());
    }

    void settingsAreReadAfreshForEachFileAndTheFolderOnce()
    {
        tool().setScript(tool().gate("go"));
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s, u"b"_s});
        state().startSingleDownload();
        WAIT_FOR(tool().calls().size() == 1);
        state().speedLimit = u"2M"_s;
        state().cookiesBrowser = u"edge"_s;
        state().downloadDir = u"/elsewhere"_s;
        state().selectedFormat = MediaFormat::mp3;
        tool().open("go");
        WAIT_FOR(tool().calls().size() == 2);
        tool().open("go");
        WAIT_FOR(m_fixture->hasEnded());
        const QStringList second = tool().calls().last();
        QVERIFY(second.contains(u"2M"_s) && second.contains(u"edge"_s));
        QVERIFY(second.contains(m_fixture->folder.path() + u"/%(title)s.%(ext)s"_s));
        QVERIFY(!second.contains(u"-x"_s));
    }

    void progressIsShownAsDelivered()
    {
        tool().setScript("echo '[download]  42.5% of 1MiB at 2.50MiB/s ETA 00:42'\n"
                         + tool().gate("go"));
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(!state().downloadSpeed().isEmpty());
        QCOMPARE(state().downloadProgress(), 0.425);
        QCOMPARE(state().downloadSpeed(), u"2.50MiB/s"_s);
        QCOMPARE(state().downloadETA(), u"00:42"_s);
        QVERIFY(state().downloadStatus() == DownloadUIStatus::downloading());
        tool().open("go");
        WAIT_FOR(m_fixture->hasEnded());
        QCOMPARE(state().downloadProgress(), 1.0);
    }

    void progressLeavesTheStatusButTheDisplayFollowsTheLastCall()
    {
        const auto downloading = DownloadUIStatus::downloading();
        const auto processing = DownloadUIStatus::processing();
        tool().setScript("echo '[download] Destination: /d/a'\n" + tool().gate("a")
                         + "echo '[download] 50% of 1MiB at 1MiB/s ETA 00:01'\n" + tool().gate("b")
                         + "echo '[Merger] x'\n" + tool().gate("c"));
        state().singleInfo = StateFixture::video(u"a"_s);
        const QSignalSpy displayed(&state(), &AppState::displayedDownloadStatusChanged);
        state().startSingleDownload();
        WAIT_FOR(state().downloadStatus() == processing);
        QVERIFY(state().displayedDownloadStatus() == processing);
        tool().open("a");
        WAIT_FOR(state().displayedDownloadStatus() == downloading);
        QVERIFY(state().downloadStatus() == processing);
        tool().open("b");
        WAIT_FOR(state().displayedDownloadStatus() == processing);
        const auto changes = displayed.count();
        tool().open("c");
        WAIT_FOR(m_fixture->hasEnded());
        QVERIFY(displayed.count() > changes);
        QVERIFY(state().displayedDownloadStatus().kind() == DownloadUIStatus::Case::done);
    }

    void noLateReportOverwritesTheEnd()
    {
        // Thousands of reports right before the exit: none may come after it.
        tool().setScript("i=0; while [ $i -lt 2000 ]; do echo '[download] 10% of 1MiB at 1MiB/s "
                         "ETA 00:01'; echo '[Merger] x'; i=$((i+1)); done");
        for (int round = 0; round < 3; ++round) {
            state().singleInfo = StateFixture::video(u"a"_s);
            download();
            const QSignalSpy progress(&state(), &AppState::downloadProgressChanged);
            const QSignalSpy status(&state(), &AppState::downloadStatusChanged);
            QTest::qWait(50);
            QCOMPARE(progress.count() + status.count(), 0);
            QCOMPARE(state().downloadProgress(), 1.0);
            QVERIFY(state().downloadStatus().kind() == DownloadUIStatus::Case::done);
        }
    }

    void aFetchInMidRunSetsIdleWhileTheRunGoesOn()
    {
        tool().setScript("if [ $N = 1 ]; then\n" + tool().gate("go") + "else " + oneVideo + "; fi");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(tool().calls().size() == 1);
        state().singleURL = u"https://x/"_s;
        fetch();
        QVERIFY(state().downloadStatus() == DownloadUIStatus::idle());
        QVERIFY(state().isDownloading());
        tool().open("go");
        WAIT_FOR(m_fixture->hasEnded());
        QCOMPARE(state().history().first().title, u"Title a"_s); // not what was fetched since
    }

    void aResetInMidRunClearsTheFlagsAndTheRunGoesOn()
    {
        tool().setScript(tool().gate("go"));
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(tool().calls().size() == 1);
        AssignmentRecorder recorder(state());
        state().resetDownload();
        QCOMPARE(recorder.take(),
                 QStringList({u"downloadStatus"_s, u"downloadProgress"_s, u"downloadSpeed"_s,
                              u"downloadETA"_s, u"isDownloading"_s, u"isPaused"_s,
                              u"currentDownloadTitle"_s, u"currentDownloadIndex"_s,
                              u"totalDownloadCount"_s}));
        QVERIFY(!state().isDownloading());
        QVERIFY(state().singleInfo().has_value());
        tool().open("go");
        WAIT_FOR(!state().history().isEmpty());
    }

    // Pausing

    void pauseStopsTheToolAndResumeContinuesIt()
    {
        startStoppable();
        state().togglePause();
        QVERIFY(state().isPaused());
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        state().togglePause();
        QVERIFY(!state().isPaused());
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) != "T");
        tool().open("go");
        WAIT_FOR(m_fixture->hasEnded());
    }

    void pauseWithoutAProcessFlipsTheFlag()
    {
        state().togglePause();
        QVERIFY(state().isPaused());
        state().togglePause();
        QVERIFY(!state().isPaused());
    }

    void theEndOfARunUnsetsThePause()
    {
        startStoppable();
        state().togglePause();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        kill(static_cast<pid_t>(tool().processIdentifiers().last()), SIGKILL);
        WAIT_FOR(m_fixture->hasEnded());
        QVERIFY(!state().isPaused());
        QVERIFY(state().downloadStatus().kind() == DownloadUIStatus::Case::failed);
    }

    void resumeAlsoContinuesWhatAnotherRunHasPushedOut()
    {
        startStoppable();
        const qint64 first = tool().processIdentifiers().last();
        state().togglePause();
        WAIT_FOR(stateOf(first) == "T");
        // Another download takes the slot, as one of another mode does.
        service().runProcessWithProgress(
            {u"x"_s}, [](auto...) {}, [] {}, [](const auto &) {});
        WAIT_FOR(tool().processIdentifiers().size() == 2);
        WAIT_FOR(service().activeProcess()->processIdentifier() != first);
        QVERIFY(stateOf(first) == "T");
        state().togglePause();
        WAIT_FOR(stateOf(first) != "T");
        tool().open("go");
        tool().open("go");
        WAIT_FOR(m_fixture->hasEnded());
    }

    void aResetWhilePausedLetsTheRunGoOn()
    {
        startStoppable();
        state().togglePause();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        state().resetDownload();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) != "T");
        tool().open("go");
        WAIT_FOR(!state().history().isEmpty());
    }

    // The end of the program

    void destroyedInMidDownloadNothingGoesOn()
    {
        tool().setScript("echo '[download] 10% of 1MiB at 1MiB/s ETA 00:01'\n"
                         + tool().gate("never"));
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s, u"b"_s});
        state().startSingleDownload();
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        WAIT_FOR(tool().processIdentifiers().size() == 2);
        const QList<qint64> processes = tool().processIdentifiers();
        m_fixture->state.reset();
        for (const qint64 process : processes)
            QVERIFY(!isAlive(process));
        QCOMPARE(tool().processIdentifiers().size(), 2); // the next item did not start
        QVERIFY(notifier().posted.isEmpty());
        QVERIFY(!m_fixture->preferences->blob(u"quillon.history.v2"_s));
    }

    void destroyedBeforeItsTasksBeginTheyNeverDo()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        m_fixture->state.reset();
        QVERIFY(tool().calls().isEmpty());
    }

    void aSuccessThatMeetsTheEndIsNotRecorded()
    {
        // The tool takes the request to end for a reason to succeed.
        tool().setScript("trap 'exit 0' TERM\necho '[Merger] x'\nwhile :; do sleep 0.01; done");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(state().downloadStatus() == DownloadUIStatus::processing());
        m_fixture->state.reset();
        QVERIFY(!m_fixture->preferences->blob(u"quillon.history.v2"_s));
        QVERIFY(notifier().posted.isEmpty());
    }

private:
    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    YTDLPService &service() { return *m_fixture->service; }
    RecordingDesktop::RecordingNotifier &notifier() { return *m_fixture->desktop.notifier; }

    void fetch()
    {
        state().fetchSingleInfo();
        WAIT_FOR(!state().isFetching());
    }

    void download()
    {
        state().startSingleDownload();
        WAIT_FOR(m_fixture->hasEnded());
    }

    void startStoppable()
    {
        tool().setScript("echo '[Merger] x'\n" + tool().gate("go"));
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        WAIT_FOR(state().downloadStatus() == DownloadUIStatus::processing());
    }

    std::unique_ptr<StateFixture> m_fixture;
};

QTEST_GUILESS_MAIN(SingleModeTest)
#include "SingleModeTest.moc"
