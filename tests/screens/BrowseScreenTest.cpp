// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"

/// What browse mode shows of a search and its results.
class BrowseScreenTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void beforeASearchItSaysHowToSearch()
    {
        show(0);
        QCOMPARE(placeholder(), u"Search YouTube"_s);
        const QQuickItem *const page = item("page");
        QVERIFY(page->property("contentHeight").toDouble() <= page->height()); // nothing to scroll
        QVERIFY(!shown("resultCount"));
    }

    void aSearchByKeyboardShowsWhatIsFound()
    {
        show(0);
        m_fixture.tool.setScript(m_fixture.tool.gate("search")
                                 + "echo '{\"id\":\"a\",\"title\":\"A\",\"duration\":61}'");
        focusField();
        typeText("boats");
        QTest::keyClick(m_window, Qt::Key_Return);
        WAIT_FOR(placeholder() == u"Searching…");
        QVERIFY(!item("submit")->isEnabled());
        m_fixture.tool.open("search");
        WAIT_FOR(shown("result0"));
        QCOMPARE(textOf("resultCount"), u"1 results"_s);
        QCOMPARE(accessible("result0")->text(QAccessible::Name), u"A"_s);
        QCOMPARE(accessible("result0")->text(QAccessible::Description), u"1:01"_s);
        QVERIFY(placeholder().isEmpty());
    }

    void aRunningSearchHidesTheResults()
    {
        show(2);
        QVERIFY(shown("result0"));
        state().isBrowseSearching = true;
        WAIT_FOR(placeholder() == u"Searching…");
        QVERIFY(!shown("result0"));
        state().isBrowseSearching = false;
        WAIT_FOR(shown("result0"));
    }

    void anErrorIsShownAndNotTheOldList()
    {
        show(2);
        state().browseSearchError = u"No network\n"_s;
        WAIT_FOR(placeholder() == u"Search failed");
        QVERIFY(!shown("result0"));
        const QAccessibleInterface *const alert = accessible("searchFailed");
        QVERIFY(alert->role() == QAccessible::AlertMessage);
        QCOMPARE(alert->text(QAccessible::Name), u"Search failed: No network"_s);
    }

    void thePlaceholderStandsInTheMiddle()
    {
        show(0);
        m_window->grabWindow();
        const QQuickItem *const page = item("page");
        const QQuickItem *const content =
            find(item("searchEmpty"), u"browsePlaceholder"_s)->parentItem();
        const double middle =
            content->mapToItem(page, {0, content->height() / 2}).y() - page->height() / 2;
        // The page's own margins are 12 above and 28 below.
        QVERIFY2(std::abs(middle) <= 10, qPrintable(QString::number(middle)));
    }

    void clearingTheFieldClearsResultsAndErrorAndPlaysOn()
    {
        show(2);
        state().browseSearchQuery = u"boats"_s;
        play(0);
        click("clearField");
        QVERIFY(state().browseResults().isEmpty());
        QVERIFY(state().nowPlaying());
        QCOMPARE(textOf("playerPlace"), u"– / 0"_s);
    }

    void rowsAreUsedByKeyboard()
    {
        show(3);
        focusByTab("resultRows");
        press(Qt::Key_Down);
        QVERIFY(focusIsIn(item("result1")));
        press(Qt::Key_Return);
        QCOMPARE(state().nowPlaying()->id, u"1"_s);
        QCOMPARE(accessible("play1")->text(QAccessible::Name), u"Stop"_s);
        QVERIFY(accessible("result1")->state().selected);
        WAIT_FOR(shown("playerPanel"));
        QVERIFY(focusIsIn(item("result1")));
        press(Qt::Key_Return);
        QVERIFY(!state().nowPlaying());
        QCOMPARE(accessible("play1")->text(QAccessible::Name), u"Play"_s);
    }

    void aKeyThatIsHeldChoosesOnce()
    {
        show(2);
        focusByTab("resultRows");
        const qsizetype before = m_fixture.tool.calls().size();
        QKeyEvent pressed(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), false);
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        for (QKeyEvent *const event : {&pressed, &repeated, &repeated, &repeated})
            QCoreApplication::sendEvent(m_window, event);
        QCOMPARE(state().nowPlaying()->id, u"0"_s);
        WAIT_FOR(!state().isLoadingStream());
        QCOMPARE(m_fixture.tool.calls().size(), before + 1);
    }

    void aScreenReaderChoosesARowByPressingIt()
    {
        show(1);
        accessible("result0")->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QCOMPARE(state().nowPlaying()->id, u"0"_s);
    }

    void thePlayControlOfARowPlaysAndStops()
    {
        show(2);
        QTest::mouseMove(m_window, centreOf("result0"));
        WAIT_FOR(shown("play0"));
        m_fixture.tool.setScript(m_fixture.tool.gate("stream") + "echo http://127.0.0.1/a.mp4");
        click("play0");
        QCOMPARE(state().nowPlaying()->id, u"0"_s);
        WAIT_FOR(shown("loadingStream"));
        QCOMPARE(textOf("loadingStream"), u"Loading stream…"_s);
        m_fixture.tool.open("stream");
        WAIT_FOR(!state().isLoadingStream());
        click("play0");
        QVERIFY(!state().nowPlaying());
        WAIT_FOR(!shown("playerPanel"));
    }

    void theTwoButtonsOfARowShowTheirOwnProgress()
    {
        show(1);
        m_fixture.tool.setScript("case \"$*\" in *mp3*) P=25.0;; *) P=50.0;; esac\n"
                                 "echo \"[download]  $P% of 1MiB at 1MiB/s ETA 00:01\"\n"
                                 + m_fixture.tool.gate("run"));
        click("video0");
        click("audio0");
        WAIT_FOR(ring("video0") == 0.5 && ring("audio0") == 0.25);
        QCOMPARE(accessible("video0")->text(QAccessible::Name), u"MP4"_s);
        QCOMPARE(accessible("video0")->text(QAccessible::Description), u"Downloading 50%"_s);
        m_fixture.tool.open("run");
        m_fixture.tool.open("run");
        WAIT_FOR(symbol("video0") == u"checkmark" && symbol("audio0") == u"checkmark");
    }

    void aFailedDownloadOffersAnotherTry()
    {
        show(1);
        m_fixture.tool.setScript("echo 'ERROR: no space' >&2; exit 1");
        click("audio0");
        WAIT_FOR(symbol("audio0") == u"arrow.counterclockwise");
        QCOMPARE(accessible("audio0")->text(QAccessible::Description),
                 u"Failed, press to try again: "_s + failure(u"0_mp3"_s));
        QVERIFY(failure(u"0_mp3"_s).contains(u"no space"));
        m_fixture.tool.setScript("true");
        click("audio0");
        WAIT_FOR(symbol("audio0") == u"checkmark");
        QCOMPARE(symbol("video0"), u"film"_s);
    }

    void aResultThatLacksNearlyEverythingIsARowLikeOthers()
    {
        show(0);
        m_fixture.tool.setScript(R"(echo '{"id":"a","title":null,"thumbnails":[]}')");
        state().browseSearchQuery = u"x"_s;
        state().searchYouTube();
        WAIT_FOR(shown("result0"));
        QCOMPARE(accessible("result0")->text(QAccessible::Name), u"Unknown"_s);
        const double height = item("result0")->height();
        show(1);
        QCOMPARE(item("result0")->height(), height);
    }

    void longAndForeignQueriesAreSearchedAsTheyAre()
    {
        show(0);
        m_fixture.tool.setScript("true");
        for (const QString &query : {QString(2000, u'x'), u"--exec \"rm\" 'a' -o /x"_s,
                                     u"\u05e9\u05dc\u05d5\u05dd \u0645\u0631\u062d"_s}) {
            state().browseSearchQuery = query;
            focusField();
            QTest::keyClick(m_window, Qt::Key_Return);
            WAIT_FOR(!state().isBrowseSearching() && !m_fixture.tool.calls().isEmpty());
            WAIT_FOR(m_fixture.tool.calls().last().last() == u"ytsearch25:"_s + query);
        }
    }

    void aLaterSearchBringsTheStatusesBack()
    {
        show(1);
        m_fixture.tool.setScript("true");
        click("audio0");
        WAIT_FOR(symbol("audio0") == u"checkmark");
        state().browseResults = AppState::Results();
        WAIT_FOR(!item("audio0"));
        m_fixture.tool.setScript("echo '{\"id\":\"new\"}'; echo '{\"id\":\"0\"}'");
        state().browseSearchQuery = u"again"_s;
        state().searchYouTube();
        WAIT_FOR(shown("result1"));
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
