// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"

/// What browse mode shows of a search and its results.
class BrowseScreenTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void beforeASearchItSaysHowToSearch()
    {
        QVERIFY(show(0));
        QCOMPARE(placeholder(), u"Search YouTube"_s);
        const QQuickItem *const page = item("page");
        QVERIFY(page->property("contentHeight").toDouble() <= page->height()); // nothing to scroll
        QVERIFY(!shown("resultCount"));
    }

    void aSearchByKeyboardShowsWhatIsFound()
    {
        QVERIFY(show(0));
        m_fixture->tool.respond("wait search\n"
                                R"(print {"id":"a","title":"A","duration":61})");
        QVERIFY(focusField());
        typeText("boats");
        QTest::keyClick(m_window, Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(placeholder(), u"Searching…"_s, patience);
        QVERIFY(!item("submit")->isEnabled());
        m_fixture->tool.open("search");
        QTRY_VERIFY_WITH_TIMEOUT(shown("result0"), patience);
        QCOMPARE(textOf("resultCount"), u"1 results"_s);
        QCOMPARE(accessible("result0")->text(QAccessible::Name), u"A"_s);
        QCOMPARE(accessible("result0")->text(QAccessible::Description), u"1:01"_s);
        QVERIFY(placeholder().isEmpty());
    }

    void aRunningSearchHidesTheResults()
    {
        QVERIFY(show(2));
        QVERIFY(shown("result0"));
        state().isBrowseSearching = true;
        QTRY_COMPARE_WITH_TIMEOUT(placeholder(), u"Searching…"_s, patience);
        QVERIFY(!shown("result0"));
        state().isBrowseSearching = false;
        QTRY_VERIFY_WITH_TIMEOUT(shown("result0"), patience);
    }

    void anErrorReplacesTheOldList()
    {
        QVERIFY(show(2));
        state().browseSearchError = u"No network\n"_s;
        QTRY_COMPARE_WITH_TIMEOUT(placeholder(), u"Search failed"_s, patience);
        QVERIFY(!shown("result0"));
        const QAccessibleInterface *const alert = accessible("searchFailed");
        QVERIFY(alert->role() == QAccessible::AlertMessage);
        QCOMPARE(alert->text(QAccessible::Name), u"Search failed: No network"_s);
    }

    void thePlaceholderStandsInTheMiddle()
    {
        QVERIFY(show(0));
        m_window->grabWindow();
        const QQuickItem *const page = item("page");
        const QQuickItem *const content =
            find(item("searchEmpty"), u"browsePlaceholder"_s)->parentItem();
        const double middle =
            content->mapToItem(page, {0, content->height() / 2}).y() - page->height() / 2;
        // The page's own margins are 12 above and 28 below.
        QVERIFY2(std::abs(middle) <= 10, qPrintable(QString::number(middle)));
    }

    void clearingTheFieldClearsResultsButPlaysOn()
    {
        QVERIFY(show(2));
        state().browseSearchQuery = u"boats"_s;
        QVERIFY(play(0));
        click("clearField");
        QVERIFY(state().browseResults().isEmpty());
        QVERIFY(state().nowPlaying());
        QCOMPARE(textOf("playerPlace"), u"– / 0"_s);
    }

    void rowsAreUsedByKeyboard()
    {
        QVERIFY(show(3));
        QVERIFY(focusByTab("resultRows"));
        press(Qt::Key_Down);
        QVERIFY(focusIsIn(item("result1")));
        press(Qt::Key_Return);
        QCOMPARE(state().nowPlaying()->id, u"1"_s);
        QCOMPARE(accessible("play1")->text(QAccessible::Name), u"Stop"_s);
        QVERIFY(accessible("result1")->state().selected);
        QTRY_VERIFY_WITH_TIMEOUT(shown("playerPanel"), patience);
        QVERIFY(focusIsIn(item("result1")));
        press(Qt::Key_Return);
        QVERIFY(!state().nowPlaying());
        QCOMPARE(accessible("play1")->text(QAccessible::Name), u"Play"_s);
    }

    void aKeyThatIsHeldChoosesOnce()
    {
        QVERIFY(show(2));
        QVERIFY(focusByTab("resultRows"));
        const qsizetype before = m_fixture->tool.calls().size();
        QKeyEvent pressed(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), false);
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        for (QKeyEvent *const event : {&pressed, &repeated, &repeated, &repeated})
            QCoreApplication::sendEvent(m_window, event);
        QCOMPARE(state().nowPlaying()->id, u"0"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        QCOMPARE(m_fixture->tool.calls().size(), before + 1);
    }

    void aScreenReaderCanPressARow()
    {
        QVERIFY(show(1));
        accessible("result0")->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QCOMPARE(state().nowPlaying()->id, u"0"_s);
    }

    void aRowsPlayButtonPlaysAndStops()
    {
        QVERIFY(show(2));
        QTest::mouseMove(m_window, centreOf("result0"));
        QTRY_VERIFY_WITH_TIMEOUT(shown("play0"), patience);
        m_fixture->tool.respond("wait stream\n"
                                "print http://127.0.0.1/a.mp4");
        click("play0");
        QCOMPARE(state().nowPlaying()->id, u"0"_s);
        QTRY_VERIFY_WITH_TIMEOUT(shown("loadingStream"), patience);
        QCOMPARE(textOf("loadingStream"), u"Loading stream…"_s);
        m_fixture->tool.open("stream");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isLoadingStream(), patience);
        click("play0");
        QVERIFY(!state().nowPlaying());
        QTRY_VERIFY_WITH_TIMEOUT(!shown("playerPanel"), patience);
    }

    void bothButtonsOfARowShowTheirProgress()
    {
        QVERIFY(show(1));
        m_fixture->tool.respond("for *mp4* print [download]  50.0% of 1MiB at 1MiB/s ETA 00:01\n"
                                "for *mp3* print [download]  25.0% of 1MiB at 1MiB/s ETA 00:01\n"
                                "wait run");
        click("video0");
        click("audio0");
        QTRY_VERIFY_WITH_TIMEOUT(ring("video0") == 0.5 && ring("audio0") == 0.25, patience);
        QCOMPARE(accessible("video0")->text(QAccessible::Name), u"MP4"_s);
        QCOMPARE(accessible("video0")->text(QAccessible::Description), u"Downloading 50%"_s);
        m_fixture->tool.open("run");
        m_fixture->tool.open("run");
        QTRY_VERIFY_WITH_TIMEOUT(
            symbol("video0") == u"checkmark" && symbol("audio0") == u"checkmark", patience);
    }

    void aFailedDownloadOffersAnotherTry()
    {
        QVERIFY(show(1));
        m_fixture->tool.respond("fail ERROR: no space");
        click("audio0");
        QTRY_COMPARE_WITH_TIMEOUT(symbol("audio0"), u"arrow.counterclockwise"_s, patience);
        QCOMPARE(accessible("audio0")->text(QAccessible::Description),
                 u"Failed, press to try again: "_s + failure(u"0_mp3"_s));
        QVERIFY(failure(u"0_mp3"_s).contains(u"no space"));
        m_fixture->tool.respond("");
        click("audio0");
        QTRY_COMPARE_WITH_TIMEOUT(symbol("audio0"), u"checkmark"_s, patience);
        QCOMPARE(symbol("video0"), u"film"_s);
    }

    void aSparseResultIsAnOrdinaryRow()
    {
        QVERIFY(show(0));
        m_fixture->tool.respond(R"(print {"id":"a","title":null,"thumbnails":[]})");
        state().browseSearchQuery = u"x"_s;
        state().searchYouTube();
        QTRY_VERIFY_WITH_TIMEOUT(shown("result0"), patience);
        QCOMPARE(accessible("result0")->text(QAccessible::Name), u"Unknown"_s);
        const double height = item("result0")->height();
        QVERIFY(show(1));
        QCOMPARE(item("result0")->height(), height);
    }

    void longAndForeignQueriesAreSearchedUnchanged()
    {
        QVERIFY(show(0));
        m_fixture->tool.respond("");
        for (const QString &query : {QString(2000, u'x'), u"--exec \"rm\" 'a' -o /x"_s,
                                     u"\u05e9\u05dc\u05d5\u05dd \u0645\u0631\u062d"_s}) {
            state().browseSearchQuery = query;
            QVERIFY(focusField());
            QTest::keyClick(m_window, Qt::Key_Return);
            QTRY_VERIFY_WITH_TIMEOUT(
                !state().isBrowseSearching() && !m_fixture->tool.calls().isEmpty(), patience);
            QTRY_COMPARE_WITH_TIMEOUT(m_fixture->tool.calls().last().last(),
                                      u"ytsearch25:"_s + query, patience);
        }
    }

    void aLaterSearchBringsTheStatusesBack()
    {
        QVERIFY(show(1));
        m_fixture->tool.respond("");
        click("audio0");
        QTRY_COMPARE_WITH_TIMEOUT(symbol("audio0"), u"checkmark"_s, patience);
        state().browseResults = AppState::Results();
        QTRY_VERIFY_WITH_TIMEOUT(!item("audio0"), patience);
        m_fixture->tool.respond(R"(print {"id":"new"})"
                                "\n"
                                R"(print {"id":"0"})");
        state().browseSearchQuery = u"again"_s;
        state().searchYouTube();
        QTRY_VERIFY_WITH_TIMEOUT(shown("result1"), patience);
        QCOMPARE(symbol("audio1"), u"checkmark"_s);
        QCOMPARE(symbol("audio0"), u"music.note"_s);
        QCOMPARE(symbol("video1"), u"film"_s);
    }

private:
    QString failure(const QString &key)
    {
        return messageOf(*state().browseDownloadStatuses().find(key)).trimmed();
    }

    double ring(const char *button)
    {
        return find(item(button), u"downloadRing"_s)->property("progress").toDouble();
    }

    QString symbol(const char *button) { return item(button)->property("symbol").toString(); }
};

QTEST_MAIN(BrowseScreenTest)
#include "BrowseScreenTest.moc"
