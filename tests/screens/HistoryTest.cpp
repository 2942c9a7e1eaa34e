// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

/// The finished downloads below the screens of single and multi mode.
class HistoryTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    /// As while the window is minimized.
    void recordsThatComeBetweenFramesAllShow()
    {
        for (int number = 0; number < 9; ++number)
            state().addToHistory(StateFixture::record(QString::number(number)));
        m_window->grabWindow();
        QTRY_COMPARE_WITH_TIMEOUT(numbered("historyRows", u"history"_s), 9, patience);
        for (int row = 0; row < 9; ++row) {
            const QByteArray name = "history" + QByteArray::number(row);
            QCOMPARE(item(name.constData())->property("title").toString(),
                     QString::number(8 - row));
        }
    }

    void anEmptyHistoryShowsHeaderAndPlaceholder()
    {
        QVERIFY(shown("historyTitle") && shown("clearHistory") && shown("noHistory"));
        QCOMPARE(textOf("historyTitle"), u"Download History"_s);
        QCOMPARE(textOf("noHistory"), u"No downloads yet"_s);
        QVERIFY(!shown("historyList"));
        click("clearHistory");
        QVERIFY(state().history().isEmpty());
        QCOMPARE(m_fixture->preferences->blob(u"quillon.history.v2"_s).value_or(QByteArray()),
                 QByteArray("[]"));
    }

    void clearAllByMouseEmptiesTheList()
    {
        QVERIFY(fill(3));
        QVERIFY(!shown("noHistory"));
        click("clearHistory");
        QVERIFY(state().history().isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(shown("noHistory") && !shown("historyList"), patience);
    }

    void itStandsInSingleAndMultiModeOnly()
    {
        QVERIFY(fill(1));
        state().mode = AppMode::multi;
        QTRY_VERIFY_WITH_TIMEOUT(shown("history0"), patience);
        state().mode = AppMode::browse;
        QTRY_VERIFY_WITH_TIMEOUT(!shown("history0") && !shown("historyTitle"), patience);
        state().mode = AppMode::single;
        QTRY_VERIFY_WITH_TIMEOUT(shown("history0"), patience);
    }

    void aFinishedDownloadAppearsInFront()
    {
        QVERIFY(fill(2));
        state().singleInfo = video();
        state().startSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(
            state().history().size() == 3 && shown("history0") && shown("history2"), patience);
        QCOMPARE(item("history0")->property("title").toString(), u"Title a"_s);
    }

    void revealIsHiddenWithoutASavedPath()
    {
        QVERIFY(fill(2));
        QVERIFY(shown("reveal0"));
        QVERIFY(!shown("reveal1"));
        QVERIFY(shown("refetch1"));
        QCOMPARE(item("reveal0")->property("help").toString(), u"Show in Finder"_s);
        QCOMPARE(item("refetch0")->property("help").toString(), u"Re-fetch"_s);
    }

    void revealByMouseShowsTheFile()
    {
        QVERIFY(fill(1));
        writeFile(m_fixture->folder.filePath(u"0.mp4"_s), "x");
        click("reveal0");
        QCOMPARE(m_fixture->desktop.fileViewer->selected.last(),
                 m_fixture->folder.filePath(u"0.mp4"_s));
    }

    void refetchByMouseFetchesInSingleMode()
    {
        QVERIFY(fill(2));
        m_fixture->tool.respond(R"(print {"id":"i","title":"Again"})");
        state().mode = AppMode::multi;
        QTRY_VERIFY_WITH_TIMEOUT(shown("refetch1"), patience);
        click("refetch1");
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoTitle"), patience);
        QVERIFY(state().mode() == AppMode::single);
        QCOMPARE(textOf("urlField"), u"https://x/watch?v=1"_s);
        QCOMPARE(textOf("videoTitle"), u"Again"_s);
        QCOMPARE(m_fixture->tool.calls().last().last(), u"https://x/watch?v=1"_s);
    }

    void refetchInMidScrollGoesToTheTop()
    {
        QVERIFY(fill(200));
        m_fixture->tool.respond(R"(print {"id":"i","title":"Again"})");
        item("page")->setProperty("contentY", 60 * 52 - 100);
        QTRY_VERIFY_WITH_TIMEOUT(shown("refetch60"), patience);
        click("refetch60");
        QCOMPARE(state().singleURL(), u"https://x/watch?v=60"_s);
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoTitle"), patience);
        QVERIFY(sceneY("videoTitle") > 0);
    }

    void spaceDoesNothingOnARowWithoutFile()
    {
        QVERIFY(fill(2));
        QVERIFY(focusByTab("historyRows"));
        press(Qt::Key_Down);
        QVERIFY(focusIsIn(item("history1")));
        press(Qt::Key_Space);
        press(Qt::Key_Return);
        QVERIFY(!state().isFetching());
        press(Qt::Key_Up);
        QVERIFY(focusIsIn(item("history0")));
        writeFile(m_fixture->folder.filePath(u"0.mp4"_s), "x");
        m_fixture->desktop.fileViewer->selected.clear();
        press(Qt::Key_Enter);
        QCOMPARE(m_fixture->desktop.fileViewer->selected.size(), 1);
    }

    void focusReturnsToTheWholeRow()
    {
        QVERIFY(fill(1));
        QVERIFY(focusByTab("historyRows"));
        const QQuickItem *const face = m_window->activeFocusItem();
        QTRY_VERIFY_WITH_TIMEOUT(item("reveal0")->activeFocusOnTab(), patience);
        press(Qt::Key_Tab);
        QCOMPARE(m_window->activeFocusItem(), item("reveal0"));
        QVERIFY(focusByTab("clearHistory"));
        press(Qt::Key_Tab);
        QCOMPARE(m_window->activeFocusItem(), face);
    }

    void rowsAreReachedAndUsedByKeyboard()
    {
        QVERIFY(fill(3));
        m_fixture->tool.respond(R"(print {"id":"i","title":"Again"})");
        QVERIFY(focusByTab("historyRows"));
        QVERIFY(focusIsIn(item("history0")));
        press(Qt::Key_Down);
        QVERIFY(focusIsIn(item("history1")));
        press(Qt::Key_Down);
        QVERIFY(focusIsIn(item("history2")));
        press(Qt::Key_Tab);
        QCOMPARE(m_window->activeFocusItem(), item("reveal2"));
        press(Qt::Key_Tab);
        QCOMPARE(m_window->activeFocusItem(), item("refetch2"));
        press(Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoTitle"), patience);
        QCOMPARE(state().singleURL(), u"https://x/watch?v=2"_s);
    }

    void tabStopsAtOneRowOnly()
    {
        QVERIFY(fill(3));
        QVERIFY(focusByTab("clearHistory"));
        QStringList reached;
        for (int step = 0; step < 3; ++step) {
            press(Qt::Key_Tab);
            reached.append(focusIsIn(item("reveal0"))        ? u"reveal0"_s
                               : focusIsIn(item("refetch0")) ? u"refetch0"_s
                               : focusIsIn(item("history0")) ? u"history0"_s
                                                             : u"elsewhere"_s);
        }
        QCOMPARE(reached, QStringList({u"history0"_s, u"reveal0"_s, u"refetch0"_s}));
        press(Qt::Key_Tab);
        QVERIFY(!focusIsIn(item("historyRows")));
    }

    void onlyVisibleRowsOfTenThousandExist()
    {
        QVERIFY(fill(10'000));
        m_window->grabWindow();
        QTRY_VERIFY_WITH_TIMEOUT(
            item("history11"),
            patience); // of a row in the making Qt warns when the list is emptied
        QVERIFY(numbered("historyRows", u"history"_s) <= 40);
        QVERIFY(focusByTab("historyRows"));
        press(Qt::Key_End);
        QVERIFY(focusIsIn(item("history9999")));
        m_window->grabWindow();
        QVERIFY(numbered("historyRows", u"history"_s) <= 40);
        QVERIFY(item("history9999")->mapToScene({0, 52}).y() <= m_window->height());
    }

    void aRowAndItsActionsHaveAccessibleNames()
    {
        QVERIFY(fill(1));
        QCOMPARE(accessible("history0")->text(QAccessible::Name),
                 u"Video 0, 1 hr. ago, MP4 · 1080p"_s);
        QVERIFY(accessible("history0")->role() == QAccessible::ListItem);
        QCOMPARE(accessible("reveal0")->text(QAccessible::Name), u"Show in Finder"_s);
        QCOMPARE(accessible("refetch0")->text(QAccessible::Name), u"Re-fetch"_s);
        QVERIFY(accessible("refetch0")->role() == QAccessible::Button);
        accessible("refetch0")
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(state().singleURL(), u"https://x/watch?v=0"_s);
    }

private:
    /// "Video 0", "Video 1" ...; every second one with a saved path.
    [[nodiscard]] bool fill(int count)
    {
        AppState::History records;
        for (int number = 0; number < count; ++number) {
            HistoryItem record{.id = QUuid::createUuid(),
                               .title = u"Video %1"_s.arg(number),
                               .thumbnailURL = {},
                               .url = u"https://x/watch?v=%1"_s.arg(number),
                               .format = u"mp4"_s,
                               .quality = u"1080p"_s,
                               .savedPath = {},
                               .date = {.seconds = ReferenceDate::now().seconds - 3700}};
            if (number % 2 == 0)
                record.savedPath = m_fixture->folder.filePath(u"%1.mp4"_s.arg(number));
            records.append(record);
        }
        state().history = records;
        return waitFor([&] { return shown("history0") && (count < 2 || shown("history1")); });
    }
};

QTEST_MAIN(HistoryTest)
#include "HistoryTest.moc"
