// SPDX-License-Identifier: GPL-3.0-or-later
#include "AssignmentRecorder.h"
#include "StateFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// Searching, and downloading what was found.
class BrowseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        m_fixture->state->browseSearchQuery = u"  wooden boats \n"_s;
        tool().respond(R"(print {"id":"a","title":"A"})"
                       "\n"
                       R"(print {"id":"b"})");
    }
    void cleanup() { m_fixture.reset(); }

    // Searching

    void aTrimmedQuerySearchesForTwentyFive()
    {
        state().cookiesBrowser = u"firefox"_s;
        QVERIFY(search());
        QCOMPARE(tool().calls().first().last(), u"ytsearch25:wooden boats"_s);
        QVERIFY(!tool().calls().first().contains(u"--cookies-from-browser"_s));
        QCOMPARE(ids(), QStringList({u"a"_s, u"b"_s}));
        QCOMPARE(state().browseSearchQuery(), u"  wooden boats \n"_s);
    }

    void aSearchAssignsInItsOrder()
    {
        AssignmentRecorder recorder(state());
        state().searchYouTube();
        QCOMPARE(recorder.take(), QStringList({u"isBrowseSearching"_s, u"browseSearchError"_s}));
        QTRY_VERIFY_WITH_TIMEOUT(!state().isBrowseSearching(), patience);
        QCOMPARE(recorder.take(), QStringList({u"browseResults"_s, u"isBrowseSearching"_s}));
        tool().respond("exit 1");
        QVERIFY(search());
        QCOMPARE(recorder.take().last(2),
                 QStringList({u"browseSearchError"_s, u"isBrowseSearching"_s}));
    }

    void aDownloadAssignsInItsOrder()
    {
        tool().respond("");
        const QStringList both{u"browseDownloadStatuses"_s, u"browseDownloadProgress"_s};
        AssignmentRecorder recorder(state());
        state().browseDownload(result(u"a"_s), false);
        QCOMPARE(recorder.take(), both);
        QTRY_VERIFY_WITH_TIMEOUT(!state().history().isEmpty(), patience);
        QCOMPARE(recorder.take(), QStringList({u"browseDownloadStatuses"_s, u"history"_s}));
    }

    void aBlankQueryKeepsTheError()
    {
        state().browseSearchError = u"old"_s;
        state().browseSearchQuery = u" \n "_s;
        state().searchYouTube();
        QVERIFY(!state().isBrowseSearching());
        QCOMPARE(state().browseSearchError(), u"old"_s);
    }

    void aSecondSearchWhileOneRunsIsIgnored()
    {
        tool().respond("wait search\n"
                       R"(print {"id":"a"})");
        state().searchYouTube();
        QVERIFY(state().isBrowseSearching());
        state().browseSearchQuery = u"later"_s;
        state().searchYouTube();
        tool().open("search");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isBrowseSearching(), patience);
        QCOMPARE(tool().calls().size(), 1);
    }

    void aFailedSearchKeepsTheResults()
    {
        QVERIFY(search());
        tool().respond("fail no");
        QVERIFY(search());
        QCOMPARE(ids(), QStringList({u"a"_s, u"b"_s}));
        QCOMPARE(state().browseSearchError(), u"Failed to fetch info: no\n"_s);
        tool().respond("");
        QVERIFY(search());
        QVERIFY(!state().browseSearchError());
        QVERIFY(ids().isEmpty());
    }

    void quittingDoesNotWaitForAHangingSearch()
    {
        tool().respond("ignore signals\n"
                       "wait never");
        state().searchYouTube();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        const qint64 process = tool().processIdentifiers().last();
        m_fixture->state.reset();
        QVERIFY(!isAlive(process));
    }

    // Downloading

    void aDownloadIsRecordedAndAnnounced()
    {
        tool().respond("print [download] Destination: /d/a.mp4");
        state().speedLimit = u"1M"_s;
        state().cookiesBrowser = u"firefox"_s;
        state().browseDownload(result(u"a"_s), false);
        QCOMPARE(statusOf(u"a_mp4"_s), DownloadStatus(Status::Downloading{}));
        QTRY_COMPARE_WITH_TIMEOUT(statusOf(u"a_mp4"_s), DownloadStatus(Status::Done{u"/d/a.mp4"_s}),
                                  patience);
        const QStringList call = tool().calls().first();
        QVERIFY(call.contains(u"bestvideo+bestaudio/best"_s) && call.contains(u"1M"_s)
                && call.contains(u"firefox"_s));
        QCOMPARE(call.last(), u"https://x/a"_s);
        const HistoryItem record = state().history().first();
        QCOMPARE(record.title, u"Title a"_s);
        QCOMPARE(record.url, u"https://x/a"_s);
        QCOMPARE(record.thumbnailURL, u"http://x/a.jpg"_s);
        QCOMPARE(record.format, u"mp4"_s);
        QCOMPARE(record.quality, u"Best"_s);
        QCOMPARE(record.savedPath, u"/d/a.mp4"_s);
        QCOMPARE(m_fixture->desktop.notifier->posted.size(), 1);
        QVERIFY(m_fixture->desktop.notifier->posted.first().body.contains(u"Title a"));
    }

    void audioAndVideoOfAResultProgressSeparately()
    {
        reportAndWait();
        state().browseDownload(result(u"a"_s), false);
        state().browseDownload(result(u"a"_s), true);
        QTRY_VERIFY_WITH_TIMEOUT(state().browseDownloadProgress().value(u"a_mp4"_s) == 0.5
                                     && state().browseDownloadProgress().value(u"a_mp3"_s) == 0.25,
                                 patience);
        QCOMPARE(statusOf(u"a_mp3"_s),
                 DownloadStatus(Status::Downloading{0.25, u"1MiB/s"_s, u"00:01"_s}));
        tool().open("run");
        tool().open("run");
        QTRY_VERIFY_WITH_TIMEOUT(kindOf(statusOf(u"a_mp4"_s)) == StatusKind::Done
                                     && kindOf(statusOf(u"a_mp3"_s)) == StatusKind::Done,
                                 patience);
        QSet<QString> formats;
        for (const HistoryItem &record : state().history())
            formats.insert(record.format + record.quality);
        QCOMPARE(formats, QSet<QString>({u"mp3Best"_s, u"mp4Best"_s}));
        // The last fraction stays.
        QCOMPARE(state().browseDownloadProgress().value(u"a_mp4"_s), 0.5);
    }

    void twoResultsAtOnceShowTheirOwnProgress()
    {
        reportAndWait();
        state().browseDownload(result(u"a"_s), false);
        state().browseDownload(result(u"b"_s), true);
        QTRY_VERIFY_WITH_TIMEOUT(state().browseDownloadProgress().value(u"a_mp4"_s) == 0.5
                                     && state().browseDownloadProgress().value(u"b_mp3"_s) == 0.25,
                                 patience);
        tool().open("run");
        tool().open("run");
        QTRY_COMPARE_WITH_TIMEOUT(state().history().size(), 2, patience);
    }

    void theSameDownloadRunsOnlyOnce()
    {
        tool().respond("wait run");
        state().browseDownload(result(u"a"_s), false);
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        const QSignalSpy spy(&state(), &AppState::browseDownloadStatusesChanged);
        state().browseDownload(result(u"a"_s), false);
        QCOMPARE(spy.count(), 0);
        tool().open("run");
        QTRY_COMPARE_WITH_TIMEOUT(kindOf(statusOf(u"a_mp4"_s)), StatusKind::Done, patience);
        QCOMPARE(tool().calls().size(), 1);
        state().browseDownload(result(u"a"_s), false); // again, when it is done
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 2, patience);
        tool().open("run");
        QTRY_COMPARE_WITH_TIMEOUT(kindOf(statusOf(u"a_mp4"_s)), StatusKind::Done, patience);
    }

    void aFinishedDownloadKeepsItsLastFraction()
    {
        tool().respond("print [download]  50.0% of 1MiB at 1MiB/s ETA 00:01");
        state().browseDownload(result(u"a"_s), false);
        QTRY_COMPARE_WITH_TIMEOUT(kindOf(statusOf(u"a_mp4"_s)), StatusKind::Done, patience);
        QCOMPARE(state().browseDownloadProgress().value(u"a_mp4"_s), 0.5);
    }

    void aFailedDownloadCanBeRetried()
    {
        tool().respond("fail no");
        state().browseDownload(result(u"a"_s), true);
        QTRY_COMPARE_WITH_TIMEOUT(statusOf(u"a_mp3"_s),
                                  DownloadStatus(Status::Failed{u"Download failed: no\n"_s}),
                                  patience);
        QVERIFY(state().history().isEmpty());
        QVERIFY(m_fixture->desktop.notifier->posted.isEmpty());
        tool().respond("");
        state().browseDownload(result(u"a"_s), true);
        QTRY_COMPARE_WITH_TIMEOUT(statusOf(u"a_mp3"_s), DownloadStatus(Status::Done{}), patience);
        QVERIFY(!state().history().first().savedPath);
    }

    void aNewSearchKeepsTheStatuses()
    {
        state().browseDownload(result(u"a"_s), false);
        QTRY_COMPARE_WITH_TIMEOUT(kindOf(statusOf(u"a_mp4"_s)), StatusKind::Done, patience);
        QVERIFY(search());
        QCOMPARE(kindOf(statusOf(u"a_mp4"_s)), StatusKind::Done);
    }

    void aLaterDownloadTakesTheOneActiveSlot()
    {
        tool().respond("wait run");
        state().browseDownload(result(u"a"_s), false);
        QTRY_VERIFY_WITH_TIMEOUT(state().service.activeProcess(), patience);
        const auto first = state().service.activeProcess();
        state().browseDownload(result(u"b"_s), false);
        QTRY_VERIFY_WITH_TIMEOUT(
            tool().calls().size() == 2 && state().service.activeProcess() != first, patience);
        tool().open("run");
        tool().open("run");
        QTRY_COMPARE_WITH_TIMEOUT(state().history().size(), 2, patience);
    }

private:
    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    DownloadStatus statusOf(const QString &key)
    {
        return state().browseDownloadStatuses().value(key, DownloadStatus(Status::Waiting{}));
    }
    /// Downloads stand at a half, those of sound at a quarter, until "run" opens.
    void reportAndWait()
    {
        tool().respond("for *mp4* print [download]  50.0% of 1MiB at 1MiB/s ETA 00:01\n"
                       "for *mp3* print [download]  25.0% of 1MiB at 1MiB/s ETA 00:01\n"
                       "wait run");
    }

    static SearchResult result(const QString &id)
    {
        SearchResult result = StateFixture::searchResult(id);
        result.thumbnailURL = u"http://x/%1.jpg"_s.arg(id);
        return result;
    }

    [[nodiscard]] bool search()
    {
        state().searchYouTube();
        return waitFor([&] { return !state().isBrowseSearching(); });
    }

    QStringList ids()
    {
        QStringList found;
        for (const SearchResult &each : state().browseResults())
            found.append(each.id);
        return found;
    }

    std::unique_ptr<StateFixture> m_fixture;
};

QTEST_MAIN(BrowseTest)
#include "BrowseTest.moc"
