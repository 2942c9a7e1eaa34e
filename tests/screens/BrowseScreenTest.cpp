// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

/// Browse mode, with a player that plays nothing.
class BrowseScreenTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void beforeASearchItSaysHowToSearch()
    {
        show(0);
        QCOMPARE(placeholder(), u"Search YouTube"_s);
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
        QCOMPARE(accessible("result0")->text(QAccessible::Name), u"A, 1:01"_s);
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

    void thePlayControlOfARowPlaysAndStops()
    {
        show(2);
        QTest::mouseMove(m_window, centreOf("result0"));
        WAIT_FOR(shown("play0"));
        click("play0");
        QCOMPARE(state().nowPlaying()->id, u"0"_s);
        WAIT_FOR(shown("loadingStream"));
        QCOMPARE(textOf("loadingStream"), u"Loading stream…"_s);
        WAIT_FOR(!state().isLoadingStream());
        click("play0");
        QVERIFY(!state().nowPlaying());
        WAIT_FOR(!shown("playerPanel"));
    }

    void previousAndNextEndWithTheList()
    {
        show(3);
        play(0);
        QVERIFY(!item("playPrevious")->isEnabled());
        QCOMPARE(textOf("playerPlace"), u"1 / 3"_s);
        click("playNext");
        QCOMPARE(state().nowPlaying()->id, u"1"_s);
        QVERIFY(item("playPrevious")->isEnabled());
        click("playNext");
        QCOMPARE(textOf("playerPlace"), u"3 / 3"_s);
        QVERIFY(!item("playNext")->isEnabled());
        click("playPrevious");
        QCOMPARE(state().nowPlaying()->id, u"1"_s);
    }

    void anErrorOfThePlayerIsReadOverThePicture()
    {
        show(1);
        play(0);
        engine()->events.failed(u"The connection was lost"_s);
        WAIT_FOR(shown("playerError"));
        QCOMPARE(textOf("playerError"), u"The connection was lost"_s);
        QVERIFY(accessible("playerError")->role() == QAccessible::AlertMessage);
    }

    void closingThePlayerStopsIt()
    {
        show(1);
        play(0);
        QCOMPARE(accessible("closePlayer")->text(QAccessible::Name), u"Close player"_s);
        click("closePlayer");
        QVERIFY(!state().nowPlaying());
    }

    void leavingBrowseStopsPlayback()
    {
        show(1);
        play(0);
        click("modeSingle");
        WAIT_FOR(!state().nowPlaying());
        QVERIFY(!state().avPlayer.hasItem());
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
        m_fixture.tool.setScript("exit 1");
        click("audio0");
        WAIT_FOR(symbol("audio0") == u"arrow.counterclockwise");
        QVERIFY(accessible("audio0")->text(QAccessible::Description).startsWith(u"Failed"));
        m_fixture.tool.setScript("true");
        click("audio0");
        WAIT_FOR(symbol("audio0") == u"checkmark");
        QCOMPARE(symbol("video0"), u"film"_s);
    }

    void thePlayersKeysAct()
    {
        show(1);
        play(0);
        engine()->events.statusChanged({.position = 30, .duration = 60, .loadedTo = 50});
        focusByTab("video");
        press(Qt::Key_Left);
        press(Qt::Key_L);
        QCOMPARE(engine()->sought, QList({25.0, 35.0}));
        press(Qt::Key_Space);
        QVERIFY(engine()->isPaused);
        press(Qt::Key_K);
        QVERIFY(!engine()->isPaused);
        press(Qt::Key_M);
        QVERIFY(engine()->isMuted);
        QCOMPARE(textOf("elapsed"), u"0:35"_s);
        QCOMPARE(textOf("total"), u"1:00"_s);
    }

    void thePositionBarSeeksByClickAndDrag()
    {
        show(1);
        play(0);
        engine()->events.statusChanged({.position = 0, .duration = 100});
        state().avPlayer.pause(); // so that the controls stay
        WAIT_FOR(shown("positionBar"));
        m_window->grabWindow();
        const QPoint middle = centreOf("positionBar");
        QTest::mousePress(m_window, Qt::LeftButton, {}, middle);
        QTest::mouseMove(m_window, middle + QPoint(60, 0));
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, middle + QPoint(60, 0));
        QVERIFY(engine()->sought.size() >= 2);
        QVERIFY(std::abs(engine()->sought.first() - 50) < 2);
        QVERIFY(engine()->sought.last() > engine()->sought.first() + 5);
        QVERIFY(accessible("positionBar")->role() == QAccessible::Slider);
    }

private:
    void show(int count)
    {
        AppState::Results results;
        for (int number = 0; number < count; ++number)
            results.append(result(number));
        state().browseResults = results;
        state().mode = AppMode::browse;
        m_fixture.tool.setScript("echo http://127.0.0.1/a.mp4");
        WAIT_FOR(count == 0 ? !placeholder().isEmpty() : shown("result0"));
    }

    /// Plays a result until it is the engine's turn.
    void play(int row)
    {
        state().playBrowseResult(state().browseResults()[row]);
        WAIT_FOR(!state().isLoadingStream() && state().avPlayer.hasItem());
        WAIT_FOR(shown("playerPanel") && item("playerPanel")->parentItem()->opacity() > 0.99);
        engine()->sought.clear();
    }

    RecordingDesktop::SilentEngine *engine() { return *m_fixture.desktop.engine; }

    /// The title of what stands in the place of results.
    QString placeholder() { return placeholderIn(m_window->contentItem()); }

    static QString placeholderIn(const QQuickItem *parent)
    {
        const QList<QQuickItem *> children = parent->childItems();
        for (const QQuickItem *const child : children) {
            if (child->objectName() == u"browsePlaceholder" && child->isVisible())
                return child->property("text").toString();
            if (const QString found = placeholderIn(child); !found.isEmpty())
                return found;
        }
        return {};
    }

    double ring(const char *button)
    {
        return find(item(button), u"downloadRing"_s)->property("progress").toDouble();
    }

    QString symbol(const char *button) { return item(button)->property("symbol").toString(); }

    QPoint centreOf(const char *name)
    {
        const QQuickItem *const target = item(name);
        return target->mapToScene({target->width() / 2, target->height() / 2}).toPoint();
    }

    void press(int key) { QTest::keyClick(m_window, Qt::Key(key)); }
};

QTEST_MAIN(BrowseScreenTest)
#include "BrowseScreenTest.moc"
