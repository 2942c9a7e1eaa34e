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
        QVERIFY(state().downloadStatus().kind() == DownloadUIStatus::Case::failed);
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
};

QTEST_GUILESS_MAIN(PauseTest)
#include "PauseTest.moc"
