// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"

/// The player of browse mode, its controls, its keys and its windows.
class PlayerScreenTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
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

    void thePlayersKeysAct()
    {
        show(1);
        play(0);
        engine()->events.statusChanged({.position = 30, .duration = 60, .loadedTo = 50});
        focusByTab("video");
        press(Qt::Key_Left);
        press(Qt::Key_L);
        press(Qt::Key_J);
        QCOMPARE(engine()->sought, QList({25.0, 35.0, 25.0}));
        press(Qt::Key_Space);
        QVERIFY(engine()->isPaused);
        press(Qt::Key_K);
        QVERIFY(!engine()->isPaused);
        press(Qt::Key_M);
        QVERIFY(engine()->isMuted);
        QCOMPARE(textOf("elapsed"), u"0:25"_s);
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
        WAIT_FOR(engine()->sought.size() == 1);
        QTest::mouseMove(m_window, middle + QPoint(60, 0));
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, middle + QPoint(60, 0));
        QVERIFY(engine()->sought.size() >= 2);
        QVERIFY(std::abs(engine()->sought.first() - 50) < 1.5); // not rounded to steps
        QVERIFY(engine()->sought.last() > engine()->sought.first() + 5);
        QVERIFY(accessible("positionBar")->role() == QAccessible::Slider);
    }

    void thePositionBarIsMovedByItsOwnKeys()
    {
        playPaused({.position = 50, .duration = 100});
        focusByTab("positionBar");
        press(Qt::Key_Right);
        QCOMPARE(engine()->sought, QList<double>{55});
    }

    void aShortItemIsSoughtInFinely()
    {
        playPaused({.position = 0, .duration = 6});
        click("positionBar");
        QVERIFY(std::abs(engine()->sought.last() - 3) < 0.2);
        engine()->events.statusChanged({.position = 4, .duration = 6});
        QCOMPARE(item("positionBar")->property("value").toDouble(), 4.0);
    }

    void theBarShowsHowFarItIsLoaded()
    {
        playPaused({.position = 10, .duration = 100, .loadedTo = 60});
        QCOMPARE(item("positionBar")->property("mark").toDouble(), 60.0);
        QCOMPARE(item("positionBar")->property("to").toDouble(), 100.0);
    }

    void theVolumeIsSetByItsBarWhichAlsoEndsTheSilence()
    {
        playPaused({.position = 10, .duration = 100});
        click("mute");
        QVERIFY(engine()->isMuted);
        QCOMPARE(accessible("mute")->text(QAccessible::Name), u"Unmute"_s);
        click("volumeBar");
        QVERIFY(!engine()->isMuted);
        QVERIFY(std::abs(engine()->volume - 0.5) < 0.1);
        focusByTab("volumeBar");
        const double before = engine()->volume;
        press(Qt::Key_Left);
        QVERIFY(engine()->volume < before);
    }

    void waitingForTheStreamIsShown()
    {
        playPaused({.isBuffering = true, .position = 10, .duration = 100});
        WAIT_FOR(shown("buffering"));
        QVERIFY(!shown("loadingStream"));
        engine()->events.statusChanged({.position = 10, .duration = 100});
        WAIT_FOR(!shown("buffering"));
    }

    void theControlsFadeWhileItPlaysAndComeBackOnAMove()
    {
        playPaused({.position = 10, .duration = 100});
        QVERIFY(shown("positionBar"));
        QTest::mouseMove(m_window, QPoint(5, 5));
        state().avPlayer.play();
        WAIT_FOR(!shown("positionBar"));
        QTest::mouseMove(m_window, centreOf("video"));
        QTest::mouseMove(m_window, centreOf("video") + QPoint(9, 0));
        WAIT_FOR(shown("positionBar"));
    }

    void aClickOnAControlDoesNotHoldTheControls()
    {
        playPaused({.position = 10, .duration = 100});
        click("playPause"); // goes on
        QVERIFY(!engine()->isPaused);
        QTest::mouseMove(m_window, QPoint(5, 5));
        WAIT_FOR(!shown("positionBar"));
    }

    void draggedToItsEndItDoesNotEndBeforeItIsLetGo()
    {
        playPaused({.position = 0, .duration = 100});
        const QPoint middle = centreOf("positionBar");
        const QPoint end = middle + QPoint(static_cast<int>(item("positionBar")->width() / 2), 0);
        QTest::mousePress(m_window, Qt::LeftButton, {}, middle);
        QTest::mouseMove(m_window, end);
        WAIT_FOR(!engine()->sought.isEmpty());
        QCOMPARE(engine()->sought.last(), 99.5);
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, end);
        QCOMPARE(engine()->sought.last(), 100.0);
    }

    void whatIsNotLoadedYetIsWaitedForInSight()
    {
        show(1);
        play(0); // the engine has told nothing
        WAIT_FOR(shown("buffering"));
    }

    void theKeyboardFindsAnotherPlaceWhereItsButtonEnds()
    {
        show(2);
        play(0);
        focusByTab("playNext");
        press(Qt::Key_Return);
        QVERIFY(focusIsIn(item("playPrevious")));
        focusByTab("closePlayer");
        press(Qt::Key_Return);
        QVERIFY(!state().nowPlaying());
        QVERIFY(focusIsIn(item("resultRows")));
    }

    void atItsEndItCanBePlayedAgain()
    {
        show(1);
        play(0);
        engine()->events.statusChanged({.position = 60, .duration = 60});
        engine()->events.ended();
        WAIT_FOR(shown("playPause"));
        QCOMPARE(accessible("playPause")->text(QAccessible::Name), u"Play again"_s);
        click("playPause");
        QCOMPARE(engine()->sought, QList<double>{0});
        QVERIFY(!engine()->isPaused);
        QCOMPARE(accessible("playPause")->text(QAccessible::Name), u"Pause"_s);
    }

    void fullScreenAndPictureInPictureKeepThePosition()
    {
        show(1);
        play(0);
        engine()->events.statusChanged({.position = 30, .duration = 60});
        focusByTab("video");
        const qsizetype opened = engine()->addresses.size();
        press(Qt::Key_F);
        WAIT_FOR(playerWindow());
        QCOMPARE(playerWindow()->visibility(), QWindow::FullScreen);
        QTest::keyClick(playerWindow(), Qt::Key_Right);
        QCOMPARE(engine()->sought, QList<double>{35}); // its keys are the panel's
        QTest::keyClick(playerWindow(), Qt::Key_Escape);
        WAIT_FOR(!playerWindow() && shown("video"));
        state().avPlayer.pause();
        WAIT_FOR(shown("pictureInPicture"));
        click("pictureInPicture");
        WAIT_FOR(playerWindow());
        QVERIFY(playerWindow()->flags().testFlag(Qt::WindowStaysOnTopHint));
        playerWindow()->close();
        WAIT_FOR(!playerWindow() && shown("video"));
        QCOMPARE(engine()->addresses.size(), opened); // it was never opened anew
        QCOMPARE(engine()->sought, QList<double>{35});
        QCOMPARE(state().avPlayer.position(), 35.0);
    }

    void inFullScreenThePointerGoesWithTheControls()
    {
        show(1);
        play(0);
        focusByTab("video");
        press(Qt::Key_F);
        WAIT_FOR(playerWindow());
        QVERIFY(QTest::qWaitForWindowExposed(playerWindow()));
        const QPoint middle(playerWindow()->width() / 2, playerWindow()->height() / 2);
        QTest::mouseMove(playerWindow(), middle);
        QTest::mouseMove(playerWindow(), middle + QPoint(5, 0));
        QCOMPARE(playerWindow()->cursor().shape(), Qt::ArrowCursor);
        WAIT_FOR(playerWindow()->cursor().shape() == Qt::BlankCursor);
        QTest::mouseMove(playerWindow(), middle);
        WAIT_FOR(playerWindow()->cursor().shape() == Qt::ArrowCursor);
        QTest::keyClick(playerWindow(), Qt::Key_Escape);
        WAIT_FOR(!playerWindow());
    }

    void theMenusKeysWorkInThePlayersWindow()
    {
        show(1);
        play(0);
        focusByTab("video");
        press(Qt::Key_F);
        WAIT_FOR(playerWindow());
        QVERIFY(QTest::qWaitForWindowActive(playerWindow()));
        QTest::keyClick(playerWindow(), Qt::Key_M, Qt::ControlModifier);
        WAIT_FOR(state().mode() == AppMode::single && !playerWindow());
    }

    void aPlayerThatLeavesKeepsItsWords()
    {
        show(2);
        play(0);
        click("closePlayer");
        QVERIFY(!state().nowPlaying() && shown("playerPanel"));
        QCOMPARE(textOf("playerPlace"), u"1 / 2"_s);
        QCOMPARE(textOf("playerTitle"), u"Title 0"_s);
    }

    void thePlayersWindowGoesWithWhatItPlays()
    {
        show(1);
        play(0);
        focusByTab("video");
        press(Qt::Key_F);
        WAIT_FOR(playerWindow());
        state().stopPlayback();
        WAIT_FOR(!playerWindow());
    }

    void thePanelsButtonsDownloadWhatPlays()
    {
        show(2);
        play(1);
        m_fixture.tool.setScript("true");
        click("panelAudio");
        WAIT_FOR(item("panelAudio")->property("symbol").toString() == u"checkmark");
        QCOMPARE(item("audio1")->property("symbol"), u"checkmark"_s);
        QCOMPARE(item("panelVideo")->property("symbol"), u"film"_s);
        QCOMPARE(item("audio0")->property("symbol"), u"music.note"_s);
    }

    void mediaKeysThatTheWindowGetsAct()
    {
        show(3);
        press(Qt::Key_MediaNext); // with nothing chosen
        QVERIFY(!state().nowPlaying());
        play(0);
        press(Qt::Key_MediaNext);
        QCOMPARE(state().nowPlaying()->id, u"1"_s);
        press(Qt::Key_MediaPrevious);
        WAIT_FOR(state().nowPlaying()->id == u"0" && state().avPlayer.hasItem());
        press(Qt::Key_MediaPlay);
        QVERIFY(engine()->isPaused);
        press(Qt::Key_MediaPlay);
        QVERIFY(!engine()->isPaused);
        press(Qt::Key_MediaStop);
        QVERIFY(!state().nowPlaying());
    }

private:
    /// So that the controls stay.
    void playPaused(const PlayerStatus &status)
    {
        show(1);
        play(0);
        engine()->events.statusChanged(status);
        state().avPlayer.setMuted(false);
        state().avPlayer.setVolume(1);
        state().avPlayer.pause();
        WAIT_FOR(shown("positionBar"));
        m_window->grabWindow();
    }

    /// The one of the player's own.
    QWindow *playerWindow()
    {
        const QWindowList windows = QGuiApplication::topLevelWindows();
        const auto found = std::find_if(windows.begin(), windows.end(), [this](QWindow *window) {
            return window != m_window && window->isVisible() && window->title() == u"Title 0";
        });
        return found == windows.end() ? nullptr : *found;
    }
};

QTEST_MAIN(PlayerScreenTest)
#include "PlayerScreenTest.moc"
