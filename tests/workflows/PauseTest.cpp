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
        startStoppable();
        state().togglePause();
        QVERIFY(state().isPaused());
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        state().togglePause();
        QVERIFY(!state().isPaused());
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) != "T");
        tool().open("go");
        WAIT_FOR(m_fixture->hasEnded());
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
        startStoppable();
        state().togglePause();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        kill(static_cast<pid_t>(tool().processIdentifiers().last()), SIGKILL);
        WAIT_FOR(m_fixture->hasEnded());
        QVERIFY(!state().isPaused());
        QVERIFY(kindOf(state().downloadStatus()) == StatusKind::Failed);
    }

    void resumeAlsoContinuesWhatAnotherRunHasPushedOut()
    {
        startStoppable();
        const qint64 first = tool().processIdentifiers().last();
        state().togglePause();
        WAIT_FOR(stateOf(first) == "T");
        // Another download takes the slot, as one of another mode does.
        service().runProcessWithProgress(
            {u"x"_s}, [](auto...) {}, [] {}, [](const auto &) {});
        WAIT_FOR(tool().processIdentifiers().size() == 2);
        WAIT_FOR(service().activeProcess()->processIdentifier() != first);
        QVERIFY(stateOf(first) == "T");
        state().togglePause();
        WAIT_FOR(stateOf(first) != "T");
        tool().open("go");
        tool().open("go");
        WAIT_FOR(m_fixture->hasEnded());
    }

    void pauseStopsTheToolAloneAndNotItsChildren()
    {
        tool().setScript("sleep 1000 & echo $! > \"$DIR/child\"; echo '[Merger] x'\n"
                         + tool().gate("go") + "kill $!");
        startDownload();
        WAIT_FOR(state().downloadStatus() == DownloadUIStatus(Status::Processing{}));
        const qint64 child = contentOf(tool().file(u"child"_s)).trimmed().toLongLong();
        state().togglePause();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        QCOMPARE(stateOf(child), "S"_ba);
        state().togglePause();
        tool().open("go");
        WAIT_FOR(m_fixture->hasEnded());
    }

    void theStartOfAQueueContinuesAPausedDownload()
    {
        runTwo();
        startDownload();
        WAIT_FOR(runs(0));
        pause(0);
        state().queue = {std::make_shared<DownloadItem>(u"https://x/"_s)};
        state().startQueueDownload();
        QVERIFY(!state().isPaused());
        WAIT_FOR(stateOf(process(0)) != "T");
        endBoth();
    }

    void theEndOfAQueueContinuesAPausedDownloadOfBrowse()
    {
        runTwo();
        state().queue = {std::make_shared<DownloadItem>(u"https://x/"_s)};
        state().startQueueDownload();
        WAIT_FOR(runs(0));
        browse();
        pause(1);
        tool().open("one");
        WAIT_FOR(!state().isQueueDownloading());
        QVERIFY(!state().isPaused());
        WAIT_FOR(stateOf(process(1)) != "T");
        endBoth();
    }

    void theEndOfASingleRunContinuesAPausedDownloadOfBrowse_data()
    {
        QTest::addColumn<QByteArray>("ending");
        QTest::newRow("success") << "exit 0"_ba;
        QTest::newRow("failure") << "exit 1"_ba;
    }
    void theEndOfASingleRunContinuesAPausedDownloadOfBrowse()
    {
        QFETCH(QByteArray, ending);
        runTwo(ending);
        startDownload();
        WAIT_FOR(runs(0));
        browse();
        pause(1);
        tool().open("one");
        WAIT_FOR(m_fixture->hasEnded());
        QVERIFY(!state().isPaused());
        WAIT_FOR(stateOf(process(1)) != "T");
        endBoth();
    }

    void aSecondSingleRunContinuesThePausedFirst()
    {
        runTwo();
        startDownload();
        WAIT_FOR(runs(0));
        pause(0);
        startDownload();
        QVERIFY(!state().isPaused());
        WAIT_FOR(stateOf(process(0)) != "T");
        endBoth();
    }

    void aResetWhilePausedLetsTheRunGoOn()
    {
        startStoppable();
        state().togglePause();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) == "T");
        state().resetDownload();
        WAIT_FOR(stateOf(tool().processIdentifiers().last()) != "T");
        tool().open("go");
        WAIT_FOR(!state().history().isEmpty());
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
        tool().setScript("if [ $N = 1 ]; then " + tool().gate("one") + endOfFirst + "; else "
                         + tool().gate("two") + "fi");
    }

    void browse()
    {
        state().browseDownload({.id = u"b"_s,
                                .title = u"B"_s,
                                .uploader = {},
                                .duration = {},
                                .thumbnailURL = {},
                                .videoURL = u"https://x/b"_s},
                               false);
        WAIT_FOR(runs(1));
    }

    qint64 process(qsizetype call) { return tool().processIdentifiers().value(call); }

    /// Whether a call is the one that pause would stop.
    bool runs(qsizetype call)
    {
        const auto active = service().activeProcess();
        return active && active->isRunning() && process(call) == active->processIdentifier();
    }

    void pause(qsizetype call)
    {
        state().togglePause();
        WAIT_FOR(stateOf(process(call)) == "T");
    }

    void endBoth()
    {
        tool().open("one");
        for (int call = 0; call < 2; ++call)
            tool().open("two");
        WAIT_FOR(m_fixture->hasEnded() && !state().isQueueDownloading());
    }
};

QTEST_GUILESS_MAIN(PauseTest)
#include "PauseTest.moc"
