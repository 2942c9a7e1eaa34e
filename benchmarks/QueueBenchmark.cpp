// SPDX-License-Identifier: GPL-3.0-or-later
// The real window with a long queue, whose entries the tool is said to print as
// they stand in the files that are the arguments (a short one, a long one); and,
// without arguments, a run of small files by the real tool, in the window and bare.
#include "BenchWindow.h"
#include "DownloadArguments.h"

#include <QProcess>

#include <ctime>

namespace {

constexpr int rounds = 9;
constexpr int reports = 300;
constexpr int oneByOne = 50;
constexpr int smallFiles = 20;
constexpr int runRounds = 5;

/// Seconds of the processor that all threads, or this one, have had.
double processorTime(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

class LongQueue : BenchWindow
{
public:
    LongQueue() { state().mode = AppMode::multi; }

    void compareAdding(const QString &shortFile, const QString &longFile)
    {
        QList<double> shortStalls;
        QList<double> longStalls;
        QList<double> singleStalls;
        for (int round = 0; round < rounds; ++round) {
            shortStalls.append(add(shortFile, 1));
            longStalls.append(add(longFile, 1));
            const qsizetype before = state().queue().size();
            singleStalls.append(addMore(oneByOne));
            if (state().queue().size() != before + oneByOne)
                qFatal("Not all were added");
        }
        std::printf("a playlist of %d added to the queue: longest stall %.0f ms (most: %.0f), of "
                    "%d %.0f ms\n",
                    lines(longFile), median(longStalls), quantile(longStalls, 1), lines(shortFile),
                    median(shortStalls));
        std::printf("%d URLs added one after another to these: longest stall %.0f ms (most: "
                    "%.0f)\n",
                    oneByOne, median(singleStalls), quantile(singleStalls, 1));
        std::printf("live rows %d\n", liveItems(u"queue"_s, 100));
    }

    /// With the short list as many rows are in sight as with the long one.
    void compareReports(const QString &shortFile, const QString &longFile)
    {
        QList<double> all[3];
        QList<double> own[3];
        for (int round = 0; round < rounds; ++round) {
            for (const int which : {0, 1, 2}) {
                if (which == 0)
                    setQueue(1);
                else
                    add(which == 1 ? shortFile : longFile, 1);
                waitMilliseconds(500);
                const auto item = state().queue().first();
                const double allBefore = processorTime(CLOCK_PROCESS_CPUTIME_ID);
                const double ownBefore = processorTime(CLOCK_THREAD_CPUTIME_ID);
                for (int report = 0; report < reports; ++report) {
                    item->status =
                        Status::Downloading{double(report) / reports, u"1.00MiB/s"_s, u"00:01"_s};
                    waitForFrame();
                }
                all[which].append((processorTime(CLOCK_PROCESS_CPUTIME_ID) - allBefore) / reports);
                own[which].append((processorTime(CLOCK_THREAD_CPUTIME_ID) - ownBefore) / reports);
            }
        }
        std::printf("processor time per progress report, with its frame: %.2f ms with a queue of "
                    "%d, %.2f ms with %d, %.2f ms with 1; of it on the window's thread %.2f, %.2f "
                    "and %.2f\n",
                    median(all[2]) * 1000, lines(longFile), median(all[1]) * 1000, lines(shortFile),
                    median(all[0]) * 1000, median(own[2]) * 1000, median(own[1]) * 1000,
                    median(own[0]) * 1000);
    }

private:
    void setQueue(int count)
    {
        AppState::Queue queue;
        for (int number = 0; number < count; ++number)
            queue.append(std::make_shared<DownloadItem>(u"https://x/%1"_s.arg(number)));
        state().queue = queue;
    }

    /// A queue of what the file lists; milliseconds of the longest stall on the way.
    double add(const QString &file, int placeholders)
    {
        state().queue = AppState::Queue();
        letToolPrint(file);
        waitMilliseconds(300);
        const Heartbeat heartbeat;
        state().addURLToQueue(u"https://x/playlist?list=x"_s);
        const int wanted = lines(file) + placeholders - 1;
        waitFor([&] {
            return state().queue().size() == wanted
                && state().queue().first()->status() == DownloadStatus(Status::Waiting{});
        });
        waitMilliseconds(500);
        return heartbeat.longest();
    }

    double addMore(int count)
    {
        QFile video(m_folder.filePath(u"video"_s));
        if (!video.open(QIODevice::WriteOnly) || video.write("{\"title\":\"One more\"}") < 0)
            qFatal("No file");
        video.close();
        letToolPrint(video.fileName());
        const Heartbeat heartbeat;
        for (int number = 0; number < count; ++number)
            state().addURLToQueue(u"https://x/more%1"_s.arg(number));
        waitFor([&] {
            const AppState::Queue &queue = state().queue();
            return std::all_of(queue.end() - count, queue.end(), [](const auto &item) {
                return item->status() == DownloadStatus(Status::Waiting{});
            });
        });
        waitMilliseconds(300);
        return heartbeat.longest();
    }
};

class SmallFiles : BenchWindow
{
public:
    SmallFiles()
        : BenchWindow(true)
    {
        state().mode = AppMode::multi;
    }

    void compare()
    {
        QList<double> ours;
        QList<double> bare;
        for (int round = 0; round < runRounds; ++round) {
            ours.append(runInWindow(round));
            bare.append(runBare(round));
        }
        std::printf("a run of %d small files: %.2f s (%.2f to %.2f), the bare tool %.2f s (%.2f to "
                    "%.2f), ratio %.3f\n",
                    smallFiles, median(ours), quantile(ours, 0), quantile(ours, 1), median(bare),
                    quantile(bare, 0), quantile(bare, 1), median(ours) / median(bare));
    }

private:
    static QString url(int number)
    {
        return u"https://www.youtube.com/watch?v=bulk%1"_s.arg(number, 4, 10, QLatin1Char('0'));
    }

    double runInWindow(int round)
    {
        state().downloadDir = m_folder.filePath(u"ours%1"_s.arg(round));
        AppState::Queue queue;
        for (int number = 0; number < smallFiles; ++number)
            queue.append(std::make_shared<DownloadItem>(url(number)));
        state().queue = queue;
        waitMilliseconds(300);
        QElapsedTimer clock;
        clock.start();
        state().startQueueDownload();
        waitFor([this] { return !state().isQueueDownloading(); });
        const double seconds = milliseconds(clock.nsecsElapsed()) / 1000;
        for (const auto &item : state().queue()) {
            if (kindOf(item->status()) != StatusKind::Done)
                qFatal("%s", qPrintable(messageOf(item->status())));
        }
        return seconds;
    }

    double runBare(int round)
    {
        QElapsedTimer clock;
        clock.start();
        for (int number = 0; number < smallFiles; ++number) {
            QProcess tool;
            QProcessEnvironment environment;
            const auto entries = YTDLPService::processEnv();
            for (auto entry = entries.begin(); entry != entries.end(); ++entry)
                environment.insert(entry.key(), entry.value());
            tool.setProcessEnvironment(environment);
            tool.start(m_service.ytdlpPath(),
                       downloadArguments({.cookiesBrowser = state().cookiesBrowser(),
                                          .speedLimit = state().speedLimit(),
                                          .quality = state().multiQuality(),
                                          .folder = m_folder.filePath(u"bare%1"_s.arg(round)),
                                          .url = url(number)}));
            if (!tool.waitForFinished(-1) || tool.exitCode() != 0)
                qFatal("%s", tool.readAllStandardError().constData());
        }
        return milliseconds(clock.nsecsElapsed()) / 1000;
    }
};

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() == 3) {
        LongQueue bench;
        bench.compareAdding(arguments[1], arguments[2]);
        bench.compareReports(arguments[1], arguments[2]);
    } else {
        SmallFiles bench;
        bench.compare();
    }
    return 0;
}
