// SPDX-License-Identifier: GPL-3.0-or-later
#include "AccentColors.h"
#include "BrowseFixture.h"

#include <QQmlComponent>

/// Every text on every screen as it is drawn, disabled ones included, and the size of
/// everything that can be pressed.
class LegibilityTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextStandsOut_data() { addScreens(); }
    void everyTextStandsOut()
    {
        QFETCH(QString, screen);
        QFETCH(QString, look);
        QVERIFY(arrange(screen));
        wear(look);
        m_picture = m_window->grabWindow();
        m_checked = 0;
        checkTexts(m_window->contentItem(), 1, look.contains(u"high contrast") ? 7 : 4.5);
        QVERIFY(m_checked >= 10);
    }

    void everythingToPressIsLargeEnough_data()
    {
        QTest::addColumn<QString>("screen");
        for (const QString &screen : screens)
            QTest::newRow(qPrintable(screen)) << screen;
    }
    void everythingToPressIsLargeEnough()
    {
        QFETCH(QString, screen);
        QVERIFY(arrange(screen));
        m_window->grabWindow();
        m_checked = 0;
        checkTargets(m_window->contentItem());
        QVERIFY(m_checked >= 5);
    }

private:
    inline static const QStringList screens{
        u"video"_s, u"nothing selected"_s, u"downloading"_s, u"failed"_s,
        u"queue"_s, u"browse"_s,           u"history"_s,     u"settings"_s};

    static void addScreens()
    {
        QTest::addColumn<QString>("screen");
        QTest::addColumn<QString>("look");
        for (const QString &screen : screens) {
            for (const char *const look :
                 {"light", "dark", "light high contrast", "dark high contrast"})
                QTest::addRow("%s, %s", qPrintable(screen), look)
                    << screen << QString::fromLatin1(look);
        }
    }

    [[nodiscard]] bool arrange(const QString &screen)
    {
        if (screen == u"settings") {
            state().showSettings = true;
            return waitFor([&] { return shown("historyLimit"); });
        }
        if (screen == u"queue")
            return arrangeQueue();
        if (screen == u"browse")
            return BrowseFixture::show(3);
        if (screen == u"history") {
            for (const QString &title : {u"Boat"_s, u"Car"_s})
                state().addToHistory(StateFixture::record(title));
            return waitFor([&] { return shown("history0") && shown("history1"); });
        }
        if (screen == u"nothing selected") {
            if (!showPlaylist(playlist(40)))
                return false;
            state().selectedPlaylistItems = AppState::EntrySelection();
            return waitFor([&] { return shown("downloadBar"); });
        }
        return arrangeVideo(screen);
    }

    [[nodiscard]] bool arrangeVideo(const QString &screen)
    {
        VideoInfo info = video();
        info.uploader = u"Harbour"_s;
        state().singleInfo = info;
        if (!waitFor([&] { return shown("download"); }))
            return false;
        if (screen == u"video")
            return true;
        m_fixture->tool.respond(screen == u"failed"
                                    ? "fail ERROR: gone"
                                    : "print [download]  42.0% of 1MiB at 2MiB/s ETA 00:42\n"
                                      "wait go");
        click("download");
        const char *const sign = screen == u"failed" ? "failure" : "progressBar";
        return waitFor([&] { return shown(sign); });
    }

    [[nodiscard]] bool arrangeQueue()
    {
        const QList<DownloadStatus> statuses{Status::Waiting{},
                                             Status::Fetching{},
                                             Status::Downloading{.progress = 0.4},
                                             Status::Processing{},
                                             Status::Done{u"/tmp/file.mp4"_s},
                                             Status::Failed{u"gone"_s}};
        AppState::Queue queue;
        for (const DownloadStatus &status : statuses) {
            queue.append(std::make_shared<DownloadItem>(u"https://x/1"_s));
            queue.last()->status = status;
        }
        state().queue = queue;
        state().mode = AppMode::multi;
        return waitFor([&] { return shown("queue5"); });
    }

    void wear(const QString &look)
    {
        QQmlComponent component(&m_main->engine());
        component.setData("import QtQml; import Quillon.Shared\n"
                          "QtObject { property QtObject theme: Theme }",
                          {});
        const std::unique_ptr<QObject> holder(component.create());
        auto *const theme = holder->property("theme").value<QObject *>();
        theme->setProperty("animates", false);
        theme->setProperty("dark", look.startsWith(u"dark"));
        theme->setProperty("highContrast", look.contains(u"high contrast"));
        QTest::qWait(250); // colours on their way
    }

    void checkTexts(const QQuickItem *item, double opacity, double least)
    {
        opacity *= item->opacity();
        if (!item->isVisible() || opacity == 0)
            return;
        if (item->inherits("QQuickText") && !item->property("text").toString().isEmpty())
            checkText(item, opacity, least);
        const QList<QQuickItem *> children = item->childItems();
        for (const QQuickItem *const child : children)
            checkTexts(child, opacity, least);
    }

    void checkText(const QQuickItem *text, double opacity, double least)
    {
        const QRect place = text->mapRectToScene(text->boundingRect()).toAlignedRect();
        if (!QRect(QPoint(), m_window->size()).contains(place) || isCovered(text, place))
            return;
        const QColor ground = mostOf(place);
        QColor ink = text->property("color").value<QColor>();
        const auto alpha = static_cast<float>(opacity) * ink.alphaF();
        const auto mix = [alpha](float a, float b) { return a * alpha + b * (1 - alpha); };
        ink = QColor::fromRgbF(mix(ink.redF(), ground.redF()), mix(ink.greenF(), ground.greenF()),
                               mix(ink.blueF(), ground.blueF()));
        const double contrast = contrastRatio(ink, ground);
        ++m_checked;
        QVERIFY2(contrast >= least,
                 qPrintable(u"“%1”: %2, %3 on %4"_s.arg(text->property("text").toString())
                                .arg(contrast)
                                .arg(ink.name(), ground.name())));
    }

    /// Whether the page's edge or the bar over it is in the way.
    bool isCovered(const QQuickItem *text, const QRect &place)
    {
        QQuickItem *const page = item("page");
        const QRect view = page->mapRectToScene(page->boundingRect()).toAlignedRect();
        if (page->isAncestorOf(text) && !view.contains(place))
            return true;
        const QQuickItem *const bar = item("downloadBar");
        return bar && bar->isVisible() && !bar->isAncestorOf(text)
            && bar->mapRectToScene(bar->boundingRect()).toAlignedRect().intersects(place);
    }

    QColor mostOf(const QRect &place) const
    {
        QHash<QRgb, int> counts;
        const QRect around = place.adjusted(-2, -2, 2, 2).intersected(m_picture.rect());
        for (int y = around.top(); y <= around.bottom(); ++y) {
            for (int x = around.left(); x <= around.right(); ++x)
                ++counts[m_picture.pixel(x, y)];
        }
        QRgb most = 0;
        for (auto each = counts.cbegin(); each != counts.cend(); ++each) {
            if (each.value() > counts.value(most))
                most = each.key();
        }
        return QColor::fromRgb(most);
    }

    void checkTargets(const QQuickItem *item)
    {
        if (!item->isVisible())
            return;
        const bool isTarget = item->inherits("QQuickAbstractButton")
            || item->inherits("QQuickComboBox") || item->inherits("QQuickSlider");
        if (isTarget && item->isEnabled() && item->width() > 0) {
            ++m_checked;
            QVERIFY2(item->width() >= 24 && item->height() >= 24,
                     qPrintable(u"%1 is %2 by %3"_s.arg(item->objectName())
                                    .arg(item->width())
                                    .arg(item->height())));
        }
        const QList<QQuickItem *> children = item->childItems();
        for (const QQuickItem *const child : children)
            checkTargets(child);
    }

    QImage m_picture;
    int m_checked = 0;
};

QTEST_MAIN(LegibilityTest)
#include "LegibilityTest.moc"
