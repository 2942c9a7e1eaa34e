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
        WAIT_FOR(shown("download"));
        focusField();
        typeText("x");
        WAIT_FOR(shown("clearField"));
        QStringList reached;
        for (int step = 0; step < 20; ++step) {
            QTest::keyClick(m_window, Qt::Key_Tab);
            const QString name = m_window->activeFocusItem()->objectName();
            if (name == u"urlField")
                break;
            reached.append(name);
        }
        const QStringList expected{u"clearField"_s,   u"submit"_s,       u"format0"_s,
                                   u"format1"_s,      u"qualityBest"_s,  u"quality4K"_s,
                                   u"quality1440p"_s, u"quality1080p"_s, u"quality720p"_s,
                                   u"quality480p"_s,  u"quality360p"_s,  u"download"_s};
        QCOMPARE(reached.mid(0, expected.size()), expected);
    }

    void submittingBySpaceLeavesTheKeyboardInTheField()
    {
        m_fixture.tool.setScript(m_fixture.tool.gate("fetch") + "exit 1");
        focusField();
        typeText("https://x/watch?v=i");
        focusByTab("submit");
        press(Qt::Key_Space);
        QVERIFY(state().isFetching());
        WAIT_FOR(m_window->activeFocusItem() == item("urlField"));
        m_fixture.tool.open("fetch");
        WAIT_FOR(!state().isFetching());
    }

    void aMenuOpensByItsLetterAndRunsItsCommand()
    {
        QTest::keyClick(m_window, Qt::Key_D, Qt::AltModifier);
        WAIT_FOR(m_window->activeFocusItem()
                 && m_window->activeFocusItem()->inherits("QQuickPopupItem"));
        QTest::keyClick(m_window, Qt::Key_Down); // to "Fetch Info"
        QTest::keyClick(m_window, Qt::Key_Down); // past what is disabled
        QTest::keyClick(m_window, Qt::Key_Return);
        WAIT_FOR(state().mode() == AppMode::multi);
    }

    void theKeyboardGoesFromTheMixedBarToTheFieldWhenTheBarLeaves()
    {
        focusField();
        typeText("https://www.youtube.com/watch?v=a&list=b");
        WAIT_FOR(shown("fullPlaylist"));
        item("fullPlaylist")->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(m_window, Qt::Key_M, Qt::ControlModifier);
        WAIT_FOR(!item("fullPlaylist"));
        QVERIFY(item("urlField")->hasActiveFocus());
    }

    void theKeyboardGoesFromDownloadToPauseToShowInFinder()
    {
        state().singleInfo = video();
        WAIT_FOR(shown("download"));
        m_fixture.tool.setScript(m_fixture.tool.gate("keyboard"));
        item("download")->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(m_window, Qt::Key_Space);
        WAIT_FOR(m_window->activeFocusItem() == item("pause"));
        m_fixture.tool.open("keyboard");
        WAIT_FOR(m_window->activeFocusItem() == item("showInFinder"));
    }

    void afterAFailureTheKeyboardIsAtDownloadAgain()
    {
        state().singleInfo = video();
        WAIT_FOR(shown("download"));
        m_fixture.tool.setScript(m_fixture.tool.gate("fails") + "exit 1");
        item("download")->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(m_window, Qt::Key_Space);
        WAIT_FOR(m_window->activeFocusItem() == item("pause"));
        m_fixture.tool.open("fails");
        WAIT_FOR(m_window->activeFocusItem() == item("download"));
    }

    void aDownloadByMouseLeavesTheKeyboardWhereItWas()
    {
        state().singleInfo = video();
        WAIT_FOR(shown("download"));
        focusField();
        m_fixture.tool.setScript("exit 0");
        click("download");
        WAIT_FOR(shown("showInFinder"));
        QVERIFY(m_window->activeFocusItem() != item("showInFinder"));
    }
};

QTEST_MAIN(KeyboardTest)
#include "KeyboardTest.moc"
