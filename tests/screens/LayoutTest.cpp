// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"

#include <QFontMetricsF>

/// Where things stand beside each other.
class LayoutTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void theSettingsBeginWhereTheirFieldBegins_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("smallest") << QSize(880, 600);
        QTest::newRow("usual") << QSize(960, 720);
        QTest::newRow("large") << QSize(1440, 900);
    }

    void theSettingsBeginWhereTheirFieldBegins()
    {
        QFETCH(QSize, size);
        m_window->resize(size);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->contentItem()->size().toSize(), size, patience);
        QVERIFY(openSettings());
        QCOMPARE(sceneX("historyLimit", 1), sceneX("downloadDir"));
        QVERIFY(rightEdge("saveSettings") <= size.width() - 20);
        for (const char *const name : settings)
            QVERIFY2(rightEdge(name) <= size.width() - 20, name);
    }

    void theSettingsHaveOneSpacing()
    {
        m_window->resize(1440, 900);
        QVERIFY(openSettings());
        double end = 0;
        for (const char *const name : settings) {
            if (end > 0)
                QCOMPARE(qRound(sceneX(name, 1) - end), 26);
            end = rightEdge(name);
        }
        QCOMPARE(sceneY("historyLimit"), sceneY("cookiesBrowser"));
    }

    /// A font of twice the width has no room for them on one line.
    void theSettingsWrapInAWideFont()
    {
        QVERIFY(openSettings());
        const double before = sceneY("cookiesBrowser");
        for (const char *const name : settings)
            item(name)->setWidth(item(name)->width() * 2);
        QTRY_VERIFY_WITH_TIMEOUT(sceneY("cookiesBrowser") > before, patience);
        QCOMPARE(sceneX("cookiesBrowser", 1), sceneX("downloadDir"));
    }

    void headingsBeginOnOneLine()
    {
        QVERIFY(show(3));
        const double results = sceneX("resultCount");
        state().mode = AppMode::multi;
        state().queue = AppState::Queue{std::make_shared<DownloadItem>(u"https://x/1"_s)};
        QTRY_VERIFY_WITH_TIMEOUT(shown("queueHeading") && shown("historyTitle"), patience);
        m_window->grabWindow(); // so that everything is in its place
        QCOMPARE(sceneX("queueHeading"), results);
        QCOMPARE(sceneX("historyTitle"), results);
    }

    /// Each as it is when it is chosen, which is bold.
    void allModesHaveTheSameRoomAroundTheirWords()
    {
        QFont font = QGuiApplication::font();
        font.setPixelSize(13);
        font.setWeight(QFont::DemiBold);
        const QFontMetricsF metrics(font);
        QList<double> rooms;
        for (const char *const name : {"modeSingle", "modeMulti", "modeBrowse"})
            rooms.append((item(name)->width() - metrics.horizontalAdvance(textOf(name))) / 2);
        QVERIFY(rooms.first() >= 5);
        for (const double room : std::as_const(rooms))
            QVERIFY(qAbs(room - rooms.first()) < 0.6);
        const QQuickItem *const control = item("modeSingle")->parentItem()->parentItem();
        QCOMPARE(control->width(), 180);
        QCOMPARE(rightEdge("modeBrowse"), control->mapToScene({control->width() - 2, 0}).x());
    }

    void atTheMinimumThePlayerLeavesMostToTheResults()
    {
        m_window->resize(m_window->minimumSize());
        QVERIFY(show(9));
        QVERIFY(play(0));
        const double page = item("page")->height();
        const double player = item("playerPanel")->height();
        QVERIFY2(player <= page * 0.45, qPrintable(u"%1 of %2"_s.arg(player).arg(page)));
        QVERIFY(item("video")->height() >= 120);
        m_window->resize(960, 900);
        QTRY_COMPARE_WITH_TIMEOUT(item("video")->height(), 320, patience);
    }

    void aBarBelowAnEmptyBrowsePageMakesNothingToScroll()
    {
        QVERIFY(startSingle());
        state().mode = AppMode::browse;
        QTRY_VERIFY_WITH_TIMEOUT(item("page")->property("bottomMargin").toDouble() > 0, patience);
        QVERIFY(show(0));
        m_window->grabWindow();
        const QQuickItem *const page = item("page");
        QVERIFY(page->property("contentHeight").toDouble()
                    + page->property("bottomMargin").toDouble()
                <= page->height());
    }

    void aPausedRunsFiguresAreDimmed()
    {
        QVERIFY(startSingle());
        QTRY_VERIFY_WITH_TIMEOUT(shown("speed") && shown("remaining"), patience);
        QCOMPARE(item("speed")->parentItem()->opacity(), 1.0);
        click("pause");
        QTRY_VERIFY_WITH_TIMEOUT(item("speed")->parentItem()->opacity() < 0.6, patience);
        QCOMPARE(item("speed")->parentItem(), item("remaining")->parentItem());
        click("pause");
        QTRY_COMPARE_WITH_TIMEOUT(item("speed")->parentItem()->opacity(), 1.0, patience);
    }

    void theQueuesButtonsSayWhatTheyAlsoTake()
    {
        state().mode = AppMode::multi;
        state().queue = AppState::Queue{std::make_shared<DownloadItem>(u"https://x/1"_s)};
        QTRY_VERIFY_WITH_TIMEOUT(shown("startQueue"), patience);
        hover(item("startQueue"));
        QTRY_COMPARE_WITH_TIMEOUT(
            tip(), u"Downloads waiting entries, and finished and failed ones once more"_s,
            patience);
        hover(item("clearQueue"));
        QTRY_COMPARE_WITH_TIMEOUT(tip(), u"Removes finished, waiting and failed entries"_s,
                                  patience);
    }

private:
    static constexpr std::array settings{"historyLimit", "speedLimit", "notifications",
                                         "cookiesBrowser"};

    [[nodiscard]] bool openSettings()
    {
        state().showSettings = true;
        if (!waitFor([&] { return shown("cookiesBrowser"); }))
            return false;
        m_window->grabWindow(); // so that everything is in its place
        return true;
    }

    /// Of the item, or of what it stands in.
    double sceneX(const char *name, int levelsUp = 0)
    {
        const QQuickItem *place = item(name);
        for (int level = 0; level < levelsUp; ++level)
            place = place->parentItem();
        return place->mapToScene({}).x();
    }

    double rightEdge(const char *name)
    {
        return item(name)->mapToScene({item(name)->width(), 0}).x();
    }
};

QTEST_MAIN(LayoutTest)
#include "LayoutTest.moc"
