// SPDX-License-Identifier: GPL-3.0-or-later
// The real window with long lists: a playlist, whose entries the tool is said to
// print as they stand in the files that are the arguments (a short one, a long
// one), and a history of 10,000.
#include "Appearance.h"
#include "Preferences.h"
#include "QmlTypes.h"
#include "QuillonApp.h"
#include "StandIns.h"
#include "SystemAppearance.h"
#include "ThumbnailProvider.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 9;
constexpr int records = 10'000;
constexpr int steps = 300;
constexpr double stepHeight = 37; // logical pixels: a wheel's notch and more

double milliseconds(qint64 nanoseconds)
{
    return static_cast<double>(nanoseconds) / 1e6;
}

qint64 wallClock()
{
    return std::chrono::nanoseconds(std::chrono::system_clock::now().time_since_epoch()).count();
}

/// The value below which this part of the sample lies.
double quantile(QList<double> sample, double part)
{
    std::sort(sample.begin(), sample.end());
    const auto last = static_cast<double>(sample.size() - 1);
    return sample[static_cast<qsizetype>(part * last + 0.5)];
}

double median(const QList<double> &sample)
{
    return quantile(sample, 0.5);
}

template<typename Condition>
void waitFor(Condition condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void waitMilliseconds(int time)
{
    bool isOver = false;
    QTimer::singleShot(time, [&] { isOver = true; });
    waitFor([&] { return isOver; });
}

/// Beats each millisecond and knows the longest time between two beats.
class Heartbeat
{
public:
    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_longest = std::max(m_longest, m_clock.nsecsElapsed()), m_clock.start();
        });
        m_timer.start(1);
        m_clock.start();
    }

    double longest() const { return milliseconds(m_longest); }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
};

class Bench
{
public:
    Bench()
    {
        m_desktop.folders->paths = {m_folder.path()};
        writeScript(QString());
        m_app.emplace(AppStateParts{.service = &m_service,
                                    .preferences = &m_preferences,
                                    .platform = m_desktop.services()});
        AppStateForQml::instance = &m_app->state();
        m_engine.addImportPath(u"qrc:/qt/qml"_s);
        m_engine.addImageProvider(u"thumbnail"_s, new ThumbnailProvider);
        m_engine.setInitialProperties({{u"app"_s, QVariant::fromValue(&*m_app)},
                                       {u"appearance"_s, QVariant::fromValue(&m_appearance)}});
        m_engine.load(u"qrc:/qt/qml/Quillon/Main.qml"_s);
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().value(0));
        QObject::connect(m_window, &QQuickWindow::frameSwapped, m_window,
                         [this] { m_lastFrame = wallClock(), ++m_frames; });
        waitFor([this] { return m_frames > 0; });
    }

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
                    median(longDelays), entries(longFile), median(shortDelays), entries(shortFile),
                    median(longDelays) / median(shortDelays));
        std::printf("longest stall of the UI thread on the way: %.0f ms and %.0f ms (most: %.0f)\n",
                    median(longStalls), median(shortStalls), quantile(longStalls, 1));
        std::printf("live cards: %d of %d\n", liveItems(u"card"_s), entries(longFile));
    }

    void compareScrolling()
    {
        auto *const page = flickableOf(find(u"playlistCards"_s));
        const int live = liveItems(u"card"_s);
        const QList<double> ours = scroll(page);

        QQmlComponent component(&m_engine);
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

    void compareHistories()
    {
        state().singleInfo = AppState::Info();
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
                    median(adding[0]), liveItems(u"history"_s));
    }

private:
    AppState &state() { return m_app->state(); }

    void writeScript(const QString &output)
    {
        QFile script(m_folder.filePath(u"yt-dlp"_s));
        if (!script.open(QIODevice::WriteOnly))
            qFatal("No script");
        script.write("#!/bin/sh\ncat '" + output.toUtf8() + "'\ndate +%s%N > '"
                     + m_folder.filePath(u"end"_s).toUtf8() + "'\n");
        script.setPermissions(script.permissions() | QFile::ExeOwner);
    }

    void fetch(const QString &output, QList<double> &delays, QList<double> &stalls)
    {
        state().singleInfo = AppState::Info();
        waitMilliseconds(600);
        writeScript(output);
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

    static int entries(const QString &file)
    {
        QFile content(file);
        return content.open(QIODevice::ReadOnly) ? int(content.readAll().count('\n')) : 0;
    }

    /// Milliseconds from each step to the frame that shows it.
    QList<double> scroll(QQuickItem *page)
    {
        QList<double> times;
        page->setProperty("contentY", 0);
        waitMilliseconds(300);
        for (int step = 1; step <= steps; ++step) {
            const int before = m_frames;
            const qint64 began = wallClock();
            page->setProperty("contentY", step * stepHeight);
            m_window->update();
            waitFor([&] { return m_frames > before; });
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

    QQuickItem *find(const QString &name) { return find(m_window->contentItem(), name); }

    static QQuickItem *find(QQuickItem *parent, const QString &name)
    {
        const QList<QQuickItem *> children = parent->childItems();
        for (QQuickItem *const child : children) {
            if (child->objectName() == name)
                return child;
            if (QQuickItem *const found = find(child, name))
                return found;
        }
        return nullptr;
    }

    static QQuickItem *flickableOf(QQuickItem *item)
    {
        do
            item = item->parentItem();
        while (!item->inherits("QQuickFlickable"));
        return item;
    }

    int liveItems(const QString &name)
    {
        int count = 0;
        for (int number = 0; number < records; ++number)
            count += find(name + QString::number(number)) ? 1 : 0;
        return count;
    }

    QTemporaryDir m_folder;
    RecordingDesktop m_desktop;
    YTDLPService m_service{QStringList{m_folder.filePath(u"yt-dlp"_s)}};
    Preferences m_preferences{m_folder.filePath(u"preferences.json"_s)};
    SystemAppearance m_system;
    Appearance m_appearance{m_preferences, m_system};
    std::optional<QuillonApp> m_app;
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    qint64 m_lastFrame = 0;
    int m_frames = 0;
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
    bench.compareHistories();
    return 0;
}
