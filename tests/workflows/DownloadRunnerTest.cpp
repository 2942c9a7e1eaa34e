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
        m_tool->respond("print [download] Destination: /d/a.mp4\n"
                        "print [download]  50.0% of 1.00MiB at 2.50MiB/s ETA 00:42\n"
                        R"(print [Merger] Merging formats into "/d/b.mp4")");
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.outcome().value(), u"/d/b.mp4"_s);
        QCOMPARE(download.reports(),
                 QStringList({u"processing"_s, u"0.5 2.50MiB/s 00:42"_s, u"processing"_s}));
    }

    void aLineReadInPartsIsProcessedOnce()
    {
        // A whole line in the same write tells that the half one has been read.
        m_tool->respond("bytes [Merger] x\\n[download]  50.0% of 1.0\n"
                        "wait go\n"
                        "bytes 0MiB at 1MiB/s ETA 00:01\\n");
        const Download download(*m_service);
        QTRY_COMPARE_WITH_TIMEOUT(download.reports().size(), 1, patience);
        m_tool->open("go");
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.reports(), QStringList({u"processing"_s, u"0.5 1MiB/s 00:01"_s}));
    }

    void outputRightBeforeTheEndIsProcessed()
    {
        m_tool->respond("repeat 3000 print [download] {i}.0% of 1MiB at 1MiB/s ETA 00:01");
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.reports().size(), 3000);
        QCOMPARE(download.reports().last(), u"30 1MiB/s 00:01"_s);
    }

    void oddTitlesComeThroughWhole()
    {
        const QStringList titles{u"\"quotes\" ''"_s, u"⧸⧹：？"_s,         u"🌅🎉"_s,
                                 u"שלום مرحبا"_s,    u"100% %(title)s"_s, u"<b>&amp;"_s,
                                 QString(240, u'x')};
        for (const QString &title : titles) {
            const QString path = u"/d/"_s + title + u".mp4"_s;
            m_tool->respond("print [download] Destination: " + path.toUtf8());
            const Download download(*m_service);
            QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
            QCOMPARE(download.outcome().value(), path);
        }
    }

    void withoutADestinationLineThePathIsEmpty()
    {
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.outcome().value(), QString());
        QCOMPARE(download.outcome().error(), QString());
    }

    void aFailureWithoutWordsGivesTheExitCode()
    {
        m_tool->respond("exit 1");
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.outcome().error(), u"Download failed: Exit code 1"_s);
    }

    void aFailureCarriesStandardErrorUnchanged()
    {
        m_tool->respond("fail ERROR: no");
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.outcome().error(), u"Download failed: ERROR: no\n"_s);
    }

    void aLaunchFailureClearsTheSlot()
    {
        YTDLPService service({u"/nowhere/yt-dlp"_s});
        const Download download(service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QVERIFY(download.outcome().error().startsWith(u"Download failed: "_s));
        QVERIFY(download.outcome().error().contains(u"No such file or directory"_s));
        QVERIFY(!service.activeProcess());
        QCOMPARE(download.outcome().count(), 1);
    }

    void anEnormousLineDoesNotStopTheRun()
    {
        m_tool->respond("fill 67108864 x\n"
                        "print \n"
                        "print [download] Destination: /d/a.mp4");
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.outcome().value(), u"/d/a.mp4"_s);
    }

    void aFloodOnStandardErrorDoesNotBlock()
    {
        m_tool->respond("stderr fill 10485760 e\n"
                        "print [download] Destination: /d/a.mp4");
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.outcome().value(), u"/d/a.mp4"_s);
    }

    void aURLLikeAnOptionNeverReachesTheTool()
    {
        const Download download(*m_service, {u"--newline"_s, u"-x"_s});
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QVERIFY(download.outcome().error().startsWith(u"Download failed: The URL"_s));
        QVERIFY(m_tool->calls().isEmpty());
        QVERIFY(!m_service->activeProcess());
    }

    void terminatingTheActiveProcessFailsTheRun()
    {
        m_tool->respond("print [Merger] x\n"
                        "wait never");
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(!download.reports().isEmpty(), patience);
        m_service->activeProcess()->send(SIGTERM);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.outcome().error(), u"Download failed: Exit code 15"_s);
    }

    void theActiveProcessCanAlwaysBeSignalled()
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
        m_tool->respond("print [Merger] x\n"
                        "wait go");
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(!download.reports().isEmpty(), patience);
        const auto process = m_service->activeProcess();
        QVERIFY(process->isRunning());
        m_tool->open("go");
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QVERIFY(!process->isRunning());
        process->send(SIGKILL);
    }

    void onlyTheFullProgressFormIsReported()
    {
        m_tool->respond(sample("progress-of-every-shape"));
        const Download download(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(download.outcome().isSettled(), patience);
        QCOMPARE(download.reports(), QStringList{u"0.136 497.10KiB/s 00:06"_s});
    }

    void anEarlierRunsEndKeepsTheLatersSlot()
    {
        m_tool->respond("print [Merger] x\n"
                        "on 1 wait first\n"
                        "on 1 exit 0\n"
                        "wait second");
        const Download first(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(!first.reports().isEmpty(), patience);
        const Download second(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(!second.reports().isEmpty(), patience);
        const auto secondProcess = m_service->activeProcess();
        m_tool->open("first");
        QTRY_VERIFY_WITH_TIMEOUT(first.outcome().isSettled(), patience);
        QVERIFY(m_service->activeProcess() == secondProcess);
        QVERIFY(secondProcess->isRunning());
        m_tool->open("second");
        QTRY_VERIFY_WITH_TIMEOUT(second.outcome().isSettled(), patience);
        QVERIFY(!m_service->activeProcess());
    }

    void aLaterRunTakesTheOneSlot()
    {
        m_tool->respond("print [Merger] x\n"
                        "wait go");
        const Download first(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(!first.reports().isEmpty(), patience);
        const auto firstProcess = m_service->activeProcess();
        const Download second(*m_service);
        QTRY_VERIFY_WITH_TIMEOUT(!second.reports().isEmpty(), patience);
        QVERIFY(m_service->activeProcess() != firstProcess);
        QVERIFY(firstProcess->isRunning());
        m_tool->open("go");
        m_tool->open("go");
        QTRY_VERIFY_WITH_TIMEOUT(first.outcome().isSettled() && second.outcome().isSettled(),
                                 patience);
    }

private:
    std::unique_ptr<FakeTool> m_tool;
    std::unique_ptr<YTDLPService> m_service;
};

QTEST_GUILESS_MAIN(DownloadRunnerTest)
#include "DownloadRunnerTest.moc"
