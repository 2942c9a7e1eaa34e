// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadRun.h"

#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

class DownloadRunnerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tool = std::make_unique<FakeTool>();
        m_service = std::make_unique<YTDLPService>(QStringList{m_tool->path()});
    }

    void cleanup()
    {
        m_service.reset();
        m_tool.reset();
    }

    void aDownloadReportsAndYieldsItsPath()
    {
        m_tool->setScript("echo '[download] Destination: /d/a.mp4'\n"
                          "echo '[download]  50.0% of 1.00MiB at 2.50MiB/s ETA 00:42'\n"
                          "echo '[Merger] Merging formats into \"/d/b.mp4\"'");
        const Download download(*m_service);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.outcome().value(), u"/d/b.mp4"_s);
        QCOMPARE(download.reports(),
                 QStringList({u"processing"_s, u"0.5 2.50MiB/s 00:42"_s, u"processing"_s}));
    }

    void aLineThatComesInTwoReadsIsProcessedOnce()
    {
        // A whole line in the same write tells that the half one has been read.
        m_tool->setScript("printf '[Merger] x\\n[download]  50.0%% of 1.0'\n" + m_tool->gate("go")
                          + "printf '0MiB at 1MiB/s ETA 00:01\\n'\n");
        const Download download(*m_service);
        WAIT_FOR(download.reports().size() == 1);
        m_tool->open("go");
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.reports(), QStringList({u"processing"_s, u"0.5 1MiB/s 00:01"_s}));
    }

    void whatIsWrittenRightBeforeTheEndIsProcessed()
    {
        m_tool->setScript("i=0; while [ $i -lt 3000 ]; do echo \"[download] $i.0% of 1MiB at "
                          "1MiB/s ETA 00:01\"; i=$((i+1)); done");
        const Download download(*m_service);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.reports().size(), 3000);
        QCOMPARE(download.reports().last(), u"29.99 1MiB/s 00:01"_s);
    }

    void oddTitlesComeThroughWhole()
    {
        const QStringList titles{u"\"quotes\" ''"_s, u"⧸⧹：？"_s,         u"🌅🎉"_s,
                                 u"שלום مرحبا"_s,    u"100% %(title)s"_s, u"<b>&amp;"_s,
                                 QString(240, u'x')};
        for (const QString &title : titles) {
            const QString path = u"/d/"_s + title + u".mp4"_s;
            writeFile(m_tool->file(u"line"_s), ("[download] Destination: " + path.toUtf8() + "\n"));
            m_tool->setScript("cat \"$DIR/line\"");
            const Download download(*m_service);
            WAIT_FOR(download.outcome().isSettled());
            QCOMPARE(download.outcome().value(), path);
        }
    }

    void withoutADestinationLineThePathIsEmpty()
    {
        const Download download(*m_service);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.outcome().value(), QString());
        QCOMPARE(download.outcome().error(), QString());
    }

    void aFailureWithoutWordsGivesTheExitCode()
    {
        m_tool->setScript("exit 1");
        const Download download(*m_service);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.outcome().error(), u"Download failed: Exit code 1"_s);
    }

    void aFailureCarriesStandardErrorUnchanged()
    {
        m_tool->setScript("echo 'ERROR: no' >&2; exit 1");
        const Download download(*m_service);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.outcome().error(), u"Download failed: ERROR: no\n"_s);
    }

    void aLaunchFailureClearsTheSlot()
    {
        YTDLPService service({u"/nowhere/yt-dlp"_s});
        const Download download(service);
        WAIT_FOR(download.outcome().isSettled());
        QVERIFY(download.outcome().error().startsWith(u"Download failed: "_s));
        QVERIFY(download.outcome().error().contains(u"No such file or directory"_s));
        QVERIFY(!service.activeProcess());
        QCOMPARE(download.outcome().count(), 1);
    }

    void aLineOf64MegabytesDoesNotStopTheRun()
    {
        m_tool->setScript("head -c 67108864 /dev/zero | tr '\\0' 'x'; echo;"
                          "echo '[download] Destination: /d/a.mp4'");
        const Download download(*m_service);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.outcome().value(), u"/d/a.mp4"_s);
    }

    void aFloodOnStandardErrorDoesNotBlock()
    {
        m_tool->setScript("head -c 10485760 /dev/zero | tr '\\0' 'e' >&2\n"
                          "echo '[download] Destination: /d/a.mp4'");
        const Download download(*m_service);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.outcome().value(), u"/d/a.mp4"_s);
    }

    void anAddressLikeAnOptionNeverReachesTheTool()
    {
        const Download download(*m_service, {u"--newline"_s, u"-x"_s});
        WAIT_FOR(download.outcome().isSettled());
        QVERIFY(download.outcome().error().startsWith(u"Download failed: The address"_s));
        QVERIFY(m_tool->calls().isEmpty());
        QVERIFY(!m_service->activeProcess());
    }

    void terminatingTheActiveProcessFailsTheRun()
    {
        m_tool->setScript("echo '[Merger] x'\n" + m_tool->gate("never"));
        const Download download(*m_service);
        WAIT_FOR(!download.reports().isEmpty());
        m_service->activeProcess()->send(SIGTERM);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.outcome().error(), u"Download failed: Exit code 15"_s);
    }

    void theActiveProcessMayBeSignalledAtAnyMoment()
    {
        // Many short runs: the signal meets each stage of starting and ending.
        for (int round = 0; round < 50; ++round) {
            const Download download(*m_service);
            while (!download.outcome().isSettled()) {
                if (const auto process = m_service->activeProcess()) {
                    process->send(SIGCONT);
                    Q_UNUSED(process->isRunning())
                }
                QTest::qWait(0);
            }
            QCOMPARE(download.outcome().error(), QString());
        }
    }

    void aHandleOfAnEndedProcessDoesNothing()
    {
        m_tool->setScript("echo '[Merger] x'\n" + m_tool->gate("go"));
        const Download download(*m_service);
        WAIT_FOR(!download.reports().isEmpty());
        const auto process = m_service->activeProcess();
        QVERIFY(process->isRunning());
        m_tool->open("go");
        WAIT_FOR(download.outcome().isSettled());
        QVERIFY(!process->isRunning());
        process->send(SIGKILL);
    }

    void ofAllShapesOfProgressOnlyTheFullOneIsReported()
    {
        m_tool->setScript("cat << 'END'\n"
                          "[download]   0.0% of    3.66MiB at  Unknown B/s ETA Unknown\n"
                          "[download]  13.6% of    3.66MiB at  497.10KiB/s ETA 00:06\n"
                          "[download]  20.0% of ~   2.29MiB at    1.00MiB/s ETA 00:03 (frag 1/5)\n"
                          "[download]    1.00KiB at  Unknown B/s (00:00:00)\n"
                          "[download] 100% of    3.66MiB in 00:00:07 at 499.56KiB/s\n"
                          "[download] 100% of    3.66MiB\n"
                          "END");
        const Download download(*m_service);
        WAIT_FOR(download.outcome().isSettled());
        QCOMPARE(download.reports(), QStringList{u"0.136 497.10KiB/s 00:06"_s});
    }

    void theEndOfAnEarlierRunLeavesTheSlotToTheLaterOne()
    {
        m_tool->setScript("echo '[Merger] x'\n[ $N = 1 ] && {\n" + m_tool->gate("first")
                          + "exit 0; }\n" + m_tool->gate("second"));
        const Download first(*m_service);
        WAIT_FOR(!first.reports().isEmpty());
        const Download second(*m_service);
        WAIT_FOR(!second.reports().isEmpty());
        const auto secondProcess = m_service->activeProcess();
        m_tool->open("first");
        WAIT_FOR(first.outcome().isSettled());
        QVERIFY(m_service->activeProcess() == secondProcess);
        QVERIFY(secondProcess->isRunning());
        m_tool->open("second");
        WAIT_FOR(second.outcome().isSettled());
        QVERIFY(!m_service->activeProcess());
    }

    void aLaterRunTakesTheOneSlot()
    {
        m_tool->setScript("echo '[Merger] x'\n" + m_tool->gate("go"));
        const Download first(*m_service);
        WAIT_FOR(!first.reports().isEmpty());
        const auto firstProcess = m_service->activeProcess();
        const Download second(*m_service);
        WAIT_FOR(!second.reports().isEmpty());
        QVERIFY(m_service->activeProcess() != firstProcess);
        QVERIFY(firstProcess->isRunning());
        m_tool->open("go");
        m_tool->open("go");
        WAIT_FOR(first.outcome().isSettled() && second.outcome().isSettled());
    }

private:
    std::unique_ptr<FakeTool> m_tool;
    std::unique_ptr<YTDLPService> m_service;
};

QTEST_GUILESS_MAIN(DownloadRunnerTest)
#include "DownloadRunnerTest.moc"
