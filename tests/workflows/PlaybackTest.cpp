// SPDX-License-Identifier: GPL-3.0-or-later
#include "AssignmentRecorder.h"
#include "PlaybackFixture.h"

/// Choosing what is played.
class PlaybackTest : public PlaybackFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aChosenResultIsResolvedAndPlayed()
    {
        state().cookiesBrowser = u"firefox"_s;
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        QVERIFY(state().isLoadingStream());
        QVERIFY(!engine()); // not before there is something to play
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(played(), QStringList{u"http://media/a.mp4"_s});
        QVERIFY(!engine()->isPaused);
        QVERIFY(!tool().calls().first().contains(u"--cookies-from-browser"_s));
        QVERIFY(state().streamLoadTask); // it is replaced or cleared by the next choice alone
    }

    void choosingItAgainStopsIt()
    {
        QVERIFY(play(u"a"_s));
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        QVERIFY(!state().nowPlaying());
        QVERIFY(!state().avPlayer.hasItem());
        QVERIFY(engine()->isPaused);
    }

    void choosingItWhileItLoadsStopsIt()
    {
        tool().respond("wait late\n"
                       "print http://media/a.mp4");
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        QVERIFY(!state().nowPlaying());
        QVERIFY(!state().isLoadingStream());
        const qint64 first = tool().processIdentifiers().last();
        tool().open("late");
        QTRY_VERIFY_WITH_TIMEOUT(!isAlive(first), patience);
        // The answer of another one comes after its own.
        tool().respond("print http://media/b.mp4");
        QVERIFY(play(u"b"_s));
        QCOMPARE(played(), QStringList{u"http://media/b.mp4"_s});
    }

    void choosingAndStoppingAssignInTheirOrder()
    {
        AssignmentRecorder recorder(state());
        const QStringList all{u"nowPlaying"_s, u"isLoadingStream"_s, u"playerError"_s};
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        QCOMPARE(recorder.take(), all);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(recorder.take(), QStringList{u"isLoadingStream"_s});
        state().stopPlayback();
        QCOMPARE(recorder.take(), all);
    }

    void aLateStreamURLIsIgnored()
    {
        tool().respond("for */a wait late\n"
                       "print http://media/{id}.mp4");
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        const qint64 first = tool().processIdentifiers().last();
        QVERIFY(play(u"b"_s));
        QVERIFY(isAlive(first));
        const QSignalSpy spy(&state(), &AppState::playerErrorChanged);
        tool().open("late");
        QTRY_VERIFY_WITH_TIMEOUT(!isAlive(first), patience);
        QVERIFY(play(u"c"_s)); // what came late has been heard by now
        QCOMPARE(played(), QStringList({u"http://media/b.mp4"_s, u"http://media/c.mp4"_s}));
        QCOMPARE(state().nowPlaying()->id, u"c"_s);
        QCOMPARE(spy.count(), 1); // by the choice of c
    }

    void onlyTheLastOfManyChoicesPlays()
    {
        tool().respond("wait slow\n"
                       "print http://media/{id}.mp4");
        AppState::Results results;
        for (int number = 0; number < 6; ++number)
            results.append(StateFixture::searchResult(QString::number(number)));
        state().browseResults = results;
        for (const SearchResult &each : results)
            state().playBrowseResult(each);
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 6, patience);
        for (int number = 0; number < 6; ++number)
            tool().open("slow");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(played(), QStringList{u"http://media/5.mp4"_s});
        for (const qint64 process : tool().processIdentifiers())
            QTRY_VERIFY_WITH_TIMEOUT(!isAlive(process), patience);
    }

    void resolutionsThatHangEndWithTheProgram()
    {
        tool().respond("ignore signals\n"
                       "wait never");
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        state().playBrowseResult(StateFixture::searchResult(u"b"_s));
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 2, patience);
        const QList<qint64> processes = tool().processIdentifiers();
        m_fixture->state.reset();
        for (const qint64 process : processes)
            QVERIFY(!isAlive(process));
    }

    void aFailedResolutionKeepsTheChoice()
    {
        tool().respond("");
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(state().playerError(), u"Failed to fetch info: Could not retrieve stream URL"_s);
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        state().playBrowseResult(StateFixture::searchResult(u"a"_s)); // stops
        QVERIFY(!state().nowPlaying() && !state().playerError());
        tool().respond("print http://media/a.mp4");
        QVERIFY(play(u"a"_s)); // tries again
        QVERIFY(!state().playerError());
        QCOMPARE(played(), QStringList{u"http://media/a.mp4"_s});
    }

    void aStreamOutsideTheWebIsAPlayerError()
    {
        tool().respond("print file:///etc/passwd");
        QVERIFY(play(u"a"_s));
        QTRY_VERIFY_WITH_TIMEOUT(state().playerError().has_value(), patience);
        QVERIFY(!engine());
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
    }

    void aBrokenStreamIsAnErrorNotAnEnd()
    {
        QVERIFY(play(u"a"_s));
        engine()->events.failed(u"The connection was lost"_s);
        QCOMPARE(state().playerError(), u"The connection was lost"_s);
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        QVERIFY(!state().avPlayer.hasItem());
    }

    void theEndStartsTheNextButTheLastStays()
    {
        QVERIFY(play(u"b"_s));
        end();
        QTRY_VERIFY_WITH_TIMEOUT(state().nowPlaying()->id == u"c" && !state().isLoadingStream(),
                                 patience);
        const QSignalSpy spy(&state(), &AppState::nowPlayingChanged);
        end();
        QCOMPARE(spy.count(), 0);
        QCOMPARE(state().nowPlaying()->id, u"c"_s);
        QVERIFY(state().avPlayer.hasItem());
        QCOMPARE(played().size(), 2);
    }

    void anEndWithNothingChosenDoesNothing()
    {
        QVERIFY(play(u"a"_s));
        state().stopPlayback();
        const QSignalSpy spy(&state(), &AppState::nowPlayingChanged);
        Q_EMIT state().avPlayer.playedToEnd();
        QCoreApplication::processEvents();
        QCOMPARE(spy.count(), 0);
    }

    void ofTwoWithOneIdentifierTheFirstCounts()
    {
        state().browseResults = AppState::Results{
            StateFixture::searchResult(u"x"_s), StateFixture::searchResult(u"b"_s),
            StateFixture::searchResult(u"x"_s), StateFixture::searchResult(u"d"_s)};
        state().playBrowseResult(state().browseResults()[2]);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(state().currentPlayIndex(), 0);
        end();
        QTRY_VERIFY_WITH_TIMEOUT(state().nowPlaying()->id == u"b" && !state().isLoadingStream(),
                                 patience);
    }

    void equalNeighbouringIdentifiersStopTheSuccession()
    {
        state().browseResults = AppState::Results{StateFixture::searchResult(u"x"_s),
                                                  StateFixture::searchResult(u"x"_s),
                                                  StateFixture::searchResult(u"d"_s)};
        QVERIFY(play(u"x"_s));
        end(); // chooses what is chosen already
        QTRY_VERIFY_WITH_TIMEOUT(!state().nowPlaying(), patience);
    }

    void theToolIsAskedInTheTurnOfTheChoice()
    {
        const QSignalSpy spy(&state(), &AppState::operationStarted);
        state().playBrowseResult(StateFixture::searchResult(u"a"_s));
        QCOMPARE(spy.count(), 1);
    }

    void aNewSearchKeepsThePlayerRunning()
    {
        QVERIFY(play(u"a"_s));
        tool().respond(R"(print {"id":"z"})");
        state().browseSearchQuery = u"other boats"_s;
        state().searchYouTube();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isBrowseSearching(), patience);
        QCOMPARE(state().browseResults().first().id, u"z"_s);
        QVERIFY(!state().currentPlayIndex());
        QVERIFY(state().avPlayer.hasItem());
        end();
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
    }

    void withoutAChoiceThereIsNoPlace()
    {
        QVERIFY(!state().currentPlayIndex());
        state().playNext();
        QVERIFY(!state().nowPlaying());
    }
};

QTEST_MAIN(PlaybackTest)
#include "PlaybackTest.moc"
