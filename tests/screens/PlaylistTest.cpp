// SPDX-License-Identifier: GPL-3.0-or-later
#include "PictureServer.h"
#include "WindowFixture.h"

#include <QTcpSocket>

/// The panel in which the entries of a playlist are chosen.
class PlaylistTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyPlaylistShowsZeroAndSelectsNothing()
    {
        QVERIFY(showPlaylist(playlist(0)));
        QCOMPARE(textOf("playlistCount"), u"0 of 0 selected"_s);
        click("selectAll");
        QVERIFY(state().selectedPlaylistItems().isEmpty());
        QCOMPARE(textOf("playlistCount"), u"0 of 0 selected"_s);
        QVERIFY(!item("download")->isEnabled());
    }

    void noneAllAndOneCardByMouse()
    {
        QVERIFY(showPlaylist(playlist(3)));
        QCOMPARE(textOf("playlistCount"), u"3 of 3 selected"_s);
        click("selectNone");
        QCOMPARE(textOf("playlistCount"), u"0 of 3 selected"_s);
        QVERIFY(!item("card1")->property("isSelected").toBool());
        click("selectAll");
        QCOMPARE(state().selectedPlaylistItems(), QSet({u"0"_s, u"1"_s, u"2"_s}));
        click("card1");
        QCOMPARE(state().selectedPlaylistItems(), QSet({u"0"_s, u"2"_s}));
        QVERIFY(!item("card1")->property("isSelected").toBool());
        QVERIFY(item("card0")->property("isSelected").toBool());
    }

    void repeatedIdentifiersCountOnceButAllDownload()
    {
        VideoInfo info = playlist(5);
        info.playlistEntries[2].id = u"0"_s;
        QVERIFY(showPlaylist(info));
        QCOMPARE(textOf("playlistCount"), u"4 of 5 selected"_s);
        QCOMPARE(textOf("download"), u"Download 4 Videos"_s);
        click("download");
        QTRY_COMPARE_WITH_TIMEOUT(state().downloadStatus(),
                                  DownloadUIStatus(Status::Done{m_fixture->folder.path()}),
                                  patience);
        QCOMPARE(m_fixture->tool.calls().size(), 5);
        QCOMPARE(state().totalDownloadCount(), 5);
        QCOMPARE(state().currentDownloadIndex(), 5);
    }

    void hideAndShowToggleTheGrid()
    {
        QVERIFY(showPlaylist(playlist(3)));
        QCOMPARE(item("collapse")->property("help").toString(), u"Hide video list"_s);
        click("collapse");
        QTRY_VERIFY_WITH_TIMEOUT(!shown("playlistCards"), patience);
        QCOMPARE(item("collapse")->property("label").toString(), u"Show"_s);
        QCOMPARE(item("collapse")->property("help").toString(), u"Show video list"_s);
        QCOMPARE(state().selectedPlaylistItems().size(), 3);
        click("collapse");
        QTRY_VERIFY_WITH_TIMEOUT(shown("card0"), patience);
        QCOMPARE(item("collapse")->property("label").toString(), u"Hide"_s);
    }

    void aRefetchedPlaylistShowsItsGrid()
    {
        QVERIFY(showPlaylist(playlist(3)));
        click("collapse");
        QTRY_VERIFY_WITH_TIMEOUT(!shown("playlistCards"), patience);
        QVERIFY(showPlaylist(playlist(4)));
        QTRY_VERIFY_WITH_TIMEOUT(shown("card3"), patience);
    }

    void theColumnsKeepToTheirBounds_data()
    {
        QTest::addColumn<int>("width");
        for (const int width : {880, 960, 1100, 1440, 2000})
            QTest::addRow("%d", width) << width;
    }

    void theColumnsKeepToTheirBounds()
    {
        QFETCH(int, width);
        const QSize before = m_window->size();
        QVERIFY(showPlaylist(playlist(12)));
        m_window->resize(width, before.height());
        QTRY_COMPARE_WITH_TIMEOUT(m_window->contentItem()->width(), width, patience);
        m_window->grabWindow();
        const QQuickItem *const first = item("card0");
        const QQuickItem *const second = item("card1");
        QVERIFY2(first->width() >= 190 && first->width() <= 240,
                 qPrintable(QString::number(first->width())));
        QCOMPARE(second->x() - first->x() - first->width(), 10.0);
        m_window->resize(before);
    }

    void arrowsMoveBetweenCardsAndSpaceToggles()
    {
        QVERIFY(showPlaylist(playlist(12)));
        QVERIFY(focusByTab("playlistCards"));
        QCOMPARE(focused(), u"card0"_s);
        press(Qt::Key_Right);
        QCOMPARE(focused(), u"card1"_s);
        press(Qt::Key_Down);
        QCOMPARE(focused(), u"card5"_s);
        press(Qt::Key_Left);
        press(Qt::Key_Space);
        QCOMPARE(state().selectedPlaylistItems().size(), 11);
        QVERIFY(!state().selectedPlaylistItems().contains(u"4"_s));
        press(Qt::Key_Space);
        QCOMPARE(state().selectedPlaylistItems().size(), 12);
    }

    void ctrlASelectsAllInTheFocusedGrid()
    {
        QVERIFY(showPlaylist(playlist(12)));
        state().selectedPlaylistItems = AppState::EntrySelection();
        QVERIFY(focusByTab("playlistCards"));
        press(Qt::Key_Right);
        QTest::keyClick(m_window, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(state().selectedPlaylistItems().size(), 12);
    }

    void theGridIsOneTabStop()
    {
        QVERIFY(showPlaylist(playlist(12)));
        QVERIFY(focusByTab("selectAll"));
        QStringList reached;
        for (int step = 0; step < 4; ++step) {
            press(Qt::Key_Tab);
            reached.append(focused());
        }
        QCOMPARE(reached, QStringList({u"selectNone"_s, u"collapse"_s, u"card0"_s, u"format0"_s}));
        QTest::keyClick(m_window, Qt::Key_Backtab);
        QCOMPARE(focused(), u"card0"_s);
    }

    void ofThousandsOnlyThoseInSightAreAlive()
    {
        QVERIFY(showPlaylist(playlist(5000)));
        m_window->grabWindow();
        const int atStart = numbered("playlistCards", u"card"_s);
        QVERIFY2(atStart >= 12 && atStart <= 40, qPrintable(QString::number(atStart)));
        QVERIFY(focusByTab("playlistCards"));
        press(Qt::Key_End);
        QCOMPARE(focused(), u"card4999"_s);
        m_window->grabWindow();
        QVERIFY(isInSight("card4999"));
        const int atEnd = numbered("playlistCards", u"card"_s);
        QVERIFY2(atEnd <= 40, qPrintable(QString::number(atEnd)));
        press(Qt::Key_Up);
        QCOMPARE(focused(), u"card4995"_s);
        press(Qt::Key_Home);
        QCOMPARE(focused(), u"card0"_s);
        QVERIFY(isInSight("card0"));
    }

    void wheelAndPageKeysScrollTheWholePage()
    {
        QVERIFY(showPlaylist(playlist(5000)));
        m_window->grabWindow();
        const double before = sceneY("card0");
        const double title = sceneY("playlistTitle");
        turnWheel(1);
        QTRY_VERIFY_WITH_TIMEOUT(sceneY("playlistTitle") < title, patience);
        QCOMPARE(sceneY("card0") - before, sceneY("playlistTitle") - title);
        QTRY_VERIFY_WITH_TIMEOUT((turnWheel(5), sceneY("playlistTitle") < -2000), patience);
        QVERIFY(numbered("playlistCards", u"card"_s) <= 40);
        QVERIFY(focusByTab("selectAll"));
        QTRY_VERIFY_WITH_TIMEOUT(isInSight("selectAll"), patience);
        press(Qt::Key_PageDown);
        QTRY_VERIFY_WITH_TIMEOUT(!isInSight("selectAll"), patience);
        press(Qt::Key_PageUp);
        QTRY_VERIFY_WITH_TIMEOUT(isInSight("selectAll"), patience);
    }

    void clickingInMidScrollTogglesWithoutMoving()
    {
        QVERIFY(showPlaylist(playlist(5000)));
        QQuickItem *card = nullptr;
        // Not before everything has its height.
        QTRY_VERIFY_WITH_TIMEOUT(
            (item("page")->setProperty("contentY", 8500), card = cardInTheMiddle())
                && card->property("index").toInt() > 100,
            patience);
        const int number = card->property("index").toInt();
        const double before = card->mapToScene({0, 0}).y();
        click(card->objectName().toUtf8().constData());
        QVERIFY(!state().selectedPlaylistItems().contains(QString::number(number)));
        QCOMPARE(state().selectedPlaylistItems().size(), 4999);
        QCOMPARE(card->mapToScene({0, 0}).y(), before);
        QCOMPARE(m_window->activeFocusItem(), card);
        QVERIFY(!card->property("showsRing").toBool());
        press(Qt::Key_Right);
        QCOMPARE(focused(), u"card%1"_s.arg(number + 1));
        QVERIFY(m_window->activeFocusItem()->property("showsRing").toBool());
    }

    void clickingAPartlyVisibleCardMovesNothing()
    {
        QVERIFY(showPlaylist(playlist(5000)));
        const double pageTop = sceneY("page");
        QQuickItem *card = nullptr;
        QTRY_VERIFY_WITH_TIMEOUT(
            (item("page")->setProperty("contentY", 8500), card = cardInTheMiddle())
                && card->property("index").toInt() > 100,
            patience);
        // So that only the lower half of this card is seen.
        const double hidden = card->mapToScene({0, card->height() / 2}).y() - pageTop;
        const double contentY = item("page")->property("contentY").toDouble() + hidden;
        item("page")->setProperty("contentY", contentY);
        m_window->grabWindow();
        const QPointF seen = card->mapToScene({card->width() / 2, card->height() * 0.75});
        QTest::mouseClick(m_window, Qt::LeftButton, {}, seen.toPoint());
        QCOMPARE(m_window->activeFocusItem(), card);
        QCOMPARE(state().selectedPlaylistItems().size(), 4999);
        QCOMPARE(item("page")->property("contentY").toDouble(), contentY);
    }

    void theScrollBarShowsAndDragsToTheEnd()
    {
        QVERIFY(showPlaylist(playlist(5000)));
        m_window->grabWindow();
        QQuickItem *const page = item("page");
        QQuickItem *const handle = item("scrollHandle");
        const auto at = [&](double y) {
            return QPoint(m_window->width() - 3, qRound(page->mapToScene({0, y}).y()));
        };
        QTest::mouseMove(m_window, at(4));
        QTest::mousePress(m_window, Qt::LeftButton, {}, at(4));
        QTest::mouseMove(m_window, at(page->height() / 2));
        QTRY_VERIFY_WITH_TIMEOUT(handle->opacity() > 0.9, patience);
        const double height = page->property("contentHeight").toDouble();
        QVERIFY(page->property("contentY").toDouble() > height / 3);
        QVERIFY(page->property("contentY").toDouble() < height * 2 / 3);
        QTest::mouseMove(m_window, at(page->height() - 1));
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, at(page->height() - 1));
        QCOMPARE(page->property("contentY").toDouble(), height - page->height());
        QVERIFY(isInSight("card4999"));
    }

    void aTouchpadScrolls()
    {
        QVERIFY(showPlaylist(playlist(5000)));
        QTRY_VERIFY_WITH_TIMEOUT(item("page")->property("contentHeight").toDouble() > 100000,
                                 patience);
        const double before = sceneY("playlistTitle");
        turnTouchpad(Qt::ScrollBegin, 0);
        QTRY_VERIFY_WITH_TIMEOUT(
            (turnTouchpad(Qt::ScrollUpdate, 40), sceneY("playlistTitle") <= before - 80), patience);
        turnTouchpad(Qt::ScrollEnd, 0);
    }

    void aCardScrolledAwayDropsItsRequest()
    {
        VideoInfo info = playlist(400);
        info.playlistEntries[0].thumbnailURL = m_silentServer.url();
        QVERIFY(showPlaylist(info));
        QTRY_COMPARE_WITH_TIMEOUT(m_silentServer.asked, 1, patience);
        QCOMPARE(m_silentServer.left, 0);
        QVERIFY(focusByTab("playlistCards"));
        press(Qt::Key_End);
        QTRY_VERIFY_WITH_TIMEOUT(m_silentServer.left > 0, patience);
        state().singleInfo = std::nullopt;
        QTRY_VERIFY_WITH_TIMEOUT(!item("playlistCards"), patience);
    }

    void aCardIsACheckBoxNamedAfterItsTitle()
    {
        QVERIFY(showPlaylist(playlist(2)));
        QAccessibleInterface *const card = accessible("card1");
        QCOMPARE(card->role(), QAccessible::CheckBox);
        QCOMPARE(card->text(QAccessible::Name), u"Title 1"_s);
        QVERIFY(card->state().checkable);
        QVERIFY(card->state().checked);
        QVERIFY(card->state().focusable);
        card->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(!card->state().checked);
        QCOMPARE(state().selectedPlaylistItems(), QSet({u"0"_s}));
        QCOMPARE(accessible("playlistCount")->text(QAccessible::Name), u"1 of 2 selected"_s);
    }

    void entriesWithoutDataAreStillCards()
    {
        m_fixture->tool.respond(sample("playlist-that-lacks-everything"));
        state().singleURL = u"https://x/playlist?list=p"_s;
        state().fetchSingleInfo();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isFetching(), patience);
        QCOMPARE(state().fetchError().value_or(QString()), QString());
        QTRY_VERIFY_WITH_TIMEOUT(shown("card3"), patience);
        QCOMPARE(textOf("playlistTitle"), u"Playlist (4 videos)"_s);
        QCOMPARE(textOf("playlistCount"), u"3 of 4 selected"_s);
    }

protected:
    QQmlImageProviderBase *makeThumbnails() override
    {
        return new ThumbnailProvider(m_silentServer.source());
    }

private:
    QString focused() const
    {
        return m_window->activeFocusItem() ? m_window->activeFocusItem()->objectName() : QString();
    }

    /// A card around the middle of the window, if there is one yet.
    QQuickItem *cardInTheMiddle()
    {
        m_window->grabWindow();
        const auto *const content =
            item("playlistCards")->property("contentItem").value<QQuickItem *>();
        const QList<QQuickItem *> cards = content->childItems();
        for (QQuickItem *const card : cards) {
            const double top = card->mapToScene({0, 0}).y();
            if (card->objectName().startsWith(u"card") && top > 250 && top < 450)
                return card;
        }
        return nullptr;
    }

    bool isInSight(const char *name)
    {
        const QQuickItem *const found = item(name);
        const double top = item("submit")->mapToScene({0, item("submit")->height()}).y();
        return found && sceneY(name) >= top && sceneY(name) + found->height() <= m_window->height();
    }

    PictureServer m_silentServer; // takes connections and says nothing
};

QTEST_MAIN(PlaylistTest)
#include "PlaylistTest.moc"
