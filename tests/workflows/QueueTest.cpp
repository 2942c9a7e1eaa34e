// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueueFixture.h"

/// How the queue is filled.
class QueueTest : public QueueFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aURLShowsAtOnceAndIsThenKnown()
    {
        state().addURLToQueue(u"  https://x/watch?v=1\n"_s);
        QCOMPARE(statuses(), Kinds{StatusKind::Fetching});
        QCOMPARE(item(0)->url, u"https://x/watch?v=1"_s);
        QCOMPARE(item(0)->title(), u"https://x/watch?v=1"_s);
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Waiting}, patience);
        QCOMPARE(item(0)->title(), u"Title of https://x/watch?v=1"_s);
    }

    void blankTextIsIgnored()
    {
        state().addURLToQueue(u" \n\t "_s);
        state().addURLToQueue(QString());
        QVERIFY(state().queue().isEmpty());
    }

    void twoLinesAreOneURLThatFails()
    {
        tool().respond("fail is not a valid URL");
        state().addURLToQueue(u"https://x/1\nhttps://x/2"_s);
        QCOMPARE(state().queue().size(), 1);
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Failed}, patience);
        QCOMPARE(tool().calls().size(), 1);
        QCOMPARE(messageOf(item(0)->status()), u"Failed to fetch info: is not a valid URL\n"_s);
    }

    void theSameURLTwiceIsTwoEntries()
    {
        QVERIFY(add({u"https://x/1"_s, u"https://x/1"_s}));
        QCOMPARE(state().queue().size(), 2);
        QVERIFY(item(0)->id != item(1)->id);
    }

    void additionsAreFetchedInParallel()
    {
        tool().respond("wait a\n" + sample("fetches"));
        state().addURLToQueue(u"https://x/1"_s);
        state().addURLToQueue(u"https://x/2"_s);
        QTRY_COMPARE_WITH_TIMEOUT(tool().processIdentifiers().size(), 2, patience);
        tool().open("a");
        tool().open("a");
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds(2, StatusKind::Waiting), patience);
    }

    void aPlaylistIsReplacedByItsEntries_data()
    {
        QTest::addColumn<QString>("url");
        QTest::newRow("playlist page") << u"https://x/playlist?p"_s;
        QTest::newRow("video of a playlist") << u"https://x/watch?v=1&list=2"_s;
    }

    void aPlaylistIsReplacedByItsEntries()
    {
        QFETCH(QString, url);
        tool().respond("for *--flat-playlist* wait list\n" + sample("fetches"));
        state().addURLToQueue(url);
        state().addURLToQueue(u"https://x/later"_s);
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds({StatusKind::Fetching, StatusKind::Waiting}),
                                  patience);
        tool().open("list");
        QTRY_COMPARE_WITH_TIMEOUT(state().queue().size(), 4, patience);
        QCOMPARE(
            titles(),
            QStringList({u"Title of https://x/later"_s, u"Title a"_s, u"Title b"_s, u"Title c"_s}));
        QCOMPARE(item(1)->url, u"https://x/watch?v=a"_s);
        QCOMPARE(statuses(), Kinds(4, StatusKind::Waiting));
    }

    void theTestForPlaylistsIsTheQueuesOwn()
    {
        state().fetchAsPlaylist = false;
        state().addURLToQueue(u"https://x/watch?v=1&list=2"_s);
        QTRY_COMPARE_WITH_TIMEOUT(state().queue().size(), 3, patience);
        state().fetchAsPlaylist = true;
        state().addURLToQueue(u"https://x/watch?v=1&LIST=2"_s);
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds(4, StatusKind::Waiting), patience);
    }

    void anEntryWithoutURLGetsThePlaylists()
    {
        tool().respond(R"(print {"_type":"url","id":"a","title":"A"})");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Waiting}, patience);
        QCOMPARE(item(0)->title(), u"A"_s);
        QCOMPARE(item(0)->url, u"https://x/playlist?p"_s);
    }

    void anEmptyPlaylistLeavesNothing()
    {
        tool().respond("");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        QCOMPARE(state().queue().size(), 1);
        QTRY_VERIFY_WITH_TIMEOUT(state().queue().isEmpty(), patience);
    }

    void aPlaylistThatFailsStaysWithItsReason()
    {
        tool().respond("fail private");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Failed}, patience);
        QCOMPARE(messageOf(item(0)->status()), u"Failed to fetch info: private\n"_s);
    }

    void aRemovedPlaceholderStillExpands()
    {
        tool().respond("wait list\n" + sample("fetches"));
        state().addURLToQueue(u"https://x/playlist?p"_s);
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        state().removeFromQueue(item(0)->id);
        QVERIFY(state().queue().isEmpty());
        tool().open("list");
        QTRY_COMPARE_WITH_TIMEOUT(state().queue().size(), 3, patience);
    }

    void aURLLikeAnOptionFailsClearly()
    {
        state().addURLToQueue(u"--exec=x"_s);
        QTRY_COMPARE_WITH_TIMEOUT(statuses(), Kinds{StatusKind::Failed}, patience);
        QVERIFY(messageOf(item(0)->status()).startsWith(u"Failed to fetch info: The URL"_s));
        QVERIFY(tool().calls().isEmpty());
    }

    void aFetchThatHangsHoldsNothingUp()
    {
        tool().respond("for *hang* wait never\n" + sample("fetches"));
        state().addURLToQueue(u"https://x/hang"_s);
        QVERIFY(add({u"https://x/1"_s}));
        state().startQueueDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        QCOMPARE(statuses(), Kinds({StatusKind::Fetching, StatusKind::Done}));
    }

    void aHugePlaylistExpandsWhole()
    {
        const QSignalSpy spy(&state(), &AppState::queueChanged);
        tool().respond(sample("playlist-of-5000"));
        state().addURLToQueue(u"https://x/playlist?list=P"_s);
        QTRY_COMPARE_WITH_TIMEOUT(state().queue().size(), 5000, patience);
        QCOMPARE(item(4999)->url, u"https://x/5000"_s);
        QCOMPARE(spy.count(), 2); // the placeholder, and all of them at once
    }

    void quittingDoesNotWaitForAHangingFetch()
    {
        tool().respond("ignore signals\n"
                       "wait never");
        state().addURLToQueue(u"https://x/hang"_s);
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 1, patience);
        const qint64 process = tool().processIdentifiers().last();
        m_fixture->state.reset();
        QVERIFY(!isAlive(process));
    }

    void singleModeAndQueueShareTheirDisplay()
    {
        QVERIFY(add({u"https://x/1"_s}));
        state().singleInfo = StateFixture::video(u"a"_s);
        respondToFetches("for */1 wait queue\n"
                         "for */1 exit 0\n"
                         "wait single");
        state().startSingleDownload();
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 2, patience);
        const qint64 first = tool().processIdentifiers().last();
        QTRY_VERIFY_WITH_TIMEOUT(state().service.activeProcess()
                                     && state().service.activeProcess()->processIdentifier()
                                         == first,
                                 patience);
        state().togglePause();
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(first), QByteArray("T"), patience);
        state().startQueueDownload();
        QVERIFY(!state().isPaused());
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(first) != "T", patience);
        QTRY_COMPARE_WITH_TIMEOUT(tool().calls().size(), 3, patience);
        QCOMPARE(state().currentDownloadTitle(), u"Title of https://x/1"_s);
        tool().open("queue");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isQueueDownloading(), patience);
        // The single run goes on; what it showed was zeroed with the queue's.
        QVERIFY(state().isDownloading());
        QCOMPARE(state().totalDownloadCount(), 0);
        QCOMPARE(state().currentDownloadTitle(), QString());
        tool().open("single");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isDownloading(), patience);
    }
};

QTEST_MAIN(QueueTest)
#include "QueueTest.moc"
