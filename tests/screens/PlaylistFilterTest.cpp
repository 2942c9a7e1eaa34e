// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

/// Finding entries of a long playlist, selecting ranges, and what is known already.
class PlaylistFilterTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void shiftClickSelectsARange()
    {
        QVERIFY(showPlaylist(playlist(8)));
        QTRY_VERIFY_WITH_TIMEOUT(item("card5"), patience);
        click("selectNone");
        click("card1");
        m_window->grabWindow();
        const QQuickItem *const last = item("card4");
        const QPointF centre = last->mapToScene({last->width() / 2, last->height() / 2});
        QTest::mouseClick(m_window, Qt::LeftButton, Qt::ShiftModifier, centre.toPoint());
        QTRY_COMPARE_WITH_TIMEOUT(state().selectedPlaylistItems(),
                                  AppState::EntrySelection({u"1"_s, u"2"_s, u"3"_s, u"4"_s}),
                                  patience);
    }

    void shiftArrowsExtendTheSelection()
    {
        QVERIFY(showPlaylist(playlist(8)));
        QTRY_VERIFY_WITH_TIMEOUT(item("card5"), patience);
        click("selectNone");
        click("card0");
        QTest::keyClick(m_window, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(m_window, Qt::Key_Right, Qt::ShiftModifier);
        QTRY_COMPARE_WITH_TIMEOUT(state().selectedPlaylistItems(),
                                  AppState::EntrySelection({u"0"_s, u"1"_s, u"2"_s}), patience);
    }

    void typingIntoTheFilterShowsMatches()
    {
        QVERIFY(showPlaylist(playlist(20)));
        QTRY_VERIFY_WITH_TIMEOUT(shown("playlistFilter"), patience);
        QVERIFY(!shown("selectShown"));
        QVERIFY(focusByTab("playlistFilter"));
        typeText("19");
        QTRY_COMPARE_WITH_TIMEOUT(item("playlistGrid")->property("count").toInt(), 1, patience);
        QVERIFY(shown("selectShown"));
        QVERIFY(textOf("playlistCount").endsWith(u"19 of them not shown"_s));
        press(Qt::Key_Escape);
        QTRY_COMPARE_WITH_TIMEOUT(item("playlistGrid")->property("count").toInt(), 20, patience);
    }

    void typingFromAfarComesIntoView()
    {
        QVERIFY(showPlaylist(playlist(200)));
        QTRY_VERIFY_WITH_TIMEOUT(shown("playlistFilter"), patience);
        QVERIFY(focusByTab("playlistFilter"));
        item("page")->setProperty("contentY", 3000);
        typeText("1");
        const QQuickItem *const field = item("playlistFilter");
        const QQuickItem *const page = item("page");
        QTRY_VERIFY_WITH_TIMEOUT(field->mapToItem(page, {0, 0}).y() >= 0, patience);
    }

    void aShortPlaylistHasNoFilter()
    {
        QVERIFY(showPlaylist(playlist(12)));
        QTRY_VERIFY_WITH_TIMEOUT(item("card0"), patience);
        QVERIFY(!shown("playlistFilter"));
    }

    void aKnownVideoSaysWhenItWasDownloaded()
    {
        VideoInfo info = video();
        state().addToHistory({.id = QUuid::createUuid(),
                              .title = info.title,
                              .thumbnailURL = {},
                              .url = info.originalURL,
                              .format = u"mp4"_s,
                              .quality = u"Best"_s,
                              .savedPath = u"/nowhere/a.mp4"_s,
                              .date = {ReferenceDate::now().seconds - 2 * 86400 - 60}});
        state().singleInfo = info;
        QTRY_VERIFY_WITH_TIMEOUT(shown("known"), patience);
        QCOMPARE(item("known")->property("text").toString(), u"Downloaded 2 days ago"_s);
        click("revealKnown");
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->desktop.fileViewer->opened, QStringList(u"/nowhere"_s),
                                  patience);
    }

    void aRunOfAKnownVideoTakesTheLineAway()
    {
        state().addToHistory(StateFixture::record(u"a"_s, video().originalURL));
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("known"), patience);
        state().downloadStatus = Status::Done{u"/nowhere"_s};
        QTRY_VERIFY_WITH_TIMEOUT(!shown("known"), patience);
    }

    void anUnknownVideoSaysNothing()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoCard"), patience);
        QVERIFY(!shown("known"));
    }
};

QTEST_MAIN(PlaylistFilterTest)
#include "PlaylistFilterTest.moc"
