// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlaybackFixture.h"

/// Stream URLs that are asked for before they are needed, and again after they ran out.
class StreamsTest : public PlaybackFixture
{
    Q_OBJECT

private Q_SLOTS:
    void theNextIsResolvedAheadOfTheEnd()
    {
        QVERIFY(play(u"a"_s));
        reach(54.9, 70);
        QVERIFY(waitForCalls(1));
        const QSignalSpy assigned(&state(), &AppState::isLoadingStreamChanged);
        const QSignalSpy asked(&state(), &AppState::operationStarted);
        reach(55, 70);
        reach(55.1, 70);
        QVERIFY(waitForCalls(2));
        QVERIFY(tool().calls().last().contains(u"https://x/b"_s));
        QCOMPARE(assigned.count(), 0); // nobody sees it
        QCOMPARE(asked.count(), 0);
        end();
        QVERIFY(state().nowPlaying()->id == u"b" && state().isLoadingStream());
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(played(), QStringList({u"http://media/a.mp4"_s, u"http://media/b.mp4"_s}));
        QCOMPARE(tool().calls().size(), 2);
    }

    void nothingIsResolvedAheadWithoutNeed_data()
    {
        QTest::addColumn<QString>("playing");
        QTest::addColumn<double>("duration");
        QTest::addColumn<bool>("isPaused");
        QTest::newRow("in a short one") << u"a"_s << 60.0 << false;
        QTest::newRow("in the last one") << u"c"_s << 70.0 << false;
        QTest::newRow("in one that is not listed") << u"z"_s << 70.0 << false;
        QTest::newRow("in pause") << u"a"_s << 70.0 << true;
    }
    void nothingIsResolvedAheadWithoutNeed()
    {
        QFETCH(QString, playing);
        QFETCH(double, duration);
        QFETCH(bool, isPaused);
        QVERIFY(play(playing));
        if (isPaused)
            state().avPlayer.pause();
        reach(duration - 1, duration);
        QVERIFY(play(u"b"_s)); // what was asked before would be known by now
        QCOMPARE(tool().calls().size(), 2);
    }

    void whatIsStillBeingResolvedIsWaitedFor()
    {
        tool().respond("for */b wait late\n"
                       "print http://media/{id}.mp4");
        QVERIFY(play(u"a"_s));
        reach(60, 70);
        QVERIFY(waitForCalls(2));
        end();
        QVERIFY(state().nowPlaying()->id == u"b" && state().isLoadingStream());
        tool().open("late");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(played().last(), u"http://media/b.mp4"_s);
        QCOMPARE(tool().calls().size(), 2);
    }

    void aURLResolvedAheadIsForItsResultAlone()
    {
        QVERIFY(play(u"a"_s));
        reach(60, 70);
        QVERIFY(waitForCalls(2));
        QVERIFY(play(u"c"_s));
        QVERIFY(play(u"b"_s)); // its URL is gone
        QCOMPARE(tool().calls().size(), 4);
        QCOMPARE(played().last(), u"http://media/b.mp4"_s);
    }

    void theProgramEndsWhileItResolvesAhead()
    {
        tool().respond("for */b wait never\n"
                       "print http://media/{id}.mp4");
        QVERIFY(play(u"a"_s));
        reach(60, 70);
        QVERIFY(waitForCalls(2));
        const qint64 process = tool().processIdentifiers().last();
        m_fixture->state.reset();
        QVERIFY(!isAlive(process));
    }

    void aURLThatRunsOutIsResolvedAgainOnce()
    {
        QVERIFY(play(u"a"_s));
        reach(30, 100);
        engine()->events.expired(u"403"_s);
        QVERIFY(state().isLoadingStream() && !state().playerError());
        QVERIFY(!state().avPlayer.hasItem());
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(engine()->starts, QList<double>({0, 30}));
        QCOMPARE(state().avPlayer.position(), 30.0);
        QVERIFY(!engine()->isPaused);
        engine()->events.expired(u"403 again"_s);
        QCOMPARE(state().playerError(), u"403 again"_s);
        QVERIFY(!state().isLoadingStream());
        QVERIFY(play(u"b"_s)); // another one has its own chance
        engine()->events.expired(u"403"_s);
        QVERIFY(state().isLoadingStream());
    }

    void aPauseOutlastsTheURL()
    {
        QVERIFY(play(u"a"_s));
        reach(30, 100);
        state().avPlayer.pause();
        engine()->events.expired(u"403"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QVERIFY(engine()->isPaused && state().avPlayer.isPaused());
        QVERIFY(state().avPlayer.hasItem());
    }

    void aChoiceReplacesARenewal()
    {
        QVERIFY(play(u"a"_s));
        reach(30, 100);
        tool().respond("for */a wait late\n"
                       "print http://media/{id}.mp4");
        engine()->events.expired(u"403"_s);
        QVERIFY(waitForCalls(2));
        QVERIFY(play(u"b"_s));
        tool().open("late");
        QVERIFY(play(u"c"_s)); // what came late has been heard by now
        QCOMPARE(played().mid(1), QStringList({u"http://media/b.mp4"_s, u"http://media/c.mp4"_s}));
        QCOMPARE(engine()->starts.mid(1), QList<double>({0, 0}));
    }

private:
    void reach(double position, double duration)
    {
        engine()->events.statusChanged({.position = position, .duration = duration});
    }

    [[nodiscard]] bool waitForCalls(qsizetype count)
    {
        return waitFor([&] { return tool().calls().size() == count; });
    }
};

QTEST_MAIN(StreamsTest)
#include "StreamsTest.moc"
