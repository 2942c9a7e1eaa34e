// SPDX-License-Identifier: GPL-3.0-or-later
#include "AssignmentRecorder.h"
#include "SingleFixture.h"

#include <QSignalSpy>

/// Downloads of single mode.
class SingleModeTest : public SingleFixture
{
    Q_OBJECT

private Q_SLOTS:
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
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
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

    void aRunForgetsEarlierReports()
    {
        tool().respond("on 1 print [download] 50% of 1MiB at 1MiB/s ETA 00:01");
        state().singleInfo = StateFixture::video(u"a"_s);
        QVERIFY(download());
        QCOMPARE(state().downloadSpeed(), u"1MiB/s"_s);
        state().startSingleDownload();
        QCOMPARE(state().downloadProgress(), 0.0);
        QCOMPARE(state().downloadSpeed(), QString());
        QCOMPARE(state().downloadETA(), QString());
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
    }

    void withoutInfoNothingStarts()
    {
        AssignmentRecorder recorder(state());
        state().startSingleDownload();
        QCOMPARE(recorder.take(), QStringList());
    }

    void aFinishedRunIsRecordedAndAnnounced()
    {
        tool().respond("print [download] Destination: /d/a.mp4");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().selectedQuality = QualityOption::mp4Options().at(3);
        QVERIFY(download());
        QVERIFY(state().downloadStatus()
                == DownloadUIStatus(Status::Done{m_fixture->folder.path()}));
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

    void mp3OverridesTheQualityInTheRecord()
    {
        tool().respond("print [download] Destination: /d/a.webm\n"
                       "print [ExtractAudio] Destination: /d/a.mp3");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().selectedQuality = QualityOption::mp4Options().at(3);
        state().selectedFormat = MediaFormat::mp3;
        QVERIFY(download());
        QVERIFY(tool().calls().last().contains(u"bestaudio/best"_s));
        QCOMPARE(state().history().first().format, u"mp3"_s);
        QCOMPARE(state().history().first().quality, u"Best"_s);
        QCOMPARE(state().history().first().savedPath, u"/d/a.webm"_s);
    }

    void selectedEntriesAreDownloadedOneAfterAnother()
    {
        tool().respond("print [download] Destination: /d/{n}.mp4");
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"c"_s, u"a"_s});
        QList<qint64> indexes;
        connect(&state(), &AppState::currentDownloadIndexChanged, &state(),
                [&] { indexes.append(state().currentDownloadIndex()); });
        QVERIFY(download());
        QCOMPARE(indexes, QList<qint64>({0, 1, 2}));
        QCOMPARE(state().totalDownloadCount(), 2);
        QCOMPARE(state().history().size(), 2);
        QCOMPARE(state().history().at(0).title, u"Title c"_s); // newest first
        QCOMPARE(state().history().at(0).savedPath, u"/d/2.mp4"_s);
        QCOMPARE(state().history().at(1).title, u"Title a"_s);
        QCOMPARE(notifier().posted.first().body, u"2 files downloaded successfully"_s);
    }

    void aFailureStopsTheRestOfTheRun()
    {
        tool().respond("on 2 fail no");
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s, u"b"_s, u"c"_s});
        AssignmentRecorder recorder(state());
        QVERIFY(download());
        QCOMPARE(recorder.take().last(3),
                 QStringList({u"downloadStatus"_s, u"isDownloading"_s, u"isPaused"_s}));
        QVERIFY(state().downloadStatus()
                == DownloadUIStatus(Status::Failed{u"Download failed: no\n"_s}));
        QCOMPARE(state().history().size(), 1);
        QCOMPARE(state().currentDownloadIndex(), 2);
        QCOMPARE(tool().calls().size(), 2);
        QVERIFY(notifier().posted.isEmpty());
    }

    void anEmptySelectionIsDoneAtOnce()
    {
        VideoInfo playlist = StateFixture::playlist({u"a"_s});
        playlist.playlistTitle = u"Mix"_s;
        state().singleInfo = playlist;
        QVERIFY(download());
        QVERIFY(state().downloadStatus()
                == DownloadUIStatus(Status::Done{m_fixture->folder.path()}));
        QCOMPARE(state().downloadProgress(), 1.0);
        QCOMPARE(notifier().posted.first().body, u"\"Mix\" downloaded successfully"_s);
        QVERIFY(tool().calls().isEmpty());
    }

    void anEntryWithoutURLIsPassedAsEmptyText()
    {
        VideoInfo playlist = StateFixture::playlist({u"a"_s});
        playlist.playlistEntries.first().originalURL = QString();
        state().singleInfo = playlist;
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s});
        QVERIFY(download());
        QCOMPARE(tool().calls().first().last(), QString());
    }

    void anEntrysURLLikeAnOptionFailsTheRun()
    {
        VideoInfo video = StateFixture::video(u"a"_s);
        video.originalURL = u"--exec=x"_s;
        state().singleInfo = video;
        QVERIFY(download());
        QVERIFY(messageOf(state().downloadStatus()).startsWith(u"Download failed: The URL"_s));
        QVERIFY(tool().calls().isEmpty());
    }

    void onlyTheFolderIsFixedForARun()
    {
        tool().respond("wait go");
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s});
        state().selectedPlaylistItems = AppState::EntrySelection({u"a"_s, u"b"_s});
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        state().speedLimit = u"2M"_s;
        state().cookiesBrowser = u"edge"_s;
        state().downloadDir = u"/elsewhere"_s;
        state().selectedFormat = MediaFormat::mp3;
        tool().open("go");
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 2, patience);
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        const QStringList second = tool().calls().last();
        QVERIFY(second.contains(u"2M"_s) && second.contains(u"edge"_s));
        QVERIFY(second.contains(m_fixture->folder.path() + u"/%(title)s.%(ext)s"_s));
        QVERIFY(!second.contains(u"-x"_s));
    }

    void progressIsShownAsDelivered()
    {
        tool().respond("print [download]  42.5% of 1MiB at 2.50MiB/s ETA 00:42\n"
                       "wait go");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().downloadSpeed().isEmpty(), patience);
        QCOMPARE(state().downloadProgress(), 0.425);
        QCOMPARE(state().downloadSpeed(), u"2.50MiB/s"_s);
        QCOMPARE(state().downloadETA(), u"00:42"_s);
        QVERIFY(state().downloadStatus() == DownloadUIStatus(Status::Running{}));
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QCOMPARE(state().downloadProgress(), 1.0);
    }

    void theDisplayFollowsProgressButTheStatusDoesNot()
    {
        const auto downloading = DownloadUIStatus(Status::Running{});
        const auto processing = DownloadUIStatus(Status::Processing{});
        tool().respond("print [download] Destination: /d/a\n"
                       "wait a\n"
                       "print [download] 50% of 1MiB at 1MiB/s ETA 00:01\n"
                       "wait b\n"
                       "print [Merger] x\n"
                       "wait c");
        state().singleInfo = StateFixture::video(u"a"_s);
        const QSignalSpy displayed(&state(), &AppState::displayedDownloadStatusChanged);
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(state().downloadStatus(), processing, patience);
        QVERIFY(state().displayedDownloadStatus() == processing);
        tool().open("a");
        QTRY_COMPARE_WITH_TIMEOUT(state().displayedDownloadStatus(), downloading, patience);
        QVERIFY(state().downloadStatus() == processing);
        tool().open("b");
        QTRY_COMPARE_WITH_TIMEOUT(state().displayedDownloadStatus(), processing, patience);
        const auto changes = displayed.count();
        tool().open("c");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QVERIFY(displayed.count() > changes);
        QVERIFY(kindOf(state().displayedDownloadStatus()) == StatusKind::Done);
    }

    void noLateReportOverwritesTheEnd()
    {
        // Thousands of reports right before the exit: none may come after it.
        tool().respond(
            "repeat 2000 bytes [download] 10% of 1MiB at 1MiB/s ETA 00:01\\n[Merger] x\\n");
        for (int round = 0; round < 3; ++round) {
            state().singleInfo = StateFixture::video(u"a"_s);
            QVERIFY(download());
            const QSignalSpy progress(&state(), &AppState::downloadProgressChanged);
            const QSignalSpy status(&state(), &AppState::downloadStatusChanged);
            QVERIFY(search()); // its reply comes after all that was on its way
            QCOMPARE(progress.count() + status.count(), 0);
            QCOMPARE(state().downloadProgress(), 1.0);
            QVERIFY(kindOf(state().downloadStatus()) == StatusKind::Done);
        }
    }

    void aFetchInMidRunSetsIdle()
    {
        tool().respond("on 1 wait go\n"
                       "on 1 exit 0\n"
                       + sample("one-video"));
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        state().singleURL = u"https://x/"_s;
        QVERIFY(fetch());
        QVERIFY(state().downloadStatus() == DownloadUIStatus(Status::Idle{}));
        QVERIFY(state().isDownloading());
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QCOMPARE(state().history().first().title, u"Title a"_s); // not what was fetched since
    }

    void aResetInMidRunClearsTheFlags()
    {
        tool().respond("wait go");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        state().singleURL = u"https://x/"_s;
        state().selectedPlaylistItems = AppState::EntrySelection{u"a"_s};
        AssignmentRecorder recorder(state());
        state().resetDownload();
        QCOMPARE(recorder.take(),
                 QStringList({u"downloadStatus"_s, u"downloadProgress"_s, u"downloadSpeed"_s,
                              u"downloadETA"_s, u"isDownloading"_s, u"isPaused"_s,
                              u"currentDownloadTitle"_s, u"currentDownloadIndex"_s,
                              u"totalDownloadCount"_s}));
        QVERIFY(!state().isDownloading());
        QVERIFY(state().singleInfo().has_value());
        QCOMPARE(state().singleURL(), u"https://x/"_s);
        QCOMPARE(state().selectedPlaylistItems(), AppState::EntrySelection{u"a"_s});
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(!state().history().isEmpty(), patience);
    }

    void aSecondStartInMidRunIsAllowed()
    {
        tool().respond("wait go");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 2, patience);
        tool().open("go");
        tool().open("go");
        QTRY_COMPARE_WITH_TIMEOUT(state().history().size(), 2, patience);
    }

private:
    [[nodiscard]] bool search()
    {
        state().browseSearchQuery = u"x"_s;
        state().searchYouTube();
        return waitFor([&] { return !state().isBrowseSearching(); });
    }
};

QTEST_GUILESS_MAIN(SingleModeTest)
#include "SingleModeTest.moc"
