// SPDX-License-Identifier: GPL-3.0-or-later
#include "CompletionText.h"
#include "DownloadArguments.h"
#include "DownloadFolder.h"
#include "RequestArguments.h"
#include "SingleRun.h"
#include "URLKind.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList leading{u"--extractor-args"_s, u"youtube:player_client=tv_embedded"_s};

DownloadRequest request()
{
    return {.cookiesBrowser = u"none"_s,
            .speedLimit = u"0"_s,
            .quality = QualityOption::best(MediaFormat::mp4),
            .folder = u"/home/u/Downloads"_s,
            .url = u"A"_s};
}

const QStringList videoTail{u"--merge-output-format"_s,
                            u"mp4"_s,
                            u"--postprocessor-args"_s,
                            u"ffmpeg:-c:v copy -c:a aac -movflags +faststart"_s,
                            u"-o"_s,
                            u"/home/u/Downloads/%(title)s.%(ext)s"_s,
                            u"A"_s};

} // namespace

class DecisionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mixedURLs_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<bool>("isMixed");
        QTest::newRow("both") << u"https://x/watch?v=abc&list=PL1"_s << true;
        QTest::newRow("video") << u"https://x/watch?v=abc"_s << false;
        QTest::newRow("playlist") << u"https://x/playlist?list=PL1"_s << false;
        QTest::newRow("short link") << u"https://youtu.be/abc?list=PL1"_s << true;
        QTest::newRow("case counts") << u"https://x/watch?V=abc&LIST=PL1"_s << false;
        QTest::newRow("anywhere") << u"v=/playlist"_s << true;
    }

    void mixedURLs()
    {
        QFETCH(QString, url);
        QTEST(namesVideoAndPlaylist(url), "isMixed");
    }

    void aMixedURLIsFetchedAsChosen()
    {
        const QString mixed = u"https://x/watch?v=abc&list=PL1"_s;
        QVERIFY(!fetchesPlaylist(mixed, false));
        QVERIFY(fetchesPlaylist(mixed, true));
    }

    void aPurePlaylistIgnoresTheUsersChoice()
    {
        QVERIFY(fetchesPlaylist(u"https://x/playlist?list=PL1"_s, false));
        QVERIFY(fetchesPlaylist(u"https://x/playlist?list=PL1"_s, true));
    }

    void withoutAPlaylistTheChoiceIsIgnored()
    {
        QVERIFY(!fetchesPlaylist(u"https://x/watch?v=abc"_s, true));
        QVERIFY(!fetchesPlaylist(u"https://x/"_s, true));
    }

    void folders_data()
    {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("folder");
        QTest::newRow("home and blanks") << u"  ~/Movies "_s << u"/home/u/Movies"_s;
        QTest::newRow("tabs") << u"\t~/Movies\t"_s << u"/home/u/Movies"_s;
        QTest::newRow("home alone") << u"~"_s << u"/home/u"_s;
        QTest::newRow("empty") << QString() << u"/home/u/Downloads"_s;
        QTest::newRow("blanks") << u" \t"_s << u"/home/u/Downloads"_s;
        QTest::newRow("absolute") << u"/data/films"_s << u"/data/films"_s;
        QTest::newRow("absolute with slash") << u"/data/films/"_s << u"/data/films/"_s;
        QTest::newRow("another user's home") << u"~user/x"_s << u"~user/x"_s;
        QTest::newRow("line breaks stay") << u"/a\n"_s << u"/a\n"_s;
        QTest::newRow("inner blanks stay") << u" /a b "_s << u"/a b"_s;
    }

    void folders()
    {
        QFETCH(QString, setting);
        QTEST(downloadFolder(setting, u"/home/u"_s, {u"/home/u/Downloads"_s, u"/other"_s}),
              "folder");
    }

    void withoutDownloadsFolderHomeIsUsed()
    {
        QCOMPARE(downloadFolder({}, u"/home/u"_s, {}), u"/home/u"_s);
    }

    void severalFilesAreAnnouncedByNumber()
    {
        QCOMPARE(completionText(u"A"_s, 1), u"\"A\" downloaded successfully"_s);
        QCOMPARE(completionText(u"A"_s, 0), u"\"A\" downloaded successfully"_s);
        QCOMPARE(completionText(u"A"_s, -3), u"\"A\" downloaded successfully"_s);
        QCOMPARE(completionText(u"A"_s, 2), u"2 files downloaded successfully"_s);
        QCOMPARE(completionText(u"A %1"_s, 1), u"\"A %1\" downloaded successfully"_s);
    }

    void theBestVideoIsAskedForLikeThis()
    {
        QCOMPARE(downloadArguments(request()),
                 leading
                     + QStringList({u"--no-playlist"_s, u"--no-warnings"_s, u"--newline"_s, u"-f"_s,
                                    u"bestvideo+bestaudio/best"_s})
                     + videoTail);
    }

    void audioWithARateBuildsTheseArguments()
    {
        DownloadRequest audio = request();
        audio.quality = QualityOption::best(MediaFormat::mp3);
        audio.speedLimit = u"2M"_s;
        QCOMPARE(
            downloadArguments(audio),
            leading
                + QStringList({u"--no-playlist"_s, u"--no-warnings"_s, u"--newline"_s,
                               u"--limit-rate"_s, u"2M"_s, u"-f"_s, u"bestaudio/best"_s, u"-x"_s,
                               u"--audio-format"_s, u"mp3"_s, u"--audio-quality"_s, u"0"_s, u"-o"_s,
                               u"/home/u/Downloads/%(title)s.%(ext)s"_s, u"A"_s}));
    }

    void anEmptySpeedLimitAddsNone()
    {
        DownloadRequest unlimited = request();
        unlimited.speedLimit = QString();
        QCOMPARE(downloadArguments(unlimited), downloadArguments(request()));
    }

    void aHeightCapIsPassedUnchanged()
    {
        DownloadRequest capped = request();
        capped.quality = QualityOption::mp4Options().at(4);
        const QStringList arguments = downloadArguments(capped);
        QCOMPARE(arguments.at(arguments.indexOf(u"-f"_s) + 1),
                 u"bestvideo[height<=720]+bestaudio/best[height<=720]"_s);
    }

    void cookiesStandBehindTheLeadingArguments()
    {
        DownloadRequest withCookies = request();
        withCookies.cookiesBrowser = u"firefox"_s;
        QCOMPARE(
            downloadArguments(withCookies).mid(0, 5),
            leading + QStringList({u"--cookies-from-browser"_s, u"firefox"_s, u"--no-playlist"_s}));
    }

    void aFolderIsNotTouched()
    {
        DownloadRequest odd = request();
        odd.folder = u"/a 'b'/"_s;
        QVERIFY(downloadArguments(odd).contains(u"/a 'b'//%(title)s.%(ext)s"_s));
    }

    void noBrowserGivesNoCookies()
    {
        QCOMPARE(cookieArguments(u"none"_s), QStringList());
        QCOMPARE(cookieArguments(QString()), QStringList());
        QCOMPARE(cookieArguments(u"None"_s), QStringList({u"--cookies-from-browser"_s, u"None"_s}));
    }

    void metadataIsAskedForLikeThis()
    {
        QCOMPARE(videoArguments(u"A"_s, u"none"_s),
                 leading
                     + QStringList({u"--dump-json"_s, u"--no-playlist"_s, u"--no-warnings"_s,
                                    u"--quiet"_s, u"A"_s}));
        QCOMPARE(playlistArguments(u"A"_s, u"edge"_s),
                 leading
                     + QStringList({u"--cookies-from-browser"_s, u"edge"_s, u"--dump-json"_s,
                                    u"--flat-playlist"_s, u"--yes-playlist"_s, u"--no-warnings"_s,
                                    u"--quiet"_s, u"A"_s}));
    }

    void aRunKeepsTheOrderOfEntries()
    {
        VideoInfo playlist;
        playlist.isPlaylist = true;
        for (const QString &id : {u"a"_s, u"b"_s, u"c"_s, u"b"_s}) {
            VideoInfo entry;
            entry.id = id;
            entry.originalURL = u"URL "_s + id;
            playlist.playlistEntries.append(entry);
        }
        QStringList urls;
        for (const DownloadTask &task : runTasks(playlist, {u"c"_s, u"b"_s, u"gone"_s}))
            urls.append(task.url);
        // Entries that share an id share their selection.
        QCOMPARE(urls, QStringList({u"URL b"_s, u"URL c"_s, u"URL b"_s}));
    }

    void audioOverridesWhateverQualityIsSelected()
    {
        const QualityOption selected = QualityOption::mp4Options().at(3);
        QCOMPARE(runQuality(MediaFormat::mp4, selected), selected);
        QCOMPARE(runQuality(MediaFormat::mp3, selected).formatString, u"bestaudio/best"_s);
    }

    void aRunIsAnnouncedByThePlaylistsTitle()
    {
        VideoInfo info;
        info.title = u"Title"_s;
        QCOMPARE(runTitle(info), u"Title"_s);
        info.isPlaylist = true;
        QCOMPARE(runTitle(info), u"Title"_s);
        info.playlistTitle = u"Mix"_s;
        QCOMPARE(runTitle(info), u"Mix"_s);
        info.isPlaylist = false;
        QCOMPARE(runTitle(info), u"Title"_s);
    }

    void anEmptyPathIsNotRecorded()
    {
        const DownloadJob job{
            {u"A"_s, u"T"_s, u"P"_s}, QualityOption::best(MediaFormat::mp3), u"/d"_s};
        QVERIFY(!historyRecord(job, {}).savedPath);
        const HistoryItem record = historyRecord(job, u"/a.webm"_s);
        QCOMPARE(record.savedPath, u"/a.webm"_s);
        QCOMPARE(record.format, u"mp3"_s);
        QCOMPARE(record.quality, u"Best"_s);
        QCOMPARE(record.url, u"A"_s);
        QCOMPARE(record.title, u"T"_s);
        QCOMPARE(record.thumbnailURL, u"P"_s);
        QVERIFY(std::abs(record.date.seconds - ReferenceDate::now().seconds) < 60);
    }
};

QTEST_GUILESS_MAIN(DecisionsTest)
#include "DecisionsTest.moc"
