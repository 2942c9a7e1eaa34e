// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadOutput.h"
#include "Metadata.h"
#include "Search.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

/// What a current release of the tool prints, recorded, is read as what an old one prints.
class RecordedOutputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aVideosMetadata()
    {
        const auto info = std::get<VideoInfo>(videoFromOutput(recorded("video.json"), m_url));
        QCOMPARE(info.id, u"boat_______"_s);
        QCOMPARE(info.title, m_title);
        QCOMPARE(info.uploader, u"Harbour Workshop"_s);
        QCOMPARE(info.duration, 6.0);
        QCOMPARE(info.thumbnailURL, u"http://127.0.0.1:43787/media/thumbnail.png?id=boat"_s);
        QCOMPARE(info.availableHeights, QSet<qint64>({1080, 720, 360}));
    }

    void aPlaylist()
    {
        const VideoInfo info = playlistFromOutput(recorded("playlist.jsonl"), m_url);
        QVERIFY(info.isPlaylist);
        QCOMPARE(info.playlistEntries.size(), 3);
        QCOMPARE(info.playlistEntries.first().title, m_title);
        QCOMPARE(info.playlistEntries.first().originalURL,
                 u"https://www.youtube.com/watch?v=boat_______"_s);
        QCOMPARE(info.playlistEntries.last().id, u"bridges____"_s);
    }

    void aSearch()
    {
        const QList<SearchResult> results = resultsFromOutput(recorded("search.jsonl"));
        QCOMPARE(results.size(), 3);
        QCOMPARE(results.first().id, u"boat_______"_s);
        QCOMPARE(results.first().title, m_title);
        QCOMPARE(results.first().duration, 6.0);
    }

    void aStreamsURL()
    {
        QCOMPARE(std::get<QUrl>(streamFromOutput(recorded("stream.txt"))),
                 QUrl(u"http://127.0.0.1:43787/media/video1080.mp4?"_s));
    }

    void downloads_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("progressReports");
        QTest::addColumn<int>("processingReports");
        QTest::addColumn<QString>("path");
        const QString folder = u"/home/person/Downloads/"_s;
        const QString name = folder + u"Building a wooden boat, day 4： planking the hull"_s;
        QTest::newRow("merged of two") << u"video.txt"_s << 13 << 3 << name + u".mp4"_s;
        QTest::newRow("audio") << u"audio.txt"_s << 4 << 1 << name + u".webm"_s;
        QTest::newRow("fragments")
            << u"fragments.txt"_s << 0 << 1 << folder + u"Test video fragmented.mp4"_s;
        QTest::newRow("of unknown length")
            << u"unknown-length.txt"_s << 0 << 1 << folder + u"Test video nolength.mp4"_s;
        QTest::newRow("there already") << u"again.txt"_s << 1 << 0 << name + u".mp4"_s;
        QTest::newRow("audio that is there already")
            << u"audio-again.txt"_s << 1 << 1 << name + u".mp3"_s;
    }
    void downloads()
    {
        QFETCH(QString, file);
        int progress = 0;
        int processing = 0;
        DownloadOutput output([&](double, const QString &, const QString &) { ++progress; },
                              [&] { ++processing; });
        output.append(recorded(file.toLatin1().constData()));
        QTEST(progress, "progressReports");
        QTEST(processing, "processingReports");
        QTEST(output.savedPath(), "path");
    }

private:
    static QByteArray recorded(const char *name)
    {
        QFile file(QStringLiteral(QUILLON_TEST_DATA "/yt-dlp-2026.08.19/")
                   + QString::fromLatin1(name));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("%s is missing", name);
        return file.readAll();
    }

    const QString m_url = u"https://www.youtube.com/watch?v=boat"_s;
    const QString m_title = u"Building a wooden boat, day 4: planking the hull"_s;
};

QTEST_GUILESS_MAIN(RecordedOutputTest)
#include "RecordedOutputTest.moc"
