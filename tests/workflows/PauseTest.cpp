// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleFixture.h"

#include <csignal>

/// Pause and resume, and what runs meanwhile.
class PauseTest : public SingleFixture
{
    Q_OBJECT

private Q_SLOTS:
    void pauseStopsTheToolAndResumeContinuesIt()
    {
        QVERIFY(startStoppable());
        state().togglePause();
        QVERIFY(state().isPaused());
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()), QByteArray("T"),
                                  patience);
        state().togglePause();
        QVERIFY(!state().isPaused());
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()) != "T", patience);
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
    }

    void pauseWithoutAProcessFlipsTheFlag()
    {
        state().togglePause();
        QVERIFY(state().isPaused());
        state().togglePause();
        QVERIFY(!state().isPaused());
    }

    void theEndOfARunUnsetsThePause()
    {
        QVERIFY(startStoppable());
        state().togglePause();
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()), QByteArray("T"),
                                  patience);
        kill(static_cast<pid_t>(tool().processIdentifiers().last()), SIGKILL);
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QVERIFY(!state().isPaused());
        QVERIFY(kindOf(state().downloadStatus()) == StatusKind::Failed);
    }

    void resumeAlsoContinuesADisplacedRun()
    {
        QVERIFY(startStoppable());
        const qint64 first = tool().processIdentifiers().last();
        state().togglePause();
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(first), QByteArray("T"), patience);
        // Another download takes the slot, as one of another mode does.
        service().runProcessWithProgress(
            {u"x"_s}, [](auto...) {}, [] {}, [](const auto &) {});
        QTRY_COMPARE_WITH_TIMEOUT(tool().processIdentifiers().size(), 2, patience);
        QTRY_VERIFY_WITH_TIMEOUT(service().activeProcess()->processIdentifier() != first, patience);
        QVERIFY(stateOf(first) == "T");
        state().togglePause();
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(first) != "T", patience);
        tool().open("go");
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
    }

    void pauseStopsTheToolButNotItsChildren()
    {
        tool().respond("child\n"
                       "print [Merger] x\n"
                       "wait go\n"
                       "end child");
        startDownload();
        QTRY_COMPARE_WITH_TIMEOUT(state().downloadStatus(), DownloadUIStatus(Status::Processing{}),
                                  patience);
        const qint64 child = contentOf(tool().file(u"child"_s)).trimmed().toLongLong();
        state().togglePause();
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()), QByteArray("T"),
                                  patience);
        QCOMPARE(stateOf(child), "S"_ba);
        state().togglePause();
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
    }

    void startingAQueueContinuesAPausedDownload()
    {
        runTwo();
        startDownload();
        QTRY_VERIFY_WITH_TIMEOUT(runs(0), patience);
        QVERIFY(pause(0));
        state().queue = {std::make_shared<DownloadItem>(u"https://x/"_s)};
        state().startQueueDownload();
        QVERIFY(!state().isPaused());
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(process(0)) != "T", patience);
        QVERIFY(endBoth());
    }

    void aQueuesEndContinuesAPausedBrowseDownload()
    {
        runTwo();
        state().queue = {std::make_shared<DownloadItem>(u"https://x/"_s)};
        state().startQueueDownload();
        QTRY_VERIFY_WITH_TIMEOUT(runs(0), patience);
        QVERIFY(browse());
        QVERIFY(pause(1));
        tool().open("one");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QVERIFY(!state().isPaused());
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(process(1)) != "T", patience);
        QVERIFY(endBoth());
    }

    void aRunsEndContinuesAPausedBrowseDownload_data()
    {
        QTest::addColumn<QByteArray>("ending");
        QTest::newRow("success") << "exit 0"_ba;
        QTest::newRow("failure") << "exit 1"_ba;
    }
    void aRunsEndContinuesAPausedBrowseDownload()
    {
        QFETCH(QByteArray, ending);
        runTwo(ending);
        startDownload();
        QTRY_VERIFY_WITH_TIMEOUT(runs(0), patience);
        QVERIFY(browse());
        QVERIFY(pause(1));
        tool().open("one");
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QVERIFY(!state().isPaused());
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(process(1)) != "T", patience);
        QVERIFY(endBoth());
    }

    void aSecondSingleRunContinuesThePausedFirst()
    {
        runTwo();
        startDownload();
        QTRY_VERIFY_WITH_TIMEOUT(runs(0), patience);
        QVERIFY(pause(0));
        startDownload();
        QVERIFY(!state().isPaused());
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(process(0)) != "T", patience);
        QVERIFY(endBoth());
    }

    void resettingWhilePausedContinuesTheRun()
    {
        QVERIFY(startStoppable());
        state().togglePause();
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()), QByteArray("T"),
                                  patience);
        state().resetDownload();
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(tool().processIdentifiers().last()) != "T", patience);
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(!state().history().isEmpty(), patience);
    }

private:
    void startDownload()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
    }

    /// The first call of the tool waits for "one", others for "two".
    void runTwo(const QByteArray &endOfFirst = "exit 0")
    {
        tool().respond("on 1 wait one\n"
                       "on 1 "
                       + endOfFirst
                       + "\n"
                         "wait two");
    }

    [[nodiscard]] bool browse()
    {
        state().browseDownload(StateFixture::searchResult(u"b"_s), false);
        return waitFor([&] { return runs(1); });
    }

    qint64 process(qsizetype call) { return tool().processIdentifiers().value(call); }

    /// Whether a call is the one that pause would stop.
    bool runs(qsizetype call)
    {
        const auto active = service().activeProcess();
        return active && active->isRunning() && process(call) == active->processIdentifier();
    }

    [[nodiscard]] bool pause(qsizetype call)
    {
        state().togglePause();
        return waitFor([&] { return stateOf(process(call)) == "T"; });
    }

    [[nodiscard]] bool endBoth()
    {
        tool().open("one");
        for (int call = 0; call < 2; ++call)
            tool().open("two");
        return waitFor([&] { return m_fixture->hasEnded() && !state().isQueueDownloading(); });
    }
};

QTEST_GUILESS_MAIN(PauseTest)
#include "PauseTest.moc"
