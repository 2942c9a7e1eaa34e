// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"
#include "NoticePresenter.h"
#include "UndoNotice.h"

/// What people do in their first hour with the window, and how it forgives.
class FirstHourTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aDoubleClickOnPlayPlays()
    {
        QVERIFY(show(2));
        hover(item("result0"));
        QTRY_VERIFY_WITH_TIMEOUT(shown("play0"), patience);
        QTest::mouseDClick(m_window, Qt::LeftButton, {}, centreOf("play0"));
        QVERIFY(state().nowPlaying().has_value());
        QTRY_VERIFY_WITH_TIMEOUT(shown("playerPanel"), patience);
    }

    void aMenuOfALowRowIsShownWhole()
    {
        for (int number = 0; number < 9; ++number)
            state().addToHistory(StateFixture::record(QString::number(number)));
        m_window->grabWindow(); // so that everything is in its place
        QTRY_VERIFY_WITH_TIMEOUT(shown("history4"), patience);
        m_window->resize(960, qRound(sceneY("history4")) + 30);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->contentItem()->height(), m_window->height(), patience);
        QTest::mouseClick(m_window, Qt::RightButton, {}, {400, m_window->height() - 12});
        QTRY_VERIFY_WITH_TIMEOUT(lastCommand() != nullptr, patience);
        const QQuickItem *const last = lastCommand();
        QTRY_VERIFY_WITH_TIMEOUT(last->mapToScene({0, last->height()}).y() <= m_window->height(),
                                 patience);
    }

    void aLongErrorLeavesThePageInSight()
    {
        state().fetchError = u"File \"/usr/lib/python3/a.py\", line 7\n"_s.repeated(60);
        QTRY_VERIFY_WITH_TIMEOUT(shown("errorBanner") && hasEntered(item("errorBanner")), patience);
        QVERIFY(item("errorBanner")->height() < 200);
        hover(item("errorBanner"));
        QTRY_VERIFY_WITH_TIMEOUT(tip().contains(u"line 7"), patience);
    }

    void escapeClosesTheSettings()
    {
        state().showSettings = true;
        QTRY_VERIFY_WITH_TIMEOUT(shown("speedLimit"), patience);
        QVERIFY(focusByTab("speedLimit"));
        press(Qt::Key_Escape);
        QVERIFY(!state().showSettings());
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("settings"), patience);
    }

    void undoByMouseShowsNoFocusRing()
    {
        state().addToHistory(StateFixture::record(u"Boat"_s));
        QTRY_VERIFY_WITH_TIMEOUT(shown("history0"), patience);
        click("clearHistory");
        QTRY_VERIFY_WITH_TIMEOUT(shown("noticeAction") && item("notice")->opacity() == 1, patience);
        click("noticeAction");
        QTRY_VERIFY_WITH_TIMEOUT(shown("history0") && !shown("noticeAction"), patience);
        const QQuickItem *const focused = m_window->activeFocusItem();
        QVERIFY(!focused || !focused->property("visualFocus").toBool());
    }

    void anIdleQueueButtonHasNoTooltip()
    {
        const auto done = std::make_shared<DownloadItem>(u"https://x/1"_s);
        done->status = Status::Done{u"/tmp/a.mp4"_s};
        state().queue = AppState::Queue{done};
        state().mode = AppMode::multi;
        QTRY_VERIFY_WITH_TIMEOUT(shown("startQueue"), patience);
        QCOMPARE(textOf("startQueue"), u"Nothing to download"_s);
        QCOMPARE(item("startQueue")->property("help").toString(), QString());
    }

    void thePlayersButtonsStayWhereTheyAre()
    {
        QVERIFY(show(12));
        QVERIFY(play(0));
        const double before = item("playNext")->mapToScene({}).x();
        state().playBrowseResult(state().browseResults()[11]);
        QTRY_COMPARE_WITH_TIMEOUT(textOf("playerPlace"), u"12 / 12"_s, patience);
        m_window->grabWindow();
        QCOMPARE(item("playNext")->mapToScene({}).x(), before);
    }

    void typingAfterChoosingAModeGoesIntoTheField()
    {
        for (const char *const mode : {"modeMulti", "modeBrowse", "modeSingle"}) {
            click(mode);
            QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("urlField"), patience);
        }
        QTest::keyClick(m_window, Qt::Key_2, Qt::ControlModifier);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("urlField"), patience);
    }

    void aFocusThatLeavesWithItsPageGoesToTheField()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        QVERIFY(focusByTab("download"));
        QTest::keyClick(m_window, Qt::Key_M, Qt::ControlModifier);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("urlField"), patience);
    }

    void f10EntersTheMenuBar()
    {
        QVERIFY(focusField());
        press(Qt::Key_F10);
        QTRY_VERIFY_WITH_TIMEOUT(withText(m_window->contentItem(), u"About Quillon"_s), patience);
        press(Qt::Key_Escape);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("urlField"), patience);
    }

    void theFailuresFocusRingIsWhole()
    {
        m_fixture->tool.respond("fail ERROR: gone");
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        click("download");
        QTRY_VERIFY_WITH_TIMEOUT(shown("failureText") && hasEntered(item("failureText")), patience);
        QVERIFY(focusByTab("failureText"));
        const QQuickItem *const text = item("failureText");
        const QQuickItem *const ring = find(item("failureText"), u"focusRing"_s);
        QVERIFY(ring && ring->isVisible());
        QVERIFY(!text->clip() || text->contains(ring->position()));
    }

    void clearAllStandsOnTheHeadingsLine()
    {
        m_window->grabWindow();
        QVERIFY(std::abs(middleOf(item("clearHistory")) - middleOf(item("historyTitle"))) < 1);
    }

private:
    MainWindow::Extras extras() override
    {
        m_undo = std::make_unique<UndoNotice>(state());
        m_notices = std::make_unique<NoticePresenter>(QList<NoticeSource *>{m_undo.get()});
        return {.notices = m_notices.get()};
    }

    const QQuickItem *lastCommand() { return lastIn(m_window->contentItem()); }

    static const QQuickItem *lastIn(const QQuickItem *parent)
    {
        const QQuickItem *last = nullptr;
        const QList<QQuickItem *> children = parent->childItems();
        for (const QQuickItem *const child : children) {
            if (child->objectName() == u"menuCommand" && child->isVisible())
                last = child;
            else if (const QQuickItem *const found = lastIn(child))
                last = found;
        }
        return last;
    }

    static double middleOf(const QQuickItem *place)
    {
        return place->mapToScene({0, place->height() / 2}).y();
    }

    std::unique_ptr<UndoNotice> m_undo;
    std::unique_ptr<NoticePresenter> m_notices;
};

QTEST_MAIN(FirstHourTest)
#include "FirstHourTest.moc"
