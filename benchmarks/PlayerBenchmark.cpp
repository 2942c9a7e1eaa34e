// SPDX-License-Identifier: GPL-3.0-or-later
// The player in the real window. With a URL of a stream: what playing it costs, in full
// screen if "full" follows it, and what memory stays behind. With "idle": what browse mode
// costs while nothing plays. Without arguments: how long it takes from the choice of a
// result to the picture, by the real tool.
#include "BenchWindow.h"
#include "PlayerPlugin.h"
#include "RequestArguments.h"

#include <QProcess>

#include <ctime>

namespace {

constexpr int rounds = 9;
constexpr int playSeconds = 15;
constexpr int idleSeconds = 30;
constexpr int resultCount = 25;

double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// Megabytes that are this process's, with its part of what it shares.
double memory()
{
    QFile file(u"/proc/self/smaps_rollup"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = file.readAll();
    return text.mid(text.indexOf("\nPss:") + 5).simplified().split(' ').first().toDouble() / 1024;
}

class Player : BenchWindow
{
public:
    explicit Player(bool hasRealTool)
        : BenchWindow(hasRealTool, loadPlayerPlugin)
    {
        state().mode = AppMode::browse;
    }

    void compareFirstPictures()
    {
        QList<double> ours;
        QList<double> bare;
        double first = 0;
        for (int round = 0; round <= rounds; ++round) {
            const QString url =
                u"https://www.youtube.com/watch?v=bulk%1"_s.arg(round, 4, 10, QLatin1Char('0'));
            const double seconds = timeToPicture(url);
            if (round == 0)
                first = seconds; // with the engine's loading
            else
                ours.append(seconds);
            bare.append(timeOfTool(url));
        }
        std::printf("from the choice of a result to its first picture: %.3f s, the bare tool for "
                    "the URL %.3f s, ratio %.2f; at the first playback %.3f s\n",
                    median(ours), median(bare), median(ours) / median(bare), first);
    }

    void play(const QString &url, bool fillsScreen)
    {
        waitMilliseconds(2000); // for browse mode to be there
        const double before = memory();
        QFile file(m_folder.filePath(u"url"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(url.toUtf8() + '\n') < 0)
            qFatal("No file");
        file.close();
        letToolPrint(file.fileName());
        waitForPicture(u"x"_s);
        if (fillsScreen)
            QMetaObject::invokeMethod(find(u"playerPanel"_s), "toggleFullScreen");
        waitMilliseconds(3000);
        const auto [share, frameRate] = shareOver(playSeconds);
        if (state().playerError() || state().avPlayer.hasEnded())
            qFatal("It does not play");
        const double whilePlaying = memory();
        state().stopPlayback();
        waitMilliseconds(3000);
        std::printf("%.3f %.1f %.1f %.1f\n", share, whilePlaying, frameRate, memory() - before);
    }

    void compareIdle()
    {
        const double single = idleShare(AppMode::single);
        AppState::Results results;
        for (int number = 0; number < resultCount; ++number)
            results.append({.id = QString::number(number),
                            .title = u"A result"_s,
                            .uploader = u"Someone"_s,
                            .duration = 60,
                            .thumbnailURL = QString(),
                            .videoURL = QString()});
        state().browseResults = results;
        const double browse = idleShare(AppMode::browse);
        std::printf("processor time while nothing plays: %.3f %% of a core in browse mode with %d "
                    "results, %.3f %% in single mode\n",
                    browse * 100, resultCount, single * 100);
    }

private:
    double timeToPicture(const QString &url)
    {
        QElapsedTimer clock;
        clock.start();
        waitForPicture(url);
        const double seconds = milliseconds(clock.nsecsElapsed()) / 1000;
        state().stopPlayback();
        waitMilliseconds(300);
        return seconds;
    }

    void waitForPicture(const QString &url)
    {
        SearchResult result;
        result.id = url;
        result.videoURL = url;
        state().playBrowseResult(result);
        waitFor([this] { return !state().avPlayer.picture().isNull() || state().playerError(); });
        waitForFrame();
    }

    double timeOfTool(const QString &url)
    {
        QElapsedTimer clock;
        clock.start();
        QProcess tool;
        tool.start(m_service.ytdlpPath(), streamArguments(url));
        if (!tool.waitForFinished(-1) || tool.exitCode() != 0)
            qFatal("%s", tool.readAllStandardError().constData());
        return milliseconds(clock.nsecsElapsed()) / 1000;
    }

    double idleShare(AppMode mode)
    {
        state().mode = mode;
        waitMilliseconds(2000);
        return shareOver(idleSeconds).first;
    }

    /// The part of a core that is used, and the frames in a second.
    std::pair<double, double> shareOver(int seconds)
    {
        const double before = processorTime();
        const int frames = m_frames;
        QElapsedTimer clock;
        clock.start();
        waitMilliseconds(seconds * 1000);
        const double elapsed = milliseconds(clock.nsecsElapsed()) / 1000;
        return {(processorTime() - before) / elapsed, (m_frames - frames) / elapsed};
    }
};

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QString what = QGuiApplication::arguments().value(1);
    if (what.isEmpty())
        Player(true).compareFirstPictures();
    else if (what == u"idle")
        Player(false).compareIdle();
    else
        Player(false).play(what, QGuiApplication::arguments().value(2) == u"full");
    return 0;
}
