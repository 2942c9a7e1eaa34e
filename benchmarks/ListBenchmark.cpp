// SPDX-License-Identifier: GPL-3.0-or-later
// The real window with long lists: a playlist, whose entries the tool is said to
// print as they stand in the files that are the arguments (a short one, a long
// one), and a history of 10,000.
#include "BenchWindow.h"

namespace {

constexpr int rounds = 9;
constexpr int records = 10'000;
constexpr int steps = 300;
constexpr double stepHeight = 37; // logical pixels: a wheel's notch and more

class Bench : BenchWindow
{
public:
    void comparePlaylists(const QString &shortFile, const QString &longFile)
    {
        QList<double> shortDelays;
        QList<double> longDelays;
        QList<double> shortStalls;
        QList<double> longStalls;
        for (int round = 0; round < rounds; ++round) {
            fetch(shortFile, shortDelays, shortStalls);
            fetch(longFile, longDelays, longStalls);
        }
        std::printf("tool's end to the first frame with the grid: %.0f ms for %d entries, "
                    "%.0f ms for %d, ratio %.1f\n",
                    median(longDelays), lines(longFile), median(shortDelays), lines(shortFile),
                    median(longDelays) / median(shortDelays));
        std::printf("longest stall of the UI thread on the way: %.0f ms and %.0f ms (most: %.0f)\n",
                    median(longStalls), median(shortStalls), quantile(longStalls, 1));
        std::printf("live cards: %d of %d\n", liveItems(u"card"_s, 5000), lines(longFile));
    }

    void compareScrolling()
    {
        auto *const page = flickableOf(find(u"playlistCards"_s));
        const int live = liveItems(u"card"_s, 5000);
        const QList<double> ours = scroll(page);

        QQmlComponent component(&m_main->engine());
        component.setData(
            "import QtQuick\n"
            "Flickable { id: page; property int live: 1; contentHeight: 200000\n"
            "Repeater { model: page.live; delegate: Rectangle { required property int index\n"
            "x: 20 + index % 4 * 225; y: Math.floor(index / 4) * 170 + page.contentY\n"
            "- page.contentY % 170; width: 215; height: 160; color: 'steelblue' } } }",
            {});
        std::unique_ptr<QQuickItem> plain(qobject_cast<QQuickItem *>(component.create()));
        plain->setProperty("live", live);
        page->setVisible(false);
        plain->setParentItem(page->parentItem());
        plain->setPosition(page->position());
        plain->setSize(page->size());
        const QList<double> rectangles = scroll(plain.get());
        plain.reset();
        page->setVisible(true);
        std::printf("scrolling %d cards: median %.1f ms a frame, 99%% below %.1f; as many plain "
                    "rectangles %.1f and %.1f; ratio %.1f\n",
                    live, median(ours), quantile(ours, 0.99), median(rectangles),
                    quantile(rectangles, 0.99), median(ours) / median(rectangles));
    }

    /// Each letter of "123" typed into the filter of the long playlist, and taken away again,
    /// beside a frame that only scrolls.
    void compareFiltering()
    {
        auto *const list = find(u"playlistGrid"_s)->property("model").value<QObject *>();
        // Where the field is.
        flickableOf(find(u"playlistCards"_s))->setProperty("contentY", 0);
        QList<double> filtering;
        for (int round = 0; round < rounds; ++round) {
            for (const QString &text : {u"1"_s, u"12"_s, u"123"_s, u"12"_s, u"1"_s, QString()}) {
                waitMilliseconds(100);
                const qint64 began = wallClock();
                list->setProperty("filter", text);
                waitForFrame();
                filtering.append(milliseconds(m_lastFrame - began));
            }
        }
        const QList<double> scrolling = scroll(flickableOf(find(u"playlistCards"_s)));
        std::printf("filtering: median %.1f ms to the frame that shows it, at most %.1f; a frame "
                    "that scrolls %.1f; ratio %.1f\n",
                    median(filtering), quantile(filtering, 1), median(scrolling),
                    median(filtering) / median(scrolling));
    }

    void compareHistories()
    {
        state().singleInfo = std::nullopt;
        QList<double> adding[2];
        QList<double> starting[2];
        for (int round = 0; round < rounds; ++round) {
            for (const int which : {0, 1}) {
                AppState::History filled;
                for (int number = 0; number < (which ? records : 10); ++number)
                    filled.append(record(number));
                state().historyLimit = 0;
                state().history = filled;
                state().saveHistory();
                m_preferences.flush();
                waitMilliseconds(300);
                QElapsedTimer clock;
                clock.start();
                state().addToHistory(record(-1));
                adding[which].append(milliseconds(clock.nsecsElapsed()));
                m_preferences.flush();
                clock.start();
                {
                    Preferences stored(m_preferences.path());
                    const AppState started(AppStateParts{.service = &m_service,
                                                         .preferences = &stored,
                                                         .platform = m_desktop.services()});
                    starting[which].append(milliseconds(clock.nsecsElapsed()));
                }
            }
        }
        std::printf("history of %d: reading it at start %.1f ms, of 10 %.2f; adding a record "
                    "%.2f ms on the UI thread, to 10 %.2f; live rows %d\n",
                    records, median(starting[1]), median(starting[0]), median(adding[1]),
                    median(adding[0]), liveItems(u"history"_s, records));
    }

private:
    void fetch(const QString &output, QList<double> &delays, QList<double> &stalls)
    {
        state().singleInfo = std::nullopt;
        waitMilliseconds(600);
        letToolPrint(output);
        state().singleURL = u"https://x/playlist?list=x"_s;
        const Heartbeat heartbeat;
        state().fetchSingleInfo();
        waitFor([this] { return find(u"card0"_s) != nullptr; });
        const int before = m_frames;
        waitFor([&] { return m_frames > before; });
        const qint64 shown = m_lastFrame;
        waitMilliseconds(500);
        QFile end(m_folder.filePath(u"end"_s));
        if (!end.open(QIODevice::ReadOnly))
            qFatal("The tool has not ended");
        delays.append(milliseconds(shown - end.readAll().trimmed().toLongLong()));
        stalls.append(heartbeat.longest());
    }

    /// Milliseconds from each step to the frame that shows it.
    QList<double> scroll(QQuickItem *page)
    {
        QList<double> times;
        page->setProperty("contentY", 0);
        waitMilliseconds(300);
        for (int step = 1; step <= steps; ++step) {
            const qint64 began = wallClock();
            page->setProperty("contentY", step * stepHeight);
            waitForFrame();
            times.append(milliseconds(m_lastFrame - began));
        }
        return times;
    }

    static HistoryItem record(int number)
    {
        return {.id = QUuid::createUuid(),
                .title = u"Building a wooden boat from scratch, part %1"_s.arg(number),
                .thumbnailURL = QString(),
                .url = u"https://www.example.org/watch?v=%1"_s.arg(number),
                .format = u"mp4"_s,
                .quality = u"1080p"_s,
                .savedPath = u"/home/someone/Downloads/Building a boat %1.mp4"_s.arg(number),
                .date = ReferenceDate::now()};
    }

    static QQuickItem *flickableOf(QQuickItem *item)
    {
        do
            item = item->parentItem();
        while (!item->inherits("QQuickFlickable"));
        return item;
    }
};

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3)
        qFatal("ListBenchmark SHORT-PLAYLIST LONG-PLAYLIST");
    Bench bench;
    bench.comparePlaylists(arguments[1], arguments[2]);
    bench.compareScrolling();
    bench.compareFiltering();
    bench.compareHistories();
    return 0;
}
