// SPDX-License-Identifier: GPL-3.0-or-later
#include "QueueFixture.h"

/// How the queue is filled.
class QueueTest : public QueueFixture
{
    Q_OBJECT

private Q_SLOTS:
    void anAddressIsSeenAtOnceAndThenKnown()
    {
        state().addURLToQueue(u"  https://x/watch?v=1\n"_s);
        QCOMPARE(statuses(), Kinds{StatusKind::Fetching});
        QCOMPARE(item(0)->url, u"https://x/watch?v=1"_s);
        QCOMPARE(item(0)->title(), u"https://x/watch?v=1"_s);
        WAIT_FOR(statuses() == Kinds{StatusKind::Waiting});
        QCOMPARE(item(0)->title(), u"Title of https://x/watch?v=1"_s);
    }

    void blankTextIsIgnored()
    {
        state().addURLToQueue(u" \n\t "_s);
        state().addURLToQueue(QString());
        QVERIFY(state().queue().isEmpty());
    }

    void textOfTwoLinesIsOneAddressWhoseFetchFails()
    {
        tool().setScript("echo 'is not a valid URL' >&2; exit 1");
        state().addURLToQueue(u"https://x/1\nhttps://x/2"_s);
        QCOMPARE(state().queue().size(), 1);
        WAIT_FOR(statuses() == Kinds{StatusKind::Failed});
        QCOMPARE(tool().calls().size(), 1);
        QCOMPARE(messageOf(item(0)->status()), u"Failed to fetch info: is not a valid URL\n"_s);
    }

    void theSameAddressTwiceIsTwoEntries()
    {
        add({u"https://x/1"_s, u"https://x/1"_s});
        QCOMPARE(state().queue().size(), 2);
        QVERIFY(item(0)->id != item(1)->id);
    }

    void additionsAreFetchedInParallel()
    {
        tool().setScript(tool().gate("a") + script());
        state().addURLToQueue(u"https://x/1"_s);
        state().addURLToQueue(u"https://x/2"_s);
        WAIT_FOR(tool().processIdentifiers().size() == 2);
        tool().open("a");
        tool().open("a");
        WAIT_FOR(statuses() == Kinds(2, StatusKind::Waiting));
    }

    void aPlaylistGivesWayToItsEntriesAtTheEndOfTheQueue_data()
    {
        QTest::addColumn<QString>("address");
        QTest::newRow("playlist page") << u"https://x/playlist?p"_s;
        QTest::newRow("video of a playlist") << u"https://x/watch?v=1&list=2"_s;
    }

    void aPlaylistGivesWayToItsEntriesAtTheEndOfTheQueue()
    {
        QFETCH(QString, address);
        tool().setScript("case \"$*\" in *--flat-playlist*) " + tool().gate("list") + ";; esac\n"
                         + script());
        state().addURLToQueue(address);
        state().addURLToQueue(u"https://x/later"_s);
        WAIT_FOR(statuses() == Kinds({StatusKind::Fetching, StatusKind::Waiting}));
        tool().open("list");
        WAIT_FOR(state().queue().size() == 4);
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
        WAIT_FOR(state().queue().size() == 3);
        state().fetchAsPlaylist = true;
        state().addURLToQueue(u"https://x/watch?v=1&LIST=2"_s);
        WAIT_FOR(statuses() == Kinds(4, StatusKind::Waiting));
    }

    void anEntryWithoutAddressGetsThePlaylists()
    {
        tool().setScript(R"(echo '{"_type":"url","id":"a","title":"A"}')");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        WAIT_FOR(statuses() == Kinds{StatusKind::Waiting});
        QCOMPARE(item(0)->title(), u"A"_s);
        QCOMPARE(item(0)->url, u"https://x/playlist?p"_s);
    }

    void anEmptyPlaylistLeavesNothing()
    {
        tool().setScript("exit 0");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        QCOMPARE(state().queue().size(), 1);
        WAIT_FOR(state().queue().isEmpty());
    }

    void aPlaylistThatFailsStaysWithItsReason()
    {
        tool().setScript("echo private >&2; exit 1");
        state().addURLToQueue(u"https://x/playlist?p"_s);
        WAIT_FOR(statuses() == Kinds{StatusKind::Failed});
        QCOMPARE(messageOf(item(0)->status()), u"Failed to fetch info: private\n"_s);
    }

    void aPlaceholderThatWasRemovedWhileItFetchesStillExpands()
    {
        tool().setScript(tool().gate("list") + script());
        state().addURLToQueue(u"https://x/playlist?p"_s);
        WAIT_FOR(tool().calls().size() == 1);
        state().removeFromQueue(item(0)->id);
        QVERIFY(state().queue().isEmpty());
        tool().open("list");
        WAIT_FOR(state().queue().size() == 3);
    }

    void anAddressLikeAnOptionFailsWithAClearText()
    {
        state().addURLToQueue(u"--exec=x"_s);
        WAIT_FOR(statuses() == Kinds{StatusKind::Failed});
        QVERIFY(messageOf(item(0)->status()).startsWith(u"Failed to fetch info: The address"_s));
        QVERIFY(tool().calls().isEmpty());
    }

    void aFetchThatHangsHoldsNothingUp()
    {
        tool().setScript("case \"$*\" in *hang*) " + tool().gate("never") + ";; esac\n" + script());
        state().addURLToQueue(u"https://x/hang"_s);
        add({u"https://x/1"_s});
        state().startQueueDownload();
        WAIT_FOR(!state().isQueueDownloading());
        QCOMPARE(statuses(), Kinds({StatusKind::Fetching, StatusKind::Done}));
    }

    void aHugePlaylistExpandsWhole()
    {
        const QSignalSpy spy(&state(), &AppState::queueChanged);
        tool().setScript(
            "i=0; while [ $i -lt 5000 ]; do i=$((i + 1)); "
            "echo '{\"id\":\"'$i'\",\"title\":\"T\",\"url\":\"https://x/'$i'\"}'; done");
        state().addURLToQueue(u"https://x/playlist?list=P"_s);
        WAIT_FOR(state().queue().size() == 5000);
        QCOMPARE(item(4999)->url, u"https://x/5000"_s);
        QCOMPARE(spy.count(), 2); // the placeholder, and all of them at once
    }

    void theEndDoesNotWaitForAFetchThatHangs()
    {
        tool().setScript("trap '' TERM INT HUP\n" + tool().gate("never"));
        state().addURLToQueue(u"https://x/hang"_s);
        WAIT_FOR(tool().calls().size() == 1);
        const qint64 process = tool().processIdentifiers().last();
        m_fixture->state.reset();
        QVERIFY(!isAlive(process));
    }
};

QTEST_MAIN(QueueTest)
#include "QueueTest.moc"
