// SPDX-License-Identifier: GPL-3.0-or-later
#include "AssignmentRecorder.h"
#include "SingleFixture.h"

/// What a URL is, fetched in single mode.
class FetchTest : public SingleFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aFetchAssignsInItsOrder()
    {
        tool().respond(sample("one-video"));
        state().singleURL = u" https://x/watch?v=a \n"_s;
        AssignmentRecorder recorder(state());
        state().fetchSingleInfo();
        QCOMPARE(recorder.take(),
                 QStringList({u"isFetching"_s, u"fetchError"_s, u"singleInfo"_s,
                              u"selectedPlaylistItems"_s, u"downloadStatus"_s}));
        QTRY_VERIFY_WITH_TIMEOUT(!state().isFetching(), patience);
        QCOMPARE(recorder.take(), QStringList({u"singleInfo"_s, u"isFetching"_s}));
        QCOMPARE(state().singleInfo()->originalURL, u"https://x/watch?v=a"_s);
        QCOMPARE(tool().calls().first().last(), u"https://x/watch?v=a"_s);
    }

    void aBlankURLKeepsTheError()
    {
        state().fetchError = u"old"_s;
        state().singleURL = u" \n\t "_s;
        AssignmentRecorder recorder(state());
        state().fetchSingleInfo();
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(state().fetchError(), u"old"_s);
    }

    void aMixedURLIsFetchedAsChosen()
    {
        state().singleURL = u"https://x/watch?v=abc&list=PL1"_s;
        QVERIFY(fetch());
        QVERIFY(tool().calls().last().contains(u"--no-playlist"_s));
        state().fetchAsPlaylist = true;
        QVERIFY(fetch());
        QVERIFY(tool().calls().last().contains(u"--yes-playlist"_s));
    }

    void aPlaylistURLIsFetchedDespiteTheChoice()
    {
        state().singleURL = u"https://x/playlist?list=PL1"_s;
        QVERIFY(fetch());
        QVERIFY(tool().calls().last().contains(u"--yes-playlist"_s));
    }

    void aPlaylistStartsWithEveryEntrySelected()
    {
        tool().respond(R"(print {"id":"a","url":"ua"}
print {"id":"b","url":"ub"}
print {"id":"a","url":"ua"})");
        state().singleURL = u"https://x/playlist?list=PL1"_s;
        AssignmentRecorder recorder(state());
        QVERIFY(fetch());
        QCOMPARE(recorder.take().mid(5),
                 QStringList({u"singleInfo"_s, u"selectedPlaylistItems"_s, u"isFetching"_s}));
        QCOMPARE(state().singleInfo()->playlistEntries.size(), 3);
        QCOMPARE(state().selectedPlaylistItems(), AppState::EntrySelection({u"a"_s, u"b"_s}));
    }

    void aFailedFetchTellsWhy()
    {
        tool().respond("fail no");
        state().singleURL = u"https://x/"_s;
        AssignmentRecorder recorder(state());
        QVERIFY(fetch());
        QCOMPARE(recorder.take().mid(5), QStringList({u"fetchError"_s, u"isFetching"_s}));
        QCOMPARE(state().fetchError(), u"Failed to fetch info: no\n"_s);
        QVERIFY(!state().singleInfo());
    }

    void theReadersOwnErrorIsShownUnprefixed()
    {
        tool().respond("print garbage");
        state().singleURL = u"https://x/"_s;
        QVERIFY(fetch());
        QVERIFY(!state().fetchError()->isEmpty());
        QVERIFY(!state().fetchError()->contains(u"rror:"_s));
    }

    void aMissingToolIsReported()
    {
        QFile::remove(tool().path());
        state().singleURL = u"https://x/"_s;
        QVERIFY(fetch());
        QVERIFY(state().fetchError()->startsWith(u"Failed to fetch info: "_s));
    }

    void theBrowserOfTheMomentGivesTheCookies()
    {
        state().cookiesBrowser = u"brave"_s;
        state().singleURL = u"https://x/"_s;
        QVERIFY(fetch());
        QVERIFY(tool().calls().last().contains(u"brave"_s));
    }

    void theFetchThatEndsLastWins()
    {
        tool().respond(R"(on 1 wait first
on 1 print {"title":"first"}
on 2 print {"title":"second"})");
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        QTRY_COMPARE_WITH_TIMEOUT(tool().processIdentifiers().size(), 1, patience);
        state().fetchSingleInfo();
        QTRY_VERIFY_WITH_TIMEOUT(state().singleInfo().has_value(), patience);
        QCOMPARE(state().singleInfo()->title, u"second"_s);
        tool().open("first");
        QTRY_COMPARE_WITH_TIMEOUT(state().singleInfo()->title, u"first"_s, patience);
    }

    void aFetchEndingAfterAClearStillCounts()
    {
        tool().respond("wait go\n" + sample("one-video"));
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        QTRY_COMPARE_WITH_TIMEOUT(tool().processIdentifiers().size(), 1, patience);
        state().singleURL = QString();
        state().singleInfo = std::nullopt;
        state().resetDownload();
        tool().open("go");
        QTRY_VERIFY_WITH_TIMEOUT(state().singleInfo().has_value(), patience);
    }
};

QTEST_GUILESS_MAIN(FetchTest)
#include "FetchTest.moc"
