// SPDX-License-Identifier: GPL-3.0-or-later
#include "AssignmentRecorder.h"
#include "SingleFixture.h"

/// What an address is, fetched in single mode.
class FetchTest : public SingleFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aFetchAssignsInItsOrder()
    {
        tool().setScript(oneVideo);
        state().singleURL = u" https://x/watch?v=a \n"_s;
        AssignmentRecorder recorder(state());
        state().fetchSingleInfo();
        QCOMPARE(recorder.take(),
                 QStringList({u"isFetching"_s, u"fetchError"_s, u"singleInfo"_s,
                              u"selectedPlaylistItems"_s, u"downloadStatus"_s}));
        WAIT_FOR(!state().isFetching());
        QCOMPARE(recorder.take(), QStringList({u"singleInfo"_s, u"isFetching"_s}));
        QCOMPARE(state().singleInfo()->originalURL, u"https://x/watch?v=a"_s);
        QCOMPARE(tool().calls().first().last(), u"https://x/watch?v=a"_s);
    }

    void aBlankAddressDoesNothingAndKeepsTheError()
    {
        state().fetchError = u"old"_s;
        state().singleURL = u" \n\t "_s;
        AssignmentRecorder recorder(state());
        state().fetchSingleInfo();
        QCOMPARE(recorder.take(), QStringList());
        QCOMPARE(state().fetchError(), u"old"_s);
    }

    void aMixedAddressIsFetchedAsChosen()
    {
        state().singleURL = u"https://x/watch?v=abc&list=PL1"_s;
        fetch();
        QVERIFY(tool().calls().last().contains(u"--no-playlist"_s));
        state().fetchAsPlaylist = true;
        fetch();
        QVERIFY(tool().calls().last().contains(u"--yes-playlist"_s));
    }

    void aPlaylistAddressIsFetchedAsOneWhateverWasChosen()
    {
        state().singleURL = u"https://x/playlist?list=PL1"_s;
        fetch();
        QVERIFY(tool().calls().last().contains(u"--yes-playlist"_s));
    }

    void aPlaylistStartsWithEveryEntrySelected()
    {
        tool().setScript("for i in a b a; do "
                         "printf '{\"id\":\"%s\",\"url\":\"u%s\"}\\n' $i $i; done");
        state().singleURL = u"https://x/playlist?list=PL1"_s;
        AssignmentRecorder recorder(state());
        fetch();
        QCOMPARE(recorder.take().mid(5),
                 QStringList({u"singleInfo"_s, u"selectedPlaylistItems"_s, u"isFetching"_s}));
        QCOMPARE(state().singleInfo()->playlistEntries.size(), 3);
        QCOMPARE(state().selectedPlaylistItems(), AppState::EntrySelection({u"a"_s, u"b"_s}));
    }

    void aFailedFetchTellsWhy()
    {
        tool().setScript("echo no >&2; exit 1");
        state().singleURL = u"https://x/"_s;
        AssignmentRecorder recorder(state());
        fetch();
        QCOMPARE(recorder.take().mid(5), QStringList({u"fetchError"_s, u"isFetching"_s}));
        QCOMPARE(state().fetchError(), u"Failed to fetch info: no\n"_s);
        QVERIFY(!state().singleInfo());
    }

    void theReadersOwnErrorIsShownUnprefixed()
    {
        tool().setScript("echo garbage");
        state().singleURL = u"https://x/"_s;
        fetch();
        QVERIFY(!state().fetchError()->isEmpty());
        QVERIFY(!state().fetchError()->contains(u"rror:"_s));
    }

    void aMissingToolIsReported()
    {
        QFile::remove(tool().path());
        state().singleURL = u"https://x/"_s;
        fetch();
        QVERIFY(state().fetchError()->startsWith(u"Failed to fetch info: "_s));
    }

    void theBrowserOfTheMomentGivesTheCookies()
    {
        state().cookiesBrowser = u"brave"_s;
        state().singleURL = u"https://x/"_s;
        fetch();
        QVERIFY(tool().calls().last().contains(u"brave"_s));
    }

    void ofTwoFetchesTheOneThatEndsLastWins()
    {
        tool().setScript("if [ $N = 1 ]; then\n" + tool().gate("first")
                         + "echo '{\"title\":\"first\"}'; else echo '{\"title\":\"second\"}'; fi");
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        WAIT_FOR(tool().processIdentifiers().size() == 1);
        state().fetchSingleInfo();
        WAIT_FOR(state().singleInfo().has_value());
        QCOMPARE(state().singleInfo()->title, u"second"_s);
        tool().open("first");
        WAIT_FOR(state().singleInfo()->title == u"first"_s);
    }

    void aFetchThatComesBackAfterAClearStillLands()
    {
        tool().setScript(tool().gate("go") + oneVideo);
        state().singleURL = u"https://x/"_s;
        state().fetchSingleInfo();
        WAIT_FOR(tool().processIdentifiers().size() == 1);
        state().singleURL = QString();
        state().singleInfo = std::nullopt;
        state().resetDownload();
        tool().open("go");
        WAIT_FOR(state().singleInfo().has_value());
    }
};

QTEST_GUILESS_MAIN(FetchTest)
#include "FetchTest.moc"
