// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

/// The queue in multi mode.
class QueueScreenTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyQueueSaysHowItIsFilled()
    {
        QVERIFY(show(0));
        QTRY_VERIFY_WITH_TIMEOUT(shown("emptyQueue"), patience);
        QVERIFY(!shown("startQueue") && !shown("queueCount"));
    }

    void submittingEmptiesTheFieldAndAddsARow()
    {
        QVERIFY(show(0));
        m_fixture->tool.respond(R"(print {"id":"i","title":"T"})");
        QVERIFY(focusField());
        typeText("https://x/1");
        QTest::keyClick(m_window, Qt::Key_Return);
        QCOMPARE(state().multiURL(), QString());
        QCOMPARE(textOf("urlField"), QString());
        QTRY_VERIFY_WITH_TIMEOUT(shown("queue0"), patience);
        QTRY_COMPARE_WITH_TIMEOUT(item("queue0")->property("title").toString(), u"T"_s, patience);
        QCOMPARE(textOf("queueCount"), u"1"_s);
        QCOMPARE(textOf("startQueue"), u"Download 1 Video"_s);
    }

    void returnOnBlanksEmptiesTheField()
    {
        QVERIFY(show(0));
        QVERIFY(focusField());
        typeText("  ");
        QVERIFY(item("submit")->isEnabled());
        QTest::keyClick(m_window, Qt::Key_Return);
        QCOMPARE(state().multiURL(), QString());
        QVERIFY(state().queue().isEmpty());
    }

    void aRunByMouseWithPauseAndResume()
    {
        QVERIFY(show(1));
        QVERIFY(!shown("pauseQueue"));
        m_fixture->tool.respond("print [download]  42.5% of 1MiB at 2MiB/s ETA 00:42\n"
                                "wait run");
        click("startQueue");
        QTRY_VERIFY_WITH_TIMEOUT(shown("pauseQueue"), patience);
        QVERIFY(!item("startQueue")->isEnabled());
        QCOMPARE(textOf("startQueue"), u"Downloading..."_s);
        QCOMPARE(textOf("queuePosition"), u"1 / 1"_s);
        QTRY_VERIFY_WITH_TIMEOUT(
            shown("ring") && item("ring")->property("progress").toDouble() > 0.4, patience);
        click("pauseQueue");
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(m_fixture->tool.processIdentifiers().last()),
                                  QByteArray("T"), patience);
        QCOMPARE(item("pauseQueue")->property("help").toString(), u"Resume queue"_s);
        QVERIFY(!shown("ring"));
        QVERIFY(accessible("queue0")->text(QAccessible::Name).contains(u"Paused"));
        click("pauseQueue");
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(m_fixture->tool.processIdentifiers().last()) != "T",
                                 patience);
        m_fixture->tool.open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!shown("pauseQueue"), patience);
        QCOMPARE(textOf("startQueue"), u"Nothing to download"_s);
        QVERIFY(!item("startQueue")->isEnabled());
    }

    void clickingTheFieldAfterARunKeepsFocus()
    {
        QVERIFY(show(1));
        m_fixture->tool.respond("wait run");
        click("startQueue");
        QTRY_VERIFY_WITH_TIMEOUT(shown("pauseQueue"), patience);
        click("pauseQueue");
        click("pauseQueue");
        m_fixture->tool.open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!shown("pauseQueue"), patience);
        click("urlField");
        QCoreApplication::processEvents();
        typeText("more");
        QCOMPARE(textOf("urlField"), u"more"_s);
        state().multiURL = QString();
    }

    void startingByKeyFocusesPauseThenTheRows()
    {
        QVERIFY(show(1));
        m_fixture->tool.respond("wait run");
        QVERIFY(focusByTab("startQueue"));
        QCOMPARE(accessible("startQueue")->text(QAccessible::Description), QString());
        QTest::keyClick(m_window, Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("pauseQueue"), patience);
        QCOMPARE(accessible("startQueue")->text(QAccessible::Description), u"Unavailable"_s);
        m_fixture->tool.open("run");
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("queue0")), patience);
    }

    void removingTheLastEntryFocusesTheField()
    {
        QVERIFY(show(1));
        QVERIFY(focusByTab("queueRows"));
        QTest::keyClick(m_window, Qt::Key_Delete);
        QVERIFY(state().queue().isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(shown("emptyQueue"), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("urlField"), patience);
    }

    void clearingTheQueueByKeyFocusesTheField()
    {
        QVERIFY(show(2));
        QVERIFY(focusByTab("clearQueue"));
        press(Qt::Key_Space);
        QTRY_VERIFY_WITH_TIMEOUT(shown("emptyQueue"), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("urlField"), patience);
    }

    void aHiddenPauseButtonTakesNoKeys()
    {
        QVERIFY(show(1));
        m_fixture->tool.respond("wait run");
        click("startQueue");
        QTRY_VERIFY_WITH_TIMEOUT(shown("pauseQueue"), patience);
        click("pauseQueue");
        click("pauseQueue");
        m_fixture->tool.open("run");
        QTRY_VERIFY_WITH_TIMEOUT(!shown("pauseQueue"), patience);
        QTRY_VERIFY_WITH_TIMEOUT(!focusIsIn(item("pauseQueue")), patience);
        press(Qt::Key_Space);
        QVERIFY(!state().isPaused());
    }

    void aRowIsRemovedByMouse()
    {
        QVERIFY(show(2));
        hover(item("queue0"));
        QTRY_VERIFY_WITH_TIMEOUT(shown("remove0"), patience);
        click("remove0");
        QCOMPARE(state().queue().size(), 1);
        QCOMPARE(state().queue()[0]->url, u"https://x/1"_s);
    }

    void clickingAFinishedNameRevealsItsFile()
    {
        QVERIFY(show(1));
        const QString path = m_fixture->folder.filePath(u"a.mp4"_s);
        writeFile(path, "x");
        state().queue()[0]->status = Status::Done{path};
        QTRY_VERIFY_WITH_TIMEOUT(find(item("queue0"), u"statusLine"_s)->isVisible(), patience);
        m_window->grabWindow();
        QTest::mouseClick(m_window, Qt::LeftButton, {},
                          startOf(find(item("queue0"), u"statusLine"_s)));
        QCOMPARE(m_fixture->desktop.fileViewer->selected, QStringList{path});
    }

    void aLongMessageIsElidedButWholeInItsTooltip()
    {
        QVERIFY(show(2));
        state().queue()[0]->status = Status::Failed{u"first\nsecond\nthird\n"_s};
        QQuickItem *const line = find(item("queue0"), u"statusLine"_s);
        QTRY_VERIFY_WITH_TIMEOUT(line->isVisible(), patience);
        m_window->grabWindow();
        QCOMPARE(line->property("text").toString(), u"first second third"_s);
        QVERIFY(line->height() < 20);
        QCOMPARE(accessible("queue0")->text(QAccessible::Description), u"first\nsecond\nthird"_s);
        hover(find(item("queue0"), u"line"_s));
        QTRY_COMPARE_WITH_TIMEOUT(tip(), u"first\nsecond\nthird"_s, patience);
        hover(item("queueCount"));
        QTRY_VERIFY_WITH_TIMEOUT(tip().isEmpty(), patience);
    }

    void anEnormousMessageIsCutBeforeItIsShown()
    {
        QVERIFY(show(2));
        state().queue()[0]->status = Status::Failed{QString(3'000'000, u'x')};
        QTRY_VERIFY_WITH_TIMEOUT(find(item("queue0"), u"statusLine"_s)->isVisible(), patience);
        QVERIFY(longestText(m_window->contentItem()) < 11'000);
        QVERIFY(accessible("queue0")->text(QAccessible::Name).size() < 11'000);
        QVERIFY(accessible("queue0")->text(QAccessible::Description).size() < 11'000);
    }

    void aMissingPictureShowsASymbol()
    {
        QVERIFY(show(2));
        state().queue()[1]->info = video();
        QTRY_COMPARE_WITH_TIMEOUT(symbolOf(1), u"photo"_s, patience);
        QCOMPARE(symbolOf(0), u"play.rectangle.fill"_s);
    }

    void rowsAreUsedByKeyboard()
    {
        QVERIFY(show(4));
        const QString path = m_fixture->folder.filePath(u"a.mp4"_s);
        writeFile(path, "x");
        state().queue()[1]->status = Status::Done{path};
        QVERIFY(focusByTab("queueRows"));
        QTest::keyClick(m_window, Qt::Key_Return); // waiting: nothing to reveal
        QVERIFY(m_fixture->desktop.fileViewer->selected.isEmpty());
        QTest::keyClick(m_window, Qt::Key_Down);
        QVERIFY(focusIsIn(item("queue1")));
        QTest::keyClick(m_window, Qt::Key_Return);
        QCOMPARE(m_fixture->desktop.fileViewer->selected, QStringList{path});
        QTest::keyClick(m_window, Qt::Key_Delete);
        QCOMPARE(state().queue().size(), 3);
        // The keyboard goes on at the next row.
        QTRY_VERIFY_WITH_TIMEOUT(
            m_window->activeFocusItem() && m_window->activeFocusItem()->parentItem()
                && m_window->activeFocusItem()->parentItem()->property("title") == u"https://x/2"_s,
            patience);
        QTest::keyClick(m_window, Qt::Key_Delete);
        QCOMPARE(state().queue().size(), 2);
    }

    void clearDoneRemovesWaitingAndFailedEntriesToo()
    {
        QVERIFY(show(3));
        state().queue()[0]->status = Status::Failed{u"no"_s};
        state().queue()[1]->status = Status::Processing{};
        click("clearQueue");
        QCOMPARE(state().queue().size(), 1);
        QVERIFY(state().queue()[0]->status() == DownloadStatus(Status::Processing{}));
    }

    void aReportMakesNoNewRow()
    {
        QVERIFY(show(3));
        const QQuickItem *const row = item("queue1");
        for (int report = 0; report < 10; ++report)
            state().queue()[1]->status =
                Status::Downloading{report / 10.0, u"1MiB/s"_s, u"00:01"_s};
        m_window->grabWindow();
        QCOMPARE(item("queue1"), row);
        QCOMPARE(find(item("queue1"), u"ring"_s)->property("progress").toDouble(), 0.9);
    }

    void ofThousandsOnlyThoseInSightAreAlive()
    {
        QVERIFY(show(2000));
        m_window->grabWindow();
        // The row after the last in sight comes when there is time.
        QTRY_VERIFY_WITH_TIMEOUT(item("queue6"), patience);
        QVERIFY(numbered("queueRows", u"queue"_s) <= 20);
    }

    void aRowTellsTitleStatusAndMessage()
    {
        QVERIFY(show(2));
        state().queue()[0]->status = Status::Failed{u"Download failed: no\n"_s};
        QCOMPARE(accessible("queue0")->text(QAccessible::Name),
                 u"https://x/0, Failed, Download failed: no"_s);
        QVERIFY(accessible("queue0")->role() == QAccessible::ListItem);
        QCOMPARE(accessible("remove0")->text(QAccessible::Name), u"Remove"_s);
    }

private:
    QString symbolOf(int row)
    {
        return find(item(qPrintable(u"queue%1"_s.arg(row))), u"placeholder"_s)
            ->property("symbol")
            .toString();
    }

    static QPoint startOf(const QQuickItem *text)
    {
        return text->mapToScene({25, text->height() / 2}).toPoint();
    }

    static qsizetype longestText(const QQuickItem *parent)
    {
        qsizetype longest = parent->property("text").toString().size();
        const QList<QQuickItem *> children = parent->childItems();
        for (const QQuickItem *const child : children)
            longest = std::max(longest, longestText(child));
        return longest;
    }

    [[nodiscard]] bool show(int count)
    {
        AppState::Queue queue;
        for (int number = 0; number < count; ++number)
            queue.append(std::make_shared<DownloadItem>(u"https://x/%1"_s.arg(number)));
        m_fixture->desktop.fileViewer->selected.clear();
        state().queue = queue;
        state().mode = AppMode::multi;
        return waitFor(
            [&] { return count == 0 || (shown("queue0") && (count < 2 || shown("queue1"))); });
    }
};

QTEST_MAIN(QueueScreenTest)
#include "QueueScreenTest.moc"
