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
        tool().setScript("echo '{\"id\":\"a\",\"title\":\"A\"}'\necho '{\"id\":\"b\"}'");
    }
    void cleanup() { m_fixture.reset(); }

    // Searching

    void aQueryIsSearchedWithoutTheSpacesAroundItAndForAtMost25()
    {
        state().cookiesBrowser = u"firefox"_s;
        search();
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
        WAIT_FOR(!state().isBrowseSearching());
        QCOMPARE(recorder.take(), QStringList({u"browseResults"_s, u"isBrowseSearching"_s}));
        tool().setScript("exit 1");
        search();
        QCOMPARE(recorder.take().last(2),
                 QStringList({u"browseSearchError"_s, u"isBrowseSearching"_s}));
    }

    void aDownloadAssignsInItsOrder()
    {
        tool().setScript("exit 0");
        const QStringList both{u"browseDownloadStatuses"_s, u"browseDownloadProgress"_s};
        AssignmentRecorder recorder(state());
        state().browseDownload(result(u"a"_s), false);
        QCOMPARE(recorder.take(), both);
        WAIT_FOR(!state().history().isEmpty());
        QCOMPARE(recorder.take(), QStringList({u"browseDownloadStatuses"_s, u"history"_s}));
    }

    void aBlankQueryStartsNothingAndLeavesTheError()
    {
        state().browseSearchError = u"old"_s;
        state().browseSearchQuery = u" \n "_s;
        state().searchYouTube();
        QVERIFY(!state().isBrowseSearching());
        QCOMPARE(state().browseSearchError(), u"old"_s);
    }

    void aSecondSearchWhileOneRunsIsIgnored()
    {
        tool().setScript(tool().gate("search") + "echo '{\"id\":\"a\"}'");
        state().searchYouTube();
        QVERIFY(state().isBrowseSearching());
        state().browseSearchQuery = u"later"_s;
        state().searchYouTube();
        tool().open("search");
        WAIT_FOR(!state().isBrowseSearching());
        QCOMPARE(tool().calls().size(), 1);
    }

    void aFailedSearchKeepsTheResultsAndTellsWhy()
    {
        search();
        tool().setScript("echo no >&2; exit 1");
        search();
        QCOMPARE(ids(), QStringList({u"a"_s, u"b"_s}));
        QCOMPARE(state().browseSearchError(), u"Failed to fetch info: no\n"_s);
        tool().setScript("true");
        search();
        QVERIFY(!state().browseSearchError());
        QVERIFY(ids().isEmpty());
    }

    void theEndOfTheProgramDoesNotWaitForASearchThatHangs()
    {
        tool().setScript("trap '' TERM INT HUP\n" + tool().gate("never"));
        state().searchYouTube();
        WAIT_FOR(tool().calls().size() == 1);
        const qint64 process = tool().processIdentifiers().last();
        m_fixture->state.reset();
        QVERIFY(!isAlive(process));
    }

    // Downloading

    void aDownloadIsRecordedAndAnnounced()
    {
        tool().setScript("echo '[download] Destination: /d/a.mp4'");
        state().speedLimit = u"1M"_s;
        state().cookiesBrowser = u"firefox"_s;
        state().browseDownload(result(u"a"_s), false);
        QCOMPARE(statusOf(u"a_mp4"_s), DownloadStatus(Status::Downloading{}));
        WAIT_FOR(statusOf(u"a_mp4"_s) == DownloadStatus(Status::Done{u"/d/a.mp4"_s}));
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

    void soundAndPictureOfOneResultAreApartAndShowTheirOwnProgress()
    {
        tool().setScript(reporting());
        state().browseDownload(result(u"a"_s), false);
        state().browseDownload(result(u"a"_s), true);
        WAIT_FOR(state().browseDownloadProgress().value(u"a_mp4"_s) == 0.5
                 && state().browseDownloadProgress().value(u"a_mp3"_s) == 0.25);
        QCOMPARE(statusOf(u"a_mp3"_s),
                 DownloadStatus(Status::Downloading{0.25, u"1MiB/s"_s, u"00:01"_s}));
        tool().open("run");
        tool().open("run");
        WAIT_FOR(kindOf(statusOf(u"a_mp4"_s)) == StatusKind::Done
                 && kindOf(statusOf(u"a_mp3"_s)) == StatusKind::Done);
        QSet<QString> formats;
        for (const HistoryItem &record : state().history())
            formats.insert(record.format + record.quality);
        QCOMPARE(formats, QSet<QString>({u"mp3Best"_s, u"mp4Best"_s}));
        // The last fraction stays.
        QCOMPARE(state().browseDownloadProgress().value(u"a_mp4"_s), 0.5);
    }

    void twoResultsAtOnceShowTheirOwnProgress()
    {
        tool().setScript(reporting());
        state().browseDownload(result(u"a"_s), false);
        state().browseDownload(result(u"b"_s), true);
        WAIT_FOR(state().browseDownloadProgress().value(u"a_mp4"_s) == 0.5
                 && state().browseDownloadProgress().value(u"b_mp3"_s) == 0.25);
        tool().open("run");
        tool().open("run");
        WAIT_FOR(state().history().size() == 2);
    }

    void theSameDownloadDoesNotRunTwiceAtOnce()
    {
        tool().setScript(tool().gate("run"));
        state().browseDownload(result(u"a"_s), false);
        WAIT_FOR(tool().calls().size() == 1);
        const QSignalSpy spy(&state(), &AppState::browseDownloadStatusesChanged);
        state().browseDownload(result(u"a"_s), false);
        QCOMPARE(spy.count(), 0);
        tool().open("run");
        WAIT_FOR(kindOf(statusOf(u"a_mp4"_s)) == StatusKind::Done);
        QCOMPARE(tool().calls().size(), 1);
        state().browseDownload(result(u"a"_s), false); // again, when it is done
        WAIT_FOR(tool().calls().size() == 2);
        tool().open("run");
        WAIT_FOR(kindOf(statusOf(u"a_mp4"_s)) == StatusKind::Done);
    }

    void aDownloadThatIsDoneKeepsItsLastFraction()
    {
        tool().setScript("echo '[download]  50.0% of 1MiB at 1MiB/s ETA 00:01'");
        state().browseDownload(result(u"a"_s), false);
        WAIT_FOR(kindOf(statusOf(u"a_mp4"_s)) == StatusKind::Done);
        QCOMPARE(state().browseDownloadProgress().value(u"a_mp4"_s), 0.5);
    }

    void aFailureIsShownAloneAndCanBeRetried()
    {
        tool().setScript("echo no >&2; exit 1");
        state().browseDownload(result(u"a"_s), true);
        WAIT_FOR(statusOf(u"a_mp3"_s)
                 == DownloadStatus(Status::Failed{u"Download failed: no\n"_s}));
        QVERIFY(state().history().isEmpty());
        QVERIFY(m_fixture->desktop.notifier->posted.isEmpty());
        tool().setScript("true");
        state().browseDownload(result(u"a"_s), true);
        WAIT_FOR(statusOf(u"a_mp3"_s) == DownloadStatus(Status::Done{}));
        QVERIFY(!state().history().first().savedPath);
    }

    void aNewSearchKeepsTheStatuses()
    {
        state().browseDownload(result(u"a"_s), false);
        WAIT_FOR(kindOf(statusOf(u"a_mp4"_s)) == StatusKind::Done);
        search();
        QCOMPARE(kindOf(statusOf(u"a_mp4"_s)), StatusKind::Done);
    }

    void aLaterDownloadTakesTheOneActiveSlot()
    {
        tool().setScript(tool().gate("run"));
        state().browseDownload(result(u"a"_s), false);
        WAIT_FOR(state().service.activeProcess());
        const auto first = state().service.activeProcess();
        state().browseDownload(result(u"b"_s), false);
        WAIT_FOR(tool().calls().size() == 2 && state().service.activeProcess() != first);
        tool().open("run");
        tool().open("run");
        WAIT_FOR(state().history().size() == 2);
    }

private:
    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    DownloadStatus statusOf(const QString &key)
    {
        return state().browseDownloadStatuses().value(key, DownloadStatus(Status::Waiting{}));
    }

    QByteArray reporting()
    {
        return "case \"$*\" in *mp3*) P=25.0;; *) P=50.0;; esac\n"
               "echo \"[download]  $P% of 1MiB at 1MiB/s ETA 00:01\"\n"
            + tool().gate("run");
    }

    static SearchResult result(const QString &id)
    {
        return {.id = id,
                .title = u"Title "_s + id,
                .uploader = {},
                .duration = {},
                .thumbnailURL = u"http://x/%1.jpg"_s.arg(id),
                .videoURL = u"https://x/"_s + id};
    }

    void search()
    {
        state().searchYouTube();
        WAIT_FOR(!state().isBrowseSearching());
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
