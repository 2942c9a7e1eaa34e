// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ChildProcesses.h"
#include "DownloadOutput.h"
#include "SearchResult.h"
#include "VideoInfo.h"
#include "YTDLPError.h"

#include <QMap>
#include <QSet>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <mutex>
#include <stop_token>

/// The only gateway to the `yt-dlp` tool. Requests may be made on any thread and return
/// at once; the tool runs, and its output is parsed, on a worker thread of the service,
/// where handlers and completions are called, too. Every request settles exactly once.
class YTDLPService
{
    Q_DISABLE_COPY_MOVE(YTDLPService)

public:
    /// The program's one instance, made on first use on the main thread; it ends
    /// with the application object.
    static YTDLPService &shared();

    /// Where the tool is looked for, in this order.
    static QStringList standardSearchPaths();

    /// A separate instance, for tests. At least one path.
    explicit YTDLPService(QStringList searchPaths);

    const QStringList binarySearchPaths;

    /// The first search path at which a file exists, else the first one.
    [[nodiscard]] QString ytdlpPath() const;

    /// The tool's whole environment: nothing is inherited.
    [[nodiscard]] static QMap<QString, QString> processEnv();

    /// The arguments that make the tool read a browser's cookies.
    [[nodiscard]] static QStringList cookieArgs(const QString &browser);

    /// Runs the tool once and yields what it wrote to standard output.
    void runProcess(const QStringList &arguments, Completion<QString> completion);

    /// One video's metadata. A URL that the tool would take for an option
    /// fails without reaching it.
    void fetchInfo(const QString &url, const QString &cookiesBrowser,
                   Completion<VideoInfo> completion);

    /// A playlist's entries as listed, `isPlaylist` set. As for fetchInfo.
    void fetchPlaylistInfo(const QString &url, const QString &cookiesBrowser,
                           Completion<VideoInfo> completion);

    /// What a search of the video site finds, in its order, at most `limit`.
    void search(const QString &query, int limit, Completion<QList<SearchResult>> completion);

    /// Where a video can be streamed from. As for fetchInfo.
    void getStreamURL(const QString &videoURL, Completion<QUrl> completion);

    /// Runs one download, whose URL is the last argument, and yields the
    /// saved file's path, possibly empty. A requested stop ends its process, even a paused
    /// one, with all of its children; the download then fails.
    void runProcessWithProgress(const QStringList &arguments, ProgressHandler progressHandler,
                                ProcessingHandler processingHandler, Completion<QString> completion,
                                const std::stop_token &stop = {});

    /// The process of the most recently started download, until it ends. There is one
    /// slot: a later download takes it over. Any thread.
    [[nodiscard]] std::shared_ptr<ProcessHandle> activeProcess() const;

    /// Ends every process of the requests made so far, including stopped ones, with all
    /// of their children; returns when they are gone and the requests have settled. Also
    /// removes a file left incomplete under its final name. Not on the worker thread.
    void endProcesses();

private:
    // All on the worker thread:
    void collect(const QStringList &arguments, Completion<QByteArray> completion);
    /// Collects the output and parses it.
    template<typename Value, typename Parse>
    void request(const QStringList &arguments, Parse parse, Completion<Value> completion);
    /// As request(), for a URL that must not be taken for an option.
    template<typename Value, typename Parse>
    void fetch(const QString &url, const QStringList &arguments, Parse parse,
               Completion<Value> completion);
    void download(const QStringList &arguments, const std::shared_ptr<DownloadOutput> &output,
                  Completion<QString> completion, const std::stop_token &stop);
    ChildProcess *launch(const QStringList &arguments, const std::shared_ptr<ProcessHandle> &handle,
                         const ChildProcess::OutputHandler &onOutput,
                         const ChildProcess::EndHandler &onEnd);

    void setActiveProcess(std::shared_ptr<ProcessHandle> handle);
    void clearActiveProcess(const std::shared_ptr<ProcessHandle> &handle);

    mutable std::mutex m_activeProcessMutex;
    std::shared_ptr<ProcessHandle> m_activeProcess;

    QSet<QString> m_finishedFiles; // the worker thread's: what successful runs have named

    ChildProcesses m_processes; // last: its thread ends before the members above are destroyed
};
