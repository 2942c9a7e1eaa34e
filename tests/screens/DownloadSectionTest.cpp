// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

#include <QClipboard>

/// Stopping a download of single mode, and what is said of one that has failed.
class DownloadSectionTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aScreenReaderHearsWhatIsChosen()
    {
        QAccessible::setActive(true);
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("format0"), patience);
        QVERIFY(accessible("format0")->state().checked);
        QVERIFY(!accessible("format1")->state().checked);
        click("format1");
        QVERIFY(accessible("format1")->state().checked && !accessible("format0")->state().checked);
        click("format1"); // stays
        QVERIFY(accessible("format1")->state().checked);
    }

    void stopStandsBesidePauseDuringARun()
    {
        QVERIFY(start());
        QCOMPARE(accessible("stop")->text(QAccessible::Name), u"Stop download"_s);
        const QQuickItem *const pause = item("pause");
        const QQuickItem *const stop = item("stop");
        QVERIFY(stop->mapToScene({}).x() >= pause->mapToScene({pause->width(), 0}).x() + 8);
        QCOMPARE(stop->height(), pause->height());
    }

    void stoppingByMouseSaysStopped()
    {
        QVERIFY(start());
        click("stop");
        QTRY_VERIFY_WITH_TIMEOUT(shown("failure"), patience);
        QCOMPARE(textOf("failureText"), u"Stopped."_s);
        QTRY_VERIFY_WITH_TIMEOUT(!shown("pause"), patience);
    }

    void stoppingByKeyWorksInEveryMode()
    {
        QVERIFY(start());
        state().mode = AppMode::browse;
        QTest::keyClick(m_window, Qt::Key_Period, Qt::ControlModifier);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isDownloading(), patience);
    }

    void afterStoppingByKeyDownloadHasTheFocus()
    {
        QVERIFY(start());
        QVERIFY(focusByTab("stop"));
        press(Qt::Key_Space);
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("download")), patience);
    }

    void aFailureShowsAtMostThreeLines()
    {
        QVERIFY(fail(QByteArray("ERROR: ") + QByteArray("a long reason ").repeated(200)));
        const QQuickItem *const label = item("failureText");
        QVERIFY(label->property("contentHeight").toDouble() > label->height());
        QVERIFY(item("failure")->height() < 90);
        hover(label);
        QTRY_VERIFY_WITH_TIMEOUT(tip().endsWith(u"a long reason"_s), patience);
    }

    void aShortFailureHasNoTooltip()
    {
        QVERIFY(fail("ERROR: gone"));
        QCOMPARE(textOf("failureText"), u"Download failed: ERROR: gone"_s);
        QVERIFY(!item("failureText")->property("isCut").toBool());
    }

    void aFailureIsCopied()
    {
        QVERIFY(fail("ERROR: gone"));
        QVERIFY(focusByTab("copyFailure"));
        press(Qt::Key_Space);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"Download failed: ERROR: gone"_s);
    }

    void aFailuresTextCanBeSelected()
    {
        QVERIFY(fail("ERROR: gone"));
        QVERIFY(focusByTab("failureText"));
        QTest::keyClick(m_window, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(item("failureText")->property("selectedText").toString(),
                 u"Download failed: ERROR: gone"_s);
    }

    void tabLeavesTheFailuresText()
    {
        QVERIFY(fail("ERROR: gone"));
        QVERIFY(focusByTab("failureText"));
        press(Qt::Key_Tab);
        QVERIFY(focusIsIn(item("copyFailure")));
    }

    void theNextRunTakesTheFailureAway()
    {
        QVERIFY(fail("ERROR: gone"));
        m_fixture->tool.respond("");
        click("download");
        QTRY_VERIFY_WITH_TIMEOUT(shown("showInFinder"), patience);
        QTRY_VERIFY_WITH_TIMEOUT(!shown("failure"), patience);
    }

private:
    /// A download that goes on until it is stopped.
    [[nodiscard]] bool start()
    {
        m_fixture->tool.respond("wait go");
        return show() && waitFor([&] { return shown("stop"); });
    }
    [[nodiscard]] bool fail(const QByteArray &message)
    {
        m_fixture->tool.respond("fail " + message);
        return show() && waitFor([&] { return shown("failure"); })
            && waitFor([&] { return hasEntered(item("failure")); });
    }
    bool show()
    {
        state().singleInfo = video();
        if (!waitFor([&] { return shown("download"); }))
            return false;
        click("download");
        return true;
    }
};

QTEST_MAIN(DownloadSectionTest)
#include "DownloadSectionTest.moc"
