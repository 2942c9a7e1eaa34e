// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleFixture.h"

/// The end of a single-mode run by the user's will.
class StopTest : public SingleFixture
{
    Q_OBJECT

private Q_SLOTS:
    void stoppingEndsTheToolAndFailsTheRun()
    {
        QVERIFY(startStoppable());
        state().stopSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QCOMPARE(stateOf(process(0)), QByteArray());
        QCOMPARE(messageOf(state().downloadStatus()), u"Download failed: Exit code 15"_s);
        QCOMPARE(failureText(*state().singleFailure()), u"Stopped."_s);
        QVERIFY(state().history().isEmpty());
        QVERIFY(notifier().posted.isEmpty());
    }

    void stoppingEndsTheToolsChildren()
    {
        tool().respond("child\n"
                       "print [Merger] x\n"
                       "wait go");
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(state().downloadStatus(), DownloadUIStatus(Status::Processing{}),
                                  patience);
        const qint64 child = contentOf(tool().file(u"child"_s)).trimmed().toLongLong();
        QVERIFY(!stateOf(child).isEmpty());
        state().stopSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QVERIFY(stateOf(child).isEmpty() || stateOf(child) == "Z");
    }

    void stoppingEndsAPausedTool()
    {
        QVERIFY(startStoppable());
        state().togglePause();
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(process(0)), QByteArray("T"), patience);
        state().stopSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QVERIFY(!state().isPaused());
    }

    void stoppingLeavesTheToolInTheSlotAlone()
    {
        QVERIFY(startStoppable());
        service().runProcessWithProgress(
            {u"x"_s}, [](auto...) {}, [] {}, [](const auto &) {});
        QTRY_COMPARE_WITH_TIMEOUT(tool().processIdentifiers().size(), 2, patience);
        state().stopSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QCOMPARE(stateOf(process(1)), "S"_ba);
        QVERIFY(service().activeProcess()->isRunning());
    }

    void aStopBeforeTheToolHasStartedStartsNone()
    {
        state().singleInfo = StateFixture::video(u"a"_s);
        state().startSingleDownload();
        state().stopSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QVERIFY(tool().calls().isEmpty());
        QCOMPARE(messageOf(state().downloadStatus()), u"Download failed: Stopped"_s);
    }

    void stoppingAPlaylistKeepsWhatIsDone()
    {
        tool().respond("on 2 print [Merger] x\n"
                       "on 2 wait go");
        const VideoInfo info = StateFixture::playlist({u"a"_s, u"b"_s, u"c"_s});
        state().singleInfo = info;
        state().selectedPlaylistItems = {u"a"_s, u"b"_s, u"c"_s};
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(state().downloadStatus(), DownloadUIStatus(Status::Processing{}),
                                  patience);
        state().stopSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        QCOMPARE(tool().calls().size(), 2);
        QCOMPARE(state().history().size(), 1);
        QCOMPARE(failureText(*state().singleFailure()), u"2 of 3: Stopped."_s);
    }

    void theNextRunIsNotStopped()
    {
        QVERIFY(startStoppable());
        state().stopSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(m_fixture->hasEnded(), patience);
        tool().respond("");
        QVERIFY(download());
        QVERIFY(kindOf(state().downloadStatus()) == StatusKind::Done);
        QVERIFY(!state().singleFailure());
    }

    void stoppingWithoutARunChangesNothing()
    {
        state().stopSingleDownload();
        QVERIFY(download() && kindOf(state().downloadStatus()) == StatusKind::Idle);
        state().singleInfo = StateFixture::video(u"a"_s);
        QVERIFY(download());
        QVERIFY(kindOf(state().downloadStatus()) == StatusKind::Done);
    }

    void aFailureOfTheToolNamesTheEntry()
    {
        tool().respond("on 2 fail ERROR: gone");
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s});
        state().selectedPlaylistItems = {u"a"_s, u"b"_s};
        QVERIFY(download());
        QCOMPARE(failureText(*state().singleFailure()),
                 u"2 of 2: Download failed: ERROR: gone\n"_s);
    }

private:
    qint64 process(qsizetype call) { return tool().processIdentifiers().value(call); }
};

QTEST_GUILESS_MAIN(StopTest)
#include "StopTest.moc"
