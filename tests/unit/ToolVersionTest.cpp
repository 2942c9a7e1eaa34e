// SPDX-License-Identifier: GPL-3.0-or-later
#include "AgeSuspicion.h"
#include "ToolReport.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Versions of the tool, and what they are worth on a given day.
class ToolVersionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aReleaseIsItsDate()
    {
        const ToolVersion version = versionFromOutput("2026.08.19\n");
        QCOMPARE(version.text, u"2026.08.19"_s);
        QCOMPARE(version.date, QDate(2026, 8, 19));
        QCOMPARE(version.timeOfDay, 0);
    }

    void aNightlyBuildHasAFourthPart()
    {
        const ToolVersion version = versionFromOutput("2026.08.19.233045");
        QCOMPARE(version.date, QDate(2026, 8, 19));
        QCOMPARE(version.timeOfDay, 233045);
        QVERIFY(compare(versionFromOutput("2026.08.19"), version) < 0);
        QVERIFY(compare(version, versionFromOutput("2026.08.20")) < 0);
        QVERIFY(compare(version, version) == 0);
    }

    void whatIsNoDateIsNotDated_data()
    {
        QTest::addColumn<QByteArray>("output");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("a word") << QByteArray("unknown");
        QTest::newRow("no such day") << QByteArray("2026.02.30");
        QTest::newRow("two lines") << QByteArray("2026.08.19\n2026.08.20\n");
        QTest::newRow("more behind it") << QByteArray("2026.08.19 (from somewhere)");
        QTest::newRow("a fifth part") << QByteArray("2026.08.19.1.2");
        QTest::newRow("no UTF-8") << QByteArray("\xff\xfe\xfd");
        QTest::newRow("other digits") << QByteArray("٢٠٢٦.٠٨.١٩");
    }
    void whatIsNoDateIsNotDated()
    {
        QFETCH(QByteArray, output);
        QVERIFY(!versionFromOutput(output).isDated());
    }

    void ofNonsenseAShortBeginningIsKept()
    {
        QVERIFY(versionFromOutput(QByteArray(1000000, 'x')).text.size() <= 40);
        QVERIFY(!versionFromOutput("a\nb").text.contains(u'\n'));
    }

    void agesAreReadInTheUnitThatFits_data()
    {
        QTest::addColumn<int>("days");
        QTest::addColumn<QString>("text");
        QTest::newRow("today") << 0 << u"0 days old"_s;
        QTest::newRow("yesterday") << 1 << u"1 day old"_s;
        QTest::newRow("45 days") << 45 << u"45 days old"_s;
        QTest::newRow("the last in days") << 60 << u"60 days old"_s;
        QTest::newRow("the first in months") << 61 << u"2 months old"_s;
        QTest::newRow("whole months only") << 91 << u"2 months old"_s;
        QTest::newRow("three months") << 92 << u"3 months old"_s;
        QTest::newRow("the last in months") << 730 << u"23 months old"_s;
        QTest::newRow("the first in years") << 731 << u"2 years old"_s;
        QTest::newRow("three years") << 1100 << u"3 years old"_s;
    }
    void agesAreReadInTheUnitThatFits()
    {
        QFETCH(int, days);
        QFETCH(QString, text);
        QCOMPARE(ageText(days), text);
    }

    void aReleaseOfTomorrowIsNoDayOld()
    {
        QCOMPARE(daysOld(versionFromOutput("2026.08.20"), QDate(2026, 8, 19)), 0);
    }

    void theVerdictFollowsTheDate_data()
    {
        QTest::addColumn<QByteArray>("version");
        QTest::addColumn<ToolStatus>("status");
        QTest::addColumn<QString>("meaning");
        QTest::newRow("Debian 12")
            << QByteArray("2023.03.04") << ToolStatus::tooOld << u"too old for YouTube"_s;
        QTest::newRow("the last that asks for the old client")
            << QByteArray("2026.01.30") << ToolStatus::tooOld << u"too old for YouTube"_s;
        QTest::newRow("the first that works")
            << QByteArray("2026.01.31") << ToolStatus::old << u"6 months old"_s;
        QTest::newRow("91 days") << QByteArray("2026.05.20") << ToolStatus::old
                                 << u"2 months old"_s;
        QTest::newRow("90 days") << QByteArray("2026.05.21") << ToolStatus::current << u"current"_s;
        QTest::newRow("a nightly build of today")
            << QByteArray("2026.08.19.010203") << ToolStatus::current << u"current"_s;
        QTest::newRow("no date") << QByteArray("from my branch") << ToolStatus::unknown
                                 << u"of unknown age"_s;
    }
    void theVerdictFollowsTheDate()
    {
        QFETCH(QByteArray, version);
        QFETCH(QString, meaning);
        const ToolReport report = working(version);
        QTEST(statusOf(report, today), "status");
        QCOMPARE(meaningOf(report, today), meaning);
    }

    void anUndatedToolIsNeverHintedAt()
    {
        const ToolReport report = working("from my branch");
        const ToolStatus status = statusOf(report, today);
        QVERIFY(!isUseless(status));
        QVERIFY(!canBeRenewed(report, status));
        QCOMPARE(complaintAbout(report, today), QString());
    }

    void aMissingToolIsSaidToBeMissing()
    {
        const ToolReport report;
        QCOMPARE(statusOf(report, today), ToolStatus::missing);
        QCOMPARE(meaningOf(report, today), u"not installed"_s);
        QVERIFY(complaintAbout(report, today).startsWith(u"yt-dlp is not installed."));
        QVERIFY(canBeRenewed(report, ToolStatus::missing));
    }

    void whyItDoesNotStartIsSaid_data()
    {
        QTest::addColumn<StartFailure>("failure");
        QTest::addColumn<QString>("meaning");
        QTest::addColumn<bool>("isCurable");
        QTest::newRow("folder") << StartFailure::isFolder << u"does not start: it is a folder"_s
                                << true;
        QTest::newRow("rights") << StartFailure::notExecutable
                                << u"does not start: it is not executable"_s << true;
        QTest::newRow("no Python")
            << StartFailure::noPython << u"does not start: Python is not installed"_s << false;
        QTest::newRow("old Python")
            << StartFailure::oldPython << u"does not start: it needs a newer Python"_s << false;
        QTest::newRow("silence") << StartFailure::noAnswer
                                 << u"does not start: it does not answer"_s << true;
        QTest::newRow("else") << StartFailure::other << u"does not start: no module"_s << true;
    }
    void whyItDoesNotStartIsSaid()
    {
        QFETCH(StartFailure, failure);
        QFETCH(bool, isCurable);
        ToolReport report = working("");
        report.failure = failure;
        report.failureText = u"no module"_s;
        QCOMPARE(statusOf(report, today), ToolStatus::doesNotStart);
        QTEST(meaningOf(report, today), "meaning");
        // Another copy would need the same Python.
        QCOMPARE(canBeRenewed(report, ToolStatus::doesNotStart), isCurable);
        QVERIFY(!complaintAbout(report, today).isEmpty());
    }

    void aComplaintSaysWhatIsWrong()
    {
        QCOMPARE(complaintAbout(working("2023.03.04"), today),
                 u"YouTube no longer answers yt-dlp 2023.03.04."_s);
        QCOMPARE(complaintAbout(working("2026.03.01"), today),
                 u"yt-dlp is 5 months old. A newer one may help."_s);
        QCOMPARE(complaintAbout(working("2026.08.01"), today), QString());
    }

    void aFolderThatHidesTheToolIsNamed()
    {
        ToolReport report = working("");
        report.failure = StartFailure::isFolder;
        report.obstacle = Obstacle::foreign;
        report.obstaclePath = report.path;
        QCOMPARE(
            complaintAbout(report, today),
            u"yt-dlp cannot run: /usr/bin/yt-dlp is a folder, which hides every other yt-dlp."_s);
    }

    void anObstacleIsNamedWithItsRemedy()
    {
        ToolReport report = working("2023.03.04");
        report.obstacle = Obstacle::comesFirst;
        report.obstaclePath = u"/usr/local/bin/yt-dlp"_s;
        QVERIFY(!canBeRenewed(report, ToolStatus::tooOld));
        QVERIFY(complaintAbout(report, today)
                    .endsWith(u" It is at /usr/local/bin/yt-dlp, where Quillon changes nothing."));
        report.command = u"pipx upgrade yt-dlp"_s;
        QVERIFY(complaintAbout(report, today)
                    .endsWith(u" It is at /usr/local/bin/yt-dlp; this renews it:"));
        report.obstacle = Obstacle::foreign;
        QVERIFY(
            complaintAbout(report, today)
                .endsWith(u" Quillon did not put /usr/local/bin/yt-dlp there; this renews it:"));
    }

    void aToolIsNamedByPathAndVersion()
    {
        QCOMPARE(nameOf(working("2023.03.04")), u"/usr/bin/yt-dlp 2023.03.04"_s);
        QCOMPARE(nameOf(working("")), u"/usr/bin/yt-dlp"_s);
    }

    void ageExplainsWhatIsNotExplainedOtherwise_data()
    {
        QTest::addColumn<QString>("failure");
        QTest::addColumn<bool>("mayBeAge");
        QTest::newRow("client")
            << u"ERROR: [youtube] a: YouTube is no longer supported in this application or device."_s
            << true;
        QTest::newRow("forbidden")
            << u"ERROR: unable to download video data: HTTP Error 403: Forbidden"_s << true;
        QTest::newRow("player") << u"ERROR: [youtube] a: Unable to extract uploader id"_s << true;
        QTest::newRow("format") << u"ERROR: [youtube] a: Requested format is not available"_s
                                << true;
        QTest::newRow("unparsed") << u"Parse error: Could not parse video JSON"_s << true;
        QTest::newRow("exit code") << u"Failed to fetch info: Exit code 1"_s << true;
        QTest::newRow("not a bot")
            << u"ERROR: [youtube] a: Sign in to confirm you’re not a bot. Use --cookies-from-browser or --cookies"_s
            << true;
        QTest::newRow("private")
            << u"ERROR: [youtube] a: Private video. Sign in if you've been granted access"_s
            << false;
        QTest::newRow("removed")
            << u"ERROR: [youtube] a: Video unavailable. This video has been removed by the uploader"_s
            << false;
        QTest::newRow("network")
            << u"ERROR: Unable to download webpage: <urlopen error [Errno -3] Temporary failure in name resolution>"_s
            << false;
        QTest::newRow("network, newer")
            << u"ERROR: [youtube] a: Unable to download API page: [Errno -2] Failed to resolve 'www.youtube.com'"_s
            << false;
        QTest::newRow("timeout") << u"ERROR: The read operation timed out"_s << false;
        QTest::newRow("disk")
            << u"ERROR: unable to write data: [Errno 28] No space left on device"_s << false;
        QTest::newRow("folder")
            << u"ERROR: unable to open for writing: [Errno 13] Permission denied: '/x'"_s << false;
        QTest::newRow("ffmpeg")
            << u"ERROR: You have requested merging of multiple formats but ffmpeg is not installed."_s
            << false;
        QTest::newRow("cookies") << u"ERROR: could not find chrome cookies database in \"/x\""_s
                                 << false;
        QTest::newRow("hyphen") << u"The URL “-x” begins with a hyphen, so it is not a URL"_s
                                << false;
    }
    void ageExplainsWhatIsNotExplainedOtherwise()
    {
        QFETCH(QString, failure);
        QTEST(ageMayExplain(failure), "mayBeAge");
    }

private:
    static ToolReport working(const QByteArray &version)
    {
        ToolReport report;
        report.path = u"/usr/bin/yt-dlp"_s;
        report.exists = true;
        report.version = versionFromOutput(version);
        return report;
    }

    const QDate today{2026, 8, 19};
};

QTEST_GUILESS_MAIN(ToolVersionTest)
#include "ToolVersionTest.moc"
