// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

/// The window without a mouse.
class KeyboardTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void tabReachesEveryControlInOrder()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        QVERIFY(focusField());
        typeText("x");
        QTRY_VERIFY_WITH_TIMEOUT(shown("clearField"), patience);
        QStringList reached;
        for (int step = 0; step < 20; ++step) {
            QTest::keyClick(m_window, Qt::Key_Tab);
            const QString name = m_window->activeFocusItem()->objectName();
            if (name == u"urlField")
                break;
            reached.append(name);
        }
        const QStringList expected{u"clearField"_s,  u"submit"_s,       u"videoCard"_s,
                                   u"format0"_s,     u"format1"_s,      u"qualityBest"_s,
                                   u"quality4K"_s,   u"quality1440p"_s, u"quality1080p"_s,
                                   u"quality720p"_s, u"quality480p"_s,  u"quality360p"_s,
                                   u"download"_s};
        QCOMPARE(reached.mid(0, expected.size()), expected);
    }

    void submittingBySpaceKeepsFocusInTheField()
    {
        m_fixture->tool.respond("wait fetch\n"
                                "exit 1");
        QVERIFY(focusField());
        typeText("https://x/watch?v=i");
        QVERIFY(focusByTab("submit"));
        press(Qt::Key_Space);
        QVERIFY(state().isFetching());
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("urlField"), patience);
        m_fixture->tool.open("fetch");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isFetching(), patience);
    }

    void aMenuOpensAndRunsByItsMnemonic()
    {
        QTest::keyClick(m_window, Qt::Key_D, Qt::AltModifier);
        QTRY_VERIFY_WITH_TIMEOUT(m_window->activeFocusItem()
                                     && m_window->activeFocusItem()->inherits("QQuickPopupItem"),
                                 patience);
        QTest::keyClick(m_window, Qt::Key_Down); // to "Fetch Info"
        QTest::keyClick(m_window, Qt::Key_Down); // past what is disabled
        QTest::keyClick(m_window, Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(state().mode(), AppMode::multi, patience);
    }

    void focusMovesToTheFieldWhenTheMixedBarLeaves()
    {
        QVERIFY(focusField());
        typeText("https://www.youtube.com/watch?v=a&list=b");
        QTRY_VERIFY_WITH_TIMEOUT(shown("fullPlaylist"), patience);
        item("fullPlaylist")->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(m_window, Qt::Key_M, Qt::ControlModifier);
        QTRY_VERIFY_WITH_TIMEOUT(!item("fullPlaylist"), patience);
        QVERIFY(item("urlField")->hasActiveFocus());
    }

    void focusMovesFromDownloadToPauseToReveal()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        m_fixture->tool.respond("wait keyboard");
        item("download")->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(m_window, Qt::Key_Space);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("pause"), patience);
        m_fixture->tool.open("keyboard");
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("showInFinder"), patience);
    }

    void focusReturnsToDownloadAfterAFailure()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        m_fixture->tool.respond("wait fails\n"
                                "exit 1");
        item("download")->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(m_window, Qt::Key_Space);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("pause"), patience);
        m_fixture->tool.open("fails");
        QTRY_COMPARE_WITH_TIMEOUT(m_window->activeFocusItem(), item("download"), patience);
    }

    void downloadingByMouseDoesNotMoveFocus()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        QVERIFY(focusField());
        m_fixture->tool.respond("");
        click("download");
        QTRY_VERIFY_WITH_TIMEOUT(shown("showInFinder"), patience);
        QVERIFY(m_window->activeFocusItem() != item("showInFinder"));
    }
};

QTEST_MAIN(KeyboardTest)
#include "KeyboardTest.moc"
