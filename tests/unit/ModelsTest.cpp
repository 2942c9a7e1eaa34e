// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppMode.h"
#include "DownloadItem.h"
#include "MediaFormat.h"
#include "QualityOption.h"
#include "SearchResult.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

class ModelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modesComeInTheOrderOfTheSwitch()
    {
        QStringList names;
        for (const AppMode mode : allAppModes)
            names.append(rawValue(mode));
        QCOMPARE(names, QStringList({u"Single"_s, u"Multi"_s, u"Browse"_s}));
    }

    void aModeNeedsItsExactName()
    {
        QCOMPARE(appModeFromRawValue(u"Browse"_s), AppMode::browse);
        QVERIFY(!appModeFromRawValue(u"single"_s));
        QVERIFY(!appModeFromRawValue(QString()));
    }

    void formatsAreNamedForTheUser()
    {
        QCOMPARE(rawValue(MediaFormat::mp4), u"MP4 (Video)"_s);
        QCOMPARE(rawValue(MediaFormat::mp3), u"MP3 (Audio only)"_s);
    }

    void theFullQualityTableHasSevenRows()
    {
        QStringList rows;
        for (const QualityOption &option : QualityOption::mp4Options()) {
            rows.append(option.id + u'|' + option.label + u'|' + option.formatString);
            QCOMPARE(option.outputExt, u"mp4"_s);
            QVERIFY(!option.isAudioOnly);
        }
        QCOMPARE(rows,
                 QStringList({
                     u"best|Best|bestvideo+bestaudio/best"_s,
                     u"2160p|4K|bestvideo[height<=2160]+bestaudio/best[height<=2160]"_s,
                     u"1440p|1440p|bestvideo[height<=1440]+bestaudio/best[height<=1440]"_s,
                     u"1080p|1080p|bestvideo[height<=1080]+bestaudio/best[height<=1080]"_s,
                     u"720p|720p|bestvideo[height<=720]+bestaudio/best[height<=720]"_s,
                     u"480p|480p|bestvideo[height<=480]+bestaudio/best[height<=480]"_s,
                     u"360p|360p|bestvideo[height<=360]+bestaudio/best[height<=360]"_s,
                 }));
    }

    void theQueueOffersFiveOfTheSameRows()
    {
        QStringList ids;
        for (const QualityOption &option : QualityOption::queueOptions()) {
            ids.append(option.id);
            QVERIFY(QualityOption::mp4Options().contains(option));
        }
        QCOMPARE(ids, QStringList({u"best"_s, u"1080p"_s, u"720p"_s, u"480p"_s, u"360p"_s}));
    }

    void theAudioOptionIsBuiltOnDemand()
    {
        const QualityOption audio = QualityOption::best(MediaFormat::mp3);
        QCOMPARE(audio.id, u"mp3"_s);
        QCOMPARE(audio.label, u"Best"_s);
        QCOMPARE(audio.formatString, u"bestaudio/best"_s);
        QCOMPARE(audio.outputExt, u"mp3"_s);
        QVERIFY(audio.isAudioOnly);
        QVERIFY(!QualityOption::mp4Options().contains(audio));
    }

    void optionsAreEqualOnlyInAllFields()
    {
        QualityOption other = QualityOption::best(MediaFormat::mp4);
        QCOMPARE(other, QualityOption::best(MediaFormat::mp4));
        other.formatString += u'x';
        QVERIFY(other != QualityOption::best(MediaFormat::mp4));
    }

    void durationsAreFormatted_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero is empty") << 0.0 << QString();
        QTest::newRow("negative is empty") << -5.0 << QString();
        QTest::newRow("below a second") << 0.5 << u"0:00"_s;
        QTest::newRow("59") << 59.0 << u"0:59"_s;
        QTest::newRow("61") << 61.0 << u"1:01"_s;
        QTest::newRow("an hour") << 3600.0 << u"1:00:00"_s;
        QTest::newRow("fractions are cut off") << 5025.9 << u"1:23:45"_s;
        QTest::newRow("ten hours") << 36000.0 << u"10:00:00"_s;
        QTest::newRow("no number") << std::nan("") << QString();
        QTest::newRow("more than 64 bits hold") << 1e300 << u"2500000000000:00:00"_s;
    }

    void durationsAreFormatted()
    {
        QFETCH(double, seconds);
        VideoInfo video;
        video.duration = seconds;
        QTEST(video.formattedDuration(), "text");
        SearchResult result;
        result.duration = seconds;
        QTEST(result.formattedDuration(), "text");
    }

    void anAbsentDurationIsEmptyText()
    {
        QCOMPARE(VideoInfo().formattedDuration(), QString());
        QCOMPARE(SearchResult().formattedDuration(), QString());
    }

    void badgesTellTheStatusInAWord()
    {
        QCOMPARE(badgeLabel(Status::Waiting{}), u"Ready"_s);
        QCOMPARE(badgeLabel(Status::Fetching{}), u"Fetching..."_s);
        QCOMPARE(badgeLabel(Status::Downloading{0.425}), u"42%"_s);
        QCOMPARE(badgeLabel(Status::Downloading{1.0}), u"100%"_s);
        QCOMPARE(badgeLabel(Status::Downloading{0.999}), u"99%"_s);
        QCOMPARE(badgeLabel(Status::Processing{}), u"Processing..."_s);
        QCOMPARE(badgeLabel(Status::Done{u"/a"_s}), u"Done"_s);
        QCOMPARE(badgeLabel(Status::Failed{u"b"_s}), u"Failed"_s);
    }

    void statusesAreEqualOnlyWithEqualPayloads()
    {
        QCOMPARE(DownloadStatus(Status::Downloading{0.5, u"a"_s, u"b"_s}),
                 DownloadStatus(Status::Downloading{0.5, u"a"_s, u"b"_s}));
        QVERIFY(DownloadStatus(Status::Downloading{0.5, u"a"_s, u"b"_s})
                != DownloadStatus(Status::Downloading{0.5, u"a"_s, u"c"_s}));
        QVERIFY(DownloadStatus(Status::Downloading{0.5})
                != DownloadStatus(Status::Downloading{0.6}));
        QVERIFY(DownloadStatus(Status::Done{u"a"_s}) != DownloadStatus(Status::Failed{u"a"_s}));
        QVERIFY(DownloadUIStatus(Status::Done{u"a"_s}) != DownloadUIStatus(Status::Done{u"b"_s}));
        QVERIFY(DownloadUIStatus(Status::Done{u"a"_s}) != DownloadUIStatus(Status::Failed{u"a"_s}));
        QCOMPARE(messageOf(DownloadUIStatus(Status::Failed{u"a"_s})), u"a"_s);
        QCOMPARE(pathOf(DownloadUIStatus(Status::Failed{u"a"_s})), QString());
    }

    void anEntryWithoutInfoShowsItsURL()
    {
        DownloadItem item(u"https://example.org"_s);
        QCOMPARE(item.title(), u"https://example.org"_s);
        QCOMPARE(item.duration(), QString());
        QCOMPARE(item.status(), DownloadStatus(Status::Waiting{}));
        QVERIFY(!item.info());

        VideoInfo info;
        info.title = u"Title"_s;
        info.duration = 61;
        item.info = info;
        QCOMPARE(item.title(), u"Title"_s);
        QCOMPARE(item.duration(), u"1:01"_s);
    }

    void anEntryTellsOfEveryAssignment()
    {
        DownloadItem item(u"a"_s);
        const QSignalSpy infos(&item, &DownloadItem::infoChanged);
        const QSignalSpy statuses(&item, &DownloadItem::statusChanged);
        item.status = Status::Waiting{};
        item.status = Status::Waiting{};
        item.info = std::nullopt;
        QCOMPARE(statuses.count(), 2);
        QCOMPARE(infos.count(), 1);
    }

    void entriesHaveIdentifiersOfTheirOwn()
    {
        QVERIFY(DownloadItem(u"a"_s).id != DownloadItem(u"a"_s).id);
    }

    void videosAreComparedWithTheirEntries()
    {
        VideoInfo a;
        a.playlistEntries.append(VideoInfo());
        VideoInfo b = a;
        QVERIFY(a == b);
        b.playlistEntries.first().title = u"x"_s;
        QVERIFY(!(a == b));
    }
};

QTEST_GUILESS_MAIN(ModelsTest)
#include "ModelsTest.moc"
