// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadOutput.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// What the handlers were told, in order.
struct Recorder
{
    QStringList reports;
    DownloadOutput output{[this](double progress, const QString &speed, const QString &eta) {
                              reports.append(u"%1 %2 %3"_s.arg(progress).arg(speed, eta));
                          },
                          [this] { reports.append(u"processing"_s); }};
};

QStringList reportsOf(const QByteArray &bytes)
{
    Recorder recorder;
    recorder.output.append(bytes);
    return recorder.reports;
}

QString pathOf(const QByteArray &bytes)
{
    Recorder recorder;
    recorder.output.append(bytes);
    return recorder.output.savedPath();
}

} // namespace

class DownloadOutputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void progressLines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QStringList>("reports");
        const QStringList nothing;
        // Every shape that the real tool prints; only the full one is a report.
        QTest::newRow("full") << QByteArray(
            "[download]  13.6% of    3.66MiB at  497.10KiB/s ETA 00:06")
                              << QStringList{u"0.136 497.10KiB/s 00:06"_s};
        QTest::newRow("to the end")
            << QByteArray("[download] 100% of 10.00MiB at 2.00MiB/s ETA 00:00")
            << QStringList{u"1 2.00MiB/s 00:00"_s};
        QTest::newRow("unknown remaining time is --")
            << QByteArray("[download]   5.0% of    3.66MiB at  1.00KiB/s ETA Unknown")
            << QStringList{u"0.05 1.00KiB/s --"_s};
        QTest::newRow("unknown speed has a blank in it")
            << QByteArray("[download]   5.0% of    3.66MiB at  Unknown B/s ETA Unknown") << nothing;
        QTest::newRow("estimated size of fragments")
            << QByteArray("[download]  20.0% of ~   2.29MiB at    1.00MiB/s ETA 00:03 (frag 1/5)")
            << nothing;
        QTest::newRow("summary with speed")
            << QByteArray("[download] 100% of    3.66MiB in 00:00:07 at 499.56KiB/s") << nothing;
        QTest::newRow("summary") << QByteArray("[download] 100% of    3.66MiB") << nothing;
        QTest::newRow("unknown length")
            << QByteArray("[download]    1.00KiB at  Unknown B/s (00:00:00)") << nothing;
        QTest::newRow("not a number counts as 0")
            << QByteArray("[download] 1.2.3% of 1MiB at 1MiB/s ETA 00:01")
            << QStringList{u"0 1MiB/s 00:01"_s};
        QTest::newRow("anywhere in the line")
            << QByteArray("x [download] 50% of 1MiB at 1MiB/s ETA 00:01 y")
            << QStringList{u"0.5 1MiB/s 00:01"_s};
        QTest::newRow("fixups match nothing")
            << QByteArray("[FixupM4a] Correcting container of x") << nothing;
        QTest::newRow("deletions match nothing")
            << QByteArray("Deleting original file x.webm (pass -k to keep)") << nothing;
    }

    void progressLines()
    {
        QFETCH(QByteArray, line);
        QTEST(reportsOf(line + '\n'), "reports");
    }

    void theFirstExpressionThatMatchesWins()
    {
        // A destination whose title reads like progress is progress.
        QCOMPARE(reportsOf("[download] Destination: [download] 50% of 1MiB at 1MiB/s ETA 00:01\n"),
                 QStringList{u"0.5 1MiB/s 00:01"_s});
        QCOMPARE(pathOf("[download] Destination: [download] 50% of 1MiB at 1MiB/s ETA 00:01\n"),
                 QString());
        // A file that "has already been downloaded" is a destination first.
        QCOMPARE(pathOf("[download] Destination: a has already been downloaded\n"),
                 u"a has already been downloaded"_s);
        // And one that ffmpeg is at work on is being processed.
        QCOMPARE(reportsOf("[download] [ffmpeg] a has already been downloaded\n"),
                 QStringList{u"processing"_s});
        QCOMPARE(pathOf("[download] [ffmpeg] a has already been downloaded\n"), QString());
    }

    void aDestinationCallsTheProcessingHandler()
    {
        QCOMPARE(reportsOf("[download] Destination: /d/a.mp4\n"), QStringList{u"processing"_s});
        QCOMPARE(pathOf("[download] Destination:   /d/a b.mp4 \t\n"), u"/d/a b.mp4"_s);
        QCOMPARE(reportsOf(" [download] Destination: /d/a.mp4\n"), QStringList());
    }

    void aMergerNamesTheFileThatStays()
    {
        const QByteArray lines = "[download] Destination: /d/a.f1.mp4\n"
                                 "[download] Destination: /d/a.f2.m4a\n"
                                 "[Merger] Merging formats into \"/d/a \"b\".mp4\"\n";
        QCOMPARE(pathOf(lines), u"/d/a \"b\".mp4"_s);
        QCOMPARE(reportsOf(lines).size(), 3);
    }

    void processingLinesCallTheProcessingHandler()
    {
        QCOMPARE(reportsOf("[Merger] x\n[ffmpeg] y\n[ExtractAudio] Not converting audio z\n"),
                 QStringList({u"processing"_s, u"processing"_s, u"processing"_s}));
    }

    void anAudioDestinationIsNoCall()
    {
        QCOMPARE(reportsOf("[ExtractAudio] Destination: /d/a.mp3\n"), QStringList());
    }

    void anAudioDestinationInMidLineIsProcessing()
    {
        const QByteArray line = "x [ExtractAudio] Destination: /d/a.mp3\n";
        QCOMPARE(reportsOf(line), QStringList{u"processing"_s});
        QCOMPARE(pathOf(line), QString());
    }

    void anMp3RunYieldsTheSourceFilesPath()
    {
        QCOMPARE(
            pathOf("[download] Destination: /d/a.webm\n[ExtractAudio] Destination: /d/a.mp3\n"),
            u"/d/a.webm"_s);
    }

    void anAudioDestinationAloneIsTheYieldedPath()
    {
        QCOMPARE(pathOf("[ExtractAudio] Destination: /d/a.mp3\n"), u"/d/a.mp3"_s);
    }

    void anExistingFileReportsDoneOnce()
    {
        const QByteArray line = "[download] /d/a.mp4 has already been downloaded\n";
        QCOMPARE(reportsOf(line), QStringList{u"1  "_s});
        QCOMPARE(pathOf(line), u"/d/a.mp4"_s);
    }

    void anExistingFileIsRecognizedAnywhereInALine()
    {
        const QByteArray line = "x [download] /d/a.mp4 has already been downloaded and merged\n";
        QCOMPARE(reportsOf(line), QStringList{u"1  "_s});
        QCOMPARE(pathOf(line), u"/d/a.mp4"_s);
    }

    void withoutAnyDestinationThePathIsEmpty()
    {
        QCOMPARE(pathOf("[youtube] x: Downloading webpage\n"), QString());
    }

    void aLineSplitAcrossReadsIsHandledOnce()
    {
        Recorder recorder;
        recorder.output.append("[download]  50.0% of 1.00MiB at 1.0");
        QCOMPARE(recorder.reports, QStringList());
        recorder.output.append("0MiB/s ETA 00:01\n[downl");
        QCOMPARE(recorder.reports, QStringList{u"0.5 1.00MiB/s 00:01"_s});
    }

    void aCharacterSplitAcrossReadsIsWhole()
    {
        const QByteArray line = u"[download] Destination: /d/街🌅.mp4\n"_s.toUtf8();
        for (qsizetype cut = 0; cut < line.size(); ++cut) {
            Recorder recorder;
            recorder.output.append(line.left(cut));
            recorder.output.append(line.mid(cut));
            QCOMPARE(recorder.output.savedPath(), u"/d/街🌅.mp4"_s);
            QCOMPARE(recorder.reports.size(), 1);
        }
    }

    void anUnterminatedLastLineIsIgnored()
    {
        QCOMPARE(pathOf("[download] Destination: /d/a.mp4"), QString());
    }

    void onlyLineFeedsSplitLines()
    {
        QCOMPARE(reportsOf("[Merger] a\r[Merger] b\v[Merger] c\n").size(), 1);
    }

    void aLineThatIsNotUtf8IsIgnored()
    {
        QCOMPARE(reportsOf("[Merger] \xff\n[Merger] b\n").size(), 1);
        QCOMPARE(pathOf("[download] Destination: /d/\xff.mp4\n"), QString());
    }

    void aFileIsIncompleteOnlyDuringExtraction()
    {
        Recorder recorder;
        recorder.output.append("[download] Destination: /d/a.webm\n");
        QCOMPARE(recorder.output.halfMadeFile(), QString());
        recorder.output.append("[ExtractAudio] Destination: /d/a.mp3\n");
        QCOMPARE(recorder.output.halfMadeFile(), u"/d/a.mp3"_s);
        recorder.output.append("Deleting original file /d/a.webm (pass -k to keep)\n");
        QCOMPARE(recorder.output.halfMadeFile(), QString());
    }
};

QTEST_GUILESS_MAIN(DownloadOutputTest)
#include "DownloadOutputTest.moc"
