// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"

/// The bars for position and volume over the picture.
class PlayerBarsTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void thePositionBarSeeksByClickAndDrag()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        engine()->events.statusChanged({.position = 0, .duration = 100});
        state().avPlayer.pause(); // so that the controls stay
        QTRY_VERIFY_WITH_TIMEOUT(shown("positionBar"), patience);
        m_window->grabWindow();
        const QPoint middle = centreOf("positionBar");
        QTest::mousePress(m_window, Qt::LeftButton, {}, middle);
        QTRY_COMPARE_WITH_TIMEOUT(engine()->sought.size(), 1, patience);
        QTest::mouseMove(m_window, middle + QPoint(60, 0));
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, middle + QPoint(60, 0));
        QVERIFY(engine()->sought.size() >= 2);
        QVERIFY(std::abs(engine()->sought.first() - 50) < 1.5); // not rounded to steps
        QVERIFY(engine()->sought.last() > engine()->sought.first() + 5);
        QVERIFY(accessible("positionBar")->role() == QAccessible::Slider);
    }

    void thePositionBarMovesByItsKeys()
    {
        QVERIFY(playPaused({.position = 50, .duration = 100}));
        QVERIFY(focusByTab("positionBar"));
        press(Qt::Key_Right);
        QCOMPARE(engine()->sought, QList<double>{55});
    }

    /// A screen reader speaks each change of the control that has the keyboard.
    void aFocusedPositionBarTellsOnlyWhatTheKeysDo()
    {
        QVERIFY(playPaused({.position = 50, .duration = 100}));
        QVERIFY(focusByTab("positionBar"));
        const QQuickItem *const handle =
            item("positionBar")->property("handle").value<QQuickItem *>();
        const double before = handle->x();
        engine()->events.statusChanged({.position = 60, .duration = 100});
        QVERIFY(handle->x() > before);
        QCOMPARE(item("positionBar")->property("value").toDouble(), 50.0);
        press(Qt::Key_Right);
        QCOMPARE(engine()->sought, QList<double>{65});
        QCOMPARE(item("positionBar")->property("value").toDouble(), 65.0);
        press(Qt::Key_Tab);
        engine()->events.statusChanged({.position = 70, .duration = 100});
        QCOMPARE(item("positionBar")->property("value").toDouble(), 70.0);
    }

    void aShortItemIsSoughtInFinely()
    {
        QVERIFY(playPaused({.position = 0, .duration = 6}));
        click("positionBar");
        QVERIFY(std::abs(engine()->sought.last() - 3) < 0.2);
        engine()->events.statusChanged({.position = 4, .duration = 6});
        QCOMPARE(item("positionBar")->property("value").toDouble(), 4.0);
    }

    void draggingToTheEndEndsOnlyOnRelease()
    {
        QVERIFY(playPaused({.position = 0, .duration = 100}));
        const QPoint middle = centreOf("positionBar");
        const QPoint end = middle + QPoint(static_cast<int>(item("positionBar")->width() / 2), 0);
        QTest::mousePress(m_window, Qt::LeftButton, {}, middle);
        QTest::mouseMove(m_window, end);
        QTRY_VERIFY_WITH_TIMEOUT(!engine()->sought.isEmpty(), patience);
        QCOMPARE(engine()->sought.last(), 99.5);
        QTest::mouseRelease(m_window, Qt::LeftButton, {}, end);
        QCOMPARE(engine()->sought.last(), 100.0);
    }

    void theBarShowsHowFarItIsLoaded()
    {
        QVERIFY(playPaused({.position = 10, .duration = 100, .loadedTo = 60}));
        QCOMPARE(item("positionBar")->property("mark").toDouble(), 60.0);
        QCOMPARE(item("positionBar")->property("to").toDouble(), 100.0);
    }

    void theVolumeBarSetsVolumeAndUnmutes()
    {
        QVERIFY(playPaused({.position = 10, .duration = 100}));
        click("mute");
        QVERIFY(engine()->isMuted);
        QCOMPARE(accessible("mute")->text(QAccessible::Name), u"Unmute"_s);
        click("volumeBar");
        QVERIFY(!engine()->isMuted);
        QVERIFY(std::abs(engine()->volume - 0.5) < 0.1);
        QVERIFY(focusByTab("volumeBar"));
        const double before = engine()->volume;
        press(Qt::Key_Left);
        QVERIFY(engine()->volume < before);
    }
};

QTEST_MAIN(PlayerBarsTest)
#include "PlayerBarsTest.moc"
