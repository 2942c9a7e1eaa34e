// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"

/// The player of browse mode, its keys and its windows.
class PlayerScreenTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void previousAndNextEndWithTheList()
    {
        QVERIFY(show(3));
        QVERIFY(play(0));
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

    void aPlayerErrorShowsOverThePicture()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        engine()->events.failed(u"The connection was lost"_s);
        QTRY_VERIFY_WITH_TIMEOUT(shown("playerError"), patience);
        QCOMPARE(textOf("playerError"), u"The connection was lost"_s);
        QVERIFY(accessible("playerError")->role() == QAccessible::AlertMessage);
    }

    void closingThePlayerStopsIt()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        QCOMPARE(accessible("closePlayer")->text(QAccessible::Name), u"Close player"_s);
        click("closePlayer");
        QVERIFY(!state().nowPlaying());
    }

    void leavingBrowseStopsPlayback()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        click("modeSingle");
        QTRY_VERIFY_WITH_TIMEOUT(!state().nowPlaying(), patience);
        QVERIFY(!state().avPlayer.hasItem());
    }

    void thePlayersKeysAct()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        engine()->events.statusChanged({.position = 30, .duration = 60, .loadedTo = 50});
        QVERIFY(focusByTab("video"));
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

    void waitingForTheStreamIsShown()
    {
        QVERIFY(playPaused({.isBuffering = true, .position = 10, .duration = 100}));
        QTRY_VERIFY_WITH_TIMEOUT(shown("buffering"), patience);
        QVERIFY(!shown("loadingStream"));
        engine()->events.statusChanged({.position = 10, .duration = 100});
        QTRY_VERIFY_WITH_TIMEOUT(!shown("buffering"), patience);
    }

    void controlsFadeWhilePlayingAndReturnOnMovement()
    {
        QVERIFY(playPaused({.position = 10, .duration = 100}));
        QVERIFY(shown("positionBar"));
        QTest::mouseMove(m_window, QPoint(5, 5));
        state().avPlayer.play();
        QTRY_VERIFY_WITH_TIMEOUT(!shown("positionBar"), patience);
        QTest::mouseMove(m_window, centreOf("video"));
        QTest::mouseMove(m_window, centreOf("video") + QPoint(9, 0));
        QTRY_VERIFY_WITH_TIMEOUT(shown("positionBar"), patience);
    }

    void clickingAControlLetsTheControlsFade()
    {
        QVERIFY(playPaused({.position = 10, .duration = 100}));
        click("playPause"); // goes on
        QVERIFY(!engine()->isPaused);
        QTest::mouseMove(m_window, QPoint(5, 5));
        QTRY_VERIFY_WITH_TIMEOUT(!shown("positionBar"), patience);
    }

    void noPictureIsWantedOfAWindowThatIsNotSeen()
    {
        QVERIFY(playPaused({.position = 10, .duration = 100}));
        const QSize inPanel = engine()->wish.size;
        QVERIFY(!inPanel.isEmpty() && !engine()->wish.isForGraphicsCard);
        m_window->showMinimized();
        QTRY_VERIFY_WITH_TIMEOUT(engine()->wish.size.isEmpty(), patience);
        m_window->showNormal();
        QTRY_COMPARE_WITH_TIMEOUT(engine()->wish.size, inPanel, patience);
        m_window->hide();
        QTRY_VERIFY_WITH_TIMEOUT(engine()->wish.size.isEmpty(), patience);
        m_window->show();
        QTRY_COMPARE_WITH_TIMEOUT(engine()->wish.size, inPanel, patience);
    }

    void loadingShowsThatItWaits()
    {
        QVERIFY(show(1));
        QVERIFY(play(0)); // the engine has told nothing
        QTRY_VERIFY_WITH_TIMEOUT(shown("buffering"), patience);
    }

    void focusMovesWhenItsButtonIsDisabled()
    {
        QVERIFY(show(2));
        QVERIFY(play(0));
        QVERIFY(focusByTab("playNext"));
        press(Qt::Key_Return);
        QVERIFY(focusIsIn(item("playPrevious")));
        QVERIFY(focusByTab("closePlayer"));
        press(Qt::Key_Return);
        QVERIFY(!state().nowPlaying());
        QVERIFY(focusIsIn(item("resultRows")));
    }

    void atItsEndItCanBePlayedAgain()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        engine()->events.statusChanged({.position = 60, .duration = 60});
        engine()->events.ended();
        QTRY_VERIFY_WITH_TIMEOUT(shown("playPause"), patience);
        QCOMPARE(accessible("playPause")->text(QAccessible::Name), u"Play again"_s);
        click("playPause");
        QCOMPARE(engine()->sought, QList<double>{0});
        QVERIFY(!engine()->isPaused);
        QCOMPARE(accessible("playPause")->text(QAccessible::Name), u"Pause"_s);
    }

    void fullScreenAndPictureInPictureKeepPosition()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        engine()->events.statusChanged({.position = 30, .duration = 60});
        QVERIFY(focusByTab("video"));
        const qsizetype opened = engine()->urls.size();
        press(Qt::Key_F);
        QTRY_VERIFY_WITH_TIMEOUT(playerWindow(), patience);
        QCOMPARE(playerWindow()->visibility(), QWindow::FullScreen);
        QTest::keyClick(playerWindow(), Qt::Key_Right);
        QCOMPARE(engine()->sought, QList<double>{35}); // its keys are the panel's
        QTest::keyClick(playerWindow(), Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(!playerWindow() && shown("video"), patience);
        state().avPlayer.pause();
        QTRY_VERIFY_WITH_TIMEOUT(shown("pictureInPicture"), patience);
        click("pictureInPicture");
        QTRY_VERIFY_WITH_TIMEOUT(playerWindow(), patience);
        QVERIFY(playerWindow()->flags().testFlag(Qt::WindowStaysOnTopHint));
        playerWindow()->close();
        QTRY_VERIFY_WITH_TIMEOUT(!playerWindow() && shown("video"), patience);
        QCOMPARE(engine()->urls.size(), opened); // it was never opened anew
        QCOMPARE(engine()->sought, QList<double>{35});
        QCOMPARE(state().avPlayer.position(), 35.0);
    }

    void thePointerHidesWithFullScreenControls()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        QVERIFY(focusByTab("video"));
        press(Qt::Key_F);
        QTRY_VERIFY_WITH_TIMEOUT(playerWindow(), patience);
        QVERIFY(QTest::qWaitForWindowExposed(playerWindow()));
        const QPoint middle(playerWindow()->width() / 2, playerWindow()->height() / 2);
        QTest::mouseMove(playerWindow(), middle);
        QTest::mouseMove(playerWindow(), middle + QPoint(5, 0));
        QCOMPARE(playerWindow()->cursor().shape(), Qt::ArrowCursor);
        QTRY_COMPARE_WITH_TIMEOUT(playerWindow()->cursor().shape(), Qt::BlankCursor, patience);
        QTest::mouseMove(playerWindow(), middle);
        QTRY_COMPARE_WITH_TIMEOUT(playerWindow()->cursor().shape(), Qt::ArrowCursor, patience);
        QTest::keyClick(playerWindow(), Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(!playerWindow(), patience);
    }

    void theMenusKeysWorkInThePlayersWindow()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        QVERIFY(focusByTab("video"));
        press(Qt::Key_F);
        QTRY_VERIFY_WITH_TIMEOUT(playerWindow(), patience);
        QVERIFY(QTest::qWaitForWindowActive(playerWindow()));
        QTest::keyClick(playerWindow(), Qt::Key_M, Qt::ControlModifier);
        QTRY_VERIFY_WITH_TIMEOUT(state().mode() == AppMode::single && !playerWindow(), patience);
    }

    void aPlayerThatLeavesKeepsItsWords()
    {
        QVERIFY(show(2));
        QVERIFY(play(0));
        click("closePlayer");
        QVERIFY(!state().nowPlaying() && shown("playerPanel"));
        QCOMPARE(textOf("playerPlace"), u"1 / 2"_s);
        QCOMPARE(textOf("playerTitle"), u"Title 0"_s);
    }

    void thePlayersWindowGoesWithWhatItPlays()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        QVERIFY(focusByTab("video"));
        press(Qt::Key_F);
        QTRY_VERIFY_WITH_TIMEOUT(playerWindow(), patience);
        state().stopPlayback();
        QTRY_VERIFY_WITH_TIMEOUT(!playerWindow(), patience);
    }

    void thePanelsButtonsDownloadWhatPlays()
    {
        QVERIFY(show(2));
        QVERIFY(play(1));
        m_fixture->tool.respond("");
        click("panelAudio");
        QTRY_COMPARE_WITH_TIMEOUT(item("panelAudio")->property("symbol").toString(), u"checkmark"_s,
                                  patience);
        QCOMPARE(item("audio1")->property("symbol"), u"checkmark"_s);
        QCOMPARE(item("panelVideo")->property("symbol"), u"film"_s);
        QCOMPARE(item("audio0")->property("symbol"), u"music.note"_s);
    }

    void mediaKeysThatTheWindowGetsAct()
    {
        QVERIFY(show(3));
        press(Qt::Key_MediaNext); // with nothing chosen
        QVERIFY(!state().nowPlaying());
        QVERIFY(play(0));
        press(Qt::Key_MediaNext);
        QCOMPARE(state().nowPlaying()->id, u"1"_s);
        press(Qt::Key_MediaPrevious);
        QTRY_VERIFY_WITH_TIMEOUT(state().nowPlaying()->id == u"0" && state().avPlayer.hasItem(),
                                 patience);
        press(Qt::Key_MediaPlay);
        QVERIFY(engine()->isPaused);
        press(Qt::Key_MediaPlay);
        QVERIFY(!engine()->isPaused);
        press(Qt::Key_MediaStop);
        QVERIFY(!state().nowPlaying());
    }

private:
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
