// SPDX-License-Identifier: GPL-3.0-or-later
#include "AssignmentRecorder.h"
#include "StateFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

/// Choosing what is played, on an engine that plays nothing.
class PlaybackTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<StateFixture>();
        state().browseResults = AppState::Results{result(u"a"_s), result(u"b"_s), result(u"c"_s)};
        tool().setScript("for LAST; do :; done\necho \"http://media/${LAST##*/}.mp4\"");
    }
    void cleanup() { m_fixture.reset(); }

    void aChosenResultIsResolvedAndPlayed()
    {
        state().cookiesBrowser = u"firefox"_s;
        state().playBrowseResult(result(u"a"_s));
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        QVERIFY(state().isLoadingStream());
        QVERIFY(!engine()); // not before there is something to play
        WAIT_FOR(!state().isLoadingStream());
        QCOMPARE(played(), QStringList{u"http://media/a.mp4"_s});
        QVERIFY(!engine()->isPaused);
        QVERIFY(!tool().calls().first().contains(u"--cookies-from-browser"_s));
        QVERIFY(state().streamLoadTask); // it is replaced or cleared by the next choice alone
    }

    void choosingItAgainStopsIt()
    {
        play(u"a"_s);
        state().playBrowseResult(result(u"a"_s));
        QVERIFY(!state().nowPlaying());
        QVERIFY(!state().avPlayer.hasItem());
        QVERIFY(engine()->isPaused);
    }

    void choosingItWhileItLoadsStopsIt()
    {
        tool().setScript(tool().gate("late") + "echo http://media/a.mp4");
        state().playBrowseResult(result(u"a"_s));
        WAIT_FOR(tool().calls().size() == 1);
        state().playBrowseResult(result(u"a"_s));
        QVERIFY(!state().nowPlaying());
        QVERIFY(!state().isLoadingStream());
        const qint64 first = tool().processIdentifiers().last();
        tool().open("late");
        WAIT_FOR(!isAlive(first));
        // The answer of another one comes after its own.
        tool().setScript("echo http://media/b.mp4");
        play(u"b"_s);
        QCOMPARE(played(), QStringList{u"http://media/b.mp4"_s});
    }

    void choosingAndStoppingAssignInTheirOrder()
    {
        AssignmentRecorder recorder(state());
        const QStringList all{u"nowPlaying"_s, u"isLoadingStream"_s, u"playerError"_s};
        state().playBrowseResult(result(u"a"_s));
        QCOMPARE(recorder.take(), all);
        WAIT_FOR(!state().isLoadingStream());
        QCOMPARE(recorder.take(), QStringList{u"isLoadingStream"_s});
        state().stopPlayback();
        QCOMPARE(recorder.take(), all);
    }

    void anAddressThatComesTooLateIsIgnoredAndItsToolRunsToItsEnd()
    {
        tool().setScript("for LAST; do :; done\ncase $LAST in */a) " + tool().gate("late")
                         + ";; esac\necho \"http://media/${LAST##*/}.mp4\"");
        state().playBrowseResult(result(u"a"_s));
        WAIT_FOR(tool().calls().size() == 1);
        const qint64 first = tool().processIdentifiers().last();
        play(u"b"_s);
        QVERIFY(isAlive(first));
        const QSignalSpy spy(&state(), &AppState::playerErrorChanged);
        tool().open("late");
        WAIT_FOR(!isAlive(first));
        play(u"c"_s); // what came late has been heard by now
        QCOMPARE(played(), QStringList({u"http://media/b.mp4"_s, u"http://media/c.mp4"_s}));
        QCOMPARE(state().nowPlaying()->id, u"c"_s);
        QCOMPARE(spy.count(), 1); // by the choice of c
    }

    void aSlowResolutionWhileFiveOthersAreChosenPlaysTheLast()
    {
        tool().setScript(tool().gate("slow")
                         + "for LAST; do :; done\necho \"http://media/${LAST##*/}.mp4\"");
        AppState::Results results;
        for (int number = 0; number < 6; ++number)
            results.append(result(QString::number(number)));
        state().browseResults = results;
        for (const SearchResult &each : results)
            state().playBrowseResult(each);
        WAIT_FOR(tool().calls().size() == 6);
        for (int number = 0; number < 6; ++number)
            tool().open("slow");
        WAIT_FOR(!state().isLoadingStream());
        QCOMPARE(played(), QStringList{u"http://media/5.mp4"_s});
        for (const qint64 process : tool().processIdentifiers())
            WAIT_FOR(!isAlive(process));
    }

    void resolutionsThatHangEndWithTheProgram()
    {
        tool().setScript("trap '' TERM INT HUP\n" + tool().gate("never"));
        state().playBrowseResult(result(u"a"_s));
        state().playBrowseResult(result(u"b"_s));
        WAIT_FOR(tool().calls().size() == 2);
        const QList<qint64> processes = tool().processIdentifiers();
        m_fixture->state.reset();
        for (const qint64 process : processes)
            QVERIFY(!isAlive(process));
    }

    void aFailedResolutionIsShownAndKeepsTheChoice()
    {
        tool().setScript("true");
        state().playBrowseResult(result(u"a"_s));
        WAIT_FOR(!state().isLoadingStream());
        QCOMPARE(state().playerError(), u"Failed to fetch info: Could not retrieve stream URL"_s);
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        state().playBrowseResult(result(u"a"_s)); // stops
        QVERIFY(!state().nowPlaying() && !state().playerError());
        tool().setScript("echo http://media/a.mp4");
        play(u"a"_s); // tries again
        QVERIFY(!state().playerError());
        QCOMPARE(played(), QStringList{u"http://media/a.mp4"_s});
    }

    void aStreamThatIsNotOfTheWebIsAPlayerError()
    {
        tool().setScript("echo file:///etc/passwd");
        play(u"a"_s);
        WAIT_FOR(state().playerError().has_value());
        QVERIFY(!engine());
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
    }

    void aStreamThatBreaksIsAPlayerErrorAndNoEnd()
    {
        play(u"a"_s);
        engine()->events.failed(u"The connection was lost"_s);
        QCOMPARE(state().playerError(), u"The connection was lost"_s);
        QCOMPARE(state().nowPlaying()->id, u"a"_s);
        QVERIFY(!state().avPlayer.hasItem());
    }

    void theEndStartsTheNextAndTheLastOneStays()
    {
        play(u"b"_s);
        end();
        WAIT_FOR(state().nowPlaying()->id == u"c" && !state().isLoadingStream());
        const QSignalSpy spy(&state(), &AppState::nowPlayingChanged);
        end();
        QCOMPARE(spy.count(), 0);
        QCOMPARE(state().nowPlaying()->id, u"c"_s);
        QVERIFY(state().avPlayer.hasItem());
        QCOMPARE(played().size(), 2);
    }

    void anEndWithNothingChosenDoesNothing()
    {
        play(u"a"_s);
        state().stopPlayback();
        const QSignalSpy spy(&state(), &AppState::nowPlayingChanged);
        Q_EMIT state().avPlayer.playedToEnd();
        QCoreApplication::processEvents();
        QCOMPARE(spy.count(), 0);
    }

    void ofTwoWithOneIdentifierTheFirstCounts()
    {
        state().browseResults =
            AppState::Results{result(u"x"_s), result(u"b"_s), result(u"x"_s), result(u"d"_s)};
        state().playBrowseResult(state().browseResults()[2]);
        WAIT_FOR(!state().isLoadingStream());
        QCOMPARE(state().currentPlayIndex(), 0);
        end();
        WAIT_FOR(state().nowPlaying()->id == u"b" && !state().isLoadingStream());
    }

    void betweenTwoNeighboursWithOneIdentifierTheEndStops()
    {
        state().browseResults = AppState::Results{result(u"x"_s), result(u"x"_s), result(u"d"_s)};
        play(u"x"_s);
        end(); // chooses what is chosen already
        WAIT_FOR(!state().nowPlaying());
    }

    void aNewSearchLeavesThePlayerRunningAndItsPlaceOpen()
    {
        play(u"a"_s);
        tool().setScript("echo '{\"id\":\"z\"}'");
        state().browseSearchQuery = u"other boats"_s;
        state().searchYouTube();
        WAIT_FOR(!state().isBrowseSearching());
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

private:
    AppState &state() { return *m_fixture->state; }
    FakeTool &tool() { return m_fixture->tool; }
    RecordingDesktop::SilentEngine *engine() { return *m_fixture->desktop.engine; }

    static SearchResult result(const QString &id)
    {
        return {.id = id,
                .title = u"Title "_s + id,
                .uploader = {},
                .duration = {},
                .thumbnailURL = {},
                .videoURL = u"https://x/"_s + id};
    }

    void play(const QString &id)
    {
        state().playBrowseResult(result(id));
        WAIT_FOR(!state().isLoadingStream());
    }

    void end()
    {
        engine()->events.ended();
        QCoreApplication::processEvents();
    }

    QStringList played()
    {
        QStringList found;
        for (const QUrl &address : engine()->addresses)
            found.append(address.toString());
        return found;
    }

    std::unique_ptr<StateFixture> m_fixture;
};

QTEST_MAIN(PlaybackTest)
#include "PlaybackTest.moc"
