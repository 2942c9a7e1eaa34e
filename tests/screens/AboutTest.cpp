// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

#include <QMimeData>

/// The About window, and what is dropped onto the main one.
class AboutTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void theMenuOpensIt()
    {
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QTest::mouseClick(m_window, Qt::LeftButton, {}, {30, 12});
        QTRY_VERIFY_WITH_TIMEOUT(m_window->activeFocusItem()
                                     && m_window->activeFocusItem()->inherits("QQuickPopupItem"),
                                 patience);
        QTest::keyClick(m_window, Qt::Key_Down);
        QTest::keyClick(m_window, Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(!windows().isEmpty(), patience);
        windows().first()->close();
        QTRY_VERIFY_WITH_TIMEOUT(windows().isEmpty(), patience);
    }

    void aboutTwiceBringsTheSameWindowForward()
    {
        ask();
        QCOMPARE(windows().size(), 1);
        const QPointer<QWindow> first = windows().first();
        QVERIFY(QTest::qWaitForWindowExposed(first));
        QCOMPARE(first->title(), u"About Quillon"_s);
        QCOMPARE(first->width(), 300);
        ask();
        QCOMPARE(windows(), QList<QWindow *>{first});
        QVERIFY(QTest::qWaitForWindowActive(first));
        first->close();
        QTRY_VERIFY_WITH_TIMEOUT(windows().isEmpty(), patience);
    }

    void aboutReopensAsAFreshCenteredWindow()
    {
        ask();
        const QPointer<QWindow> first = windows().first();
        first->setPosition(5, 5);
        first->close();
        QTRY_VERIFY_WITH_TIMEOUT(first.isNull(), patience);
        ask();
        QCOMPARE(windows().size(), 1);
        const QWindow *const second = windows().first();
        const QPoint middle = second->screen()->geometry().center();
        QVERIFY((second->geometry().center() - middle).manhattanLength() <= 2);
        windows().first()->close();
        QTRY_VERIFY_WITH_TIMEOUT(windows().isEmpty(), patience);
    }

    void itCannotBeResizedAndEscapeClosesIt()
    {
        ask();
        QWindow *const window = windows().first();
        QCOMPARE(window->minimumSize(), window->maximumSize());
        QVERIFY(!(window->flags() & Qt::WindowMinimizeButtonHint));
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(windows().isEmpty(), patience);
    }

    void theMenusKeysWorkInItToo()
    {
        ask();
        QWindow *const window = windows().first();
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_M, Qt::ControlModifier);
        QVERIFY(state().mode() == AppMode::multi);
        window->close();
        QTRY_VERIFY_WITH_TIMEOUT(windows().isEmpty(), patience);
    }

    void droppedTextFillsTheFieldWithoutFetching()
    {
        QMimeData text;
        text.setText(u"  \n https://x/watch?v=a \nmore"_s);
        drop(text);
        QCOMPARE(state().singleURL(), u"https://x/watch?v=a"_s);
        QVERIFY(!state().isFetching());
        state().mode = AppMode::browse;
        QMimeData words;
        words.setText(u"wooden boats"_s);
        drop(words);
        QCOMPARE(state().browseSearchQuery(), u"wooden boats"_s);
        QCOMPARE(state().singleURL(), u"https://x/watch?v=a"_s);
    }

    void aDroppedLinkLandsInTheField()
    {
        QMimeData link;
        link.setUrls({QUrl(u"https://x/watch?v=b%20%C3%A9"_s)});
        state().mode = AppMode::multi;
        drop(link);
        QCOMPARE(state().multiURL(), u"https://x/watch?v=b%20%C3%A9"_s);
        QCOMPARE(textOf("urlField"), u"https://x/watch?v=b%20%C3%A9"_s);
        state().multiURL = QString();
    }

    void nothingToDropChangesNothing()
    {
        state().singleURL = u"before"_s;
        QMimeData blank;
        blank.setText(u" \n "_s);
        drop(blank);
        QMimeData noLink;
        noLink.setData(u"text/uri-list"_s, QByteArray());
        drop(noLink);
        QCOMPARE(state().singleURL(), u"before"_s);
    }

private:
    void ask()
    {
        // Where there is no window manager.
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
        QVERIFY(QMetaObject::invokeMethod(m_window->property("menuBar").value<QObject *>(),
                                          "aboutRequested"));
    }

    static QList<QWindow *> windows()
    {
        QList<QWindow *> found;
        const QList<QWindow *> all = QGuiApplication::topLevelWindows();
        for (QWindow *const each : all) {
            if (each->objectName() == u"aboutWindow" && each->isVisible())
                found.append(each);
        }
        return found;
    }

    void drop(QMimeData &data)
    {
        const QPoint place(400, 400);
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_window, &enter);
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_window, &move);
        QDropEvent fall(place, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_window, &fall);
    }
};

QTEST_MAIN(AboutTest)
#include "AboutTest.moc"
