// SPDX-License-Identifier: GPL-3.0-or-later
#include "YTDLPService.h"

#include "ApplicationSingleton.h"
#include "DownloadGuard.h"
#include "EndOnStop.h"
#include "HomeDirectory.h"
#include "Metadata.h"
#include "RequestArguments.h"
#include "Search.h"
#include "ToolText.h"

#include <QFile>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// How a failed run is described.
QString messageOf(const ProcessEnding &ending)
{
    return ending.launchError.isEmpty() ? failureMessage(ending.standardError, ending.status)
                                        : ending.launchError;
}

YTDLPError::Launch launchOf(const ProcessEnding &ending)
{
    return ending.launchError.isEmpty() ? YTDLPError::Launch::succeeded
                                        : YTDLPError::Launch::failed;
}

} // namespace

YTDLPService &YTDLPService::shared()
{
    return applicationSingleton<YTDLPService>(
        [] { return new YTDLPService(standardSearchPaths()); });
}

QStringList YTDLPService::standardSearchPaths()
{
    return {u"/opt/homebrew/bin/yt-dlp"_s, u"/usr/local/bin/yt-dlp"_s,
            homeDirectory() + u"/.local/bin/yt-dlp"_s, u"/usr/bin/yt-dlp"_s};
}

YTDLPService::YTDLPService(QStringList searchPaths)
    : binarySearchPaths(std::move(searchPaths))
{
}

QString YTDLPService::ytdlpPath() const
{
    const auto path = std::find_if(binarySearchPaths.begin(), binarySearchPaths.end(),
                                   [](const QString &each) { return QFile::exists(each); });
    return path == binarySearchPaths.end() ? binarySearchPaths.first() : *path;
}

QMap<QString, QString> YTDLPService::processEnv()
{
    const QString home = homeDirectory();
    QString path = u"/opt/homebrew/bin:/usr/local/bin:/usr/bin:/bin"_s;
    // A colon would split the home folder into others, which are not the user's.
    if (!home.contains(u':'))
        path += u":%1/.local/bin:%1/.deno/bin"_s.arg(home);
    return {{u"PATH"_s, path}, {u"HOME"_s, home}, {u"LANG"_s, u"en_US.UTF-8"_s}};
}

QStringList YTDLPService::cookieArgs(const QString &browser)
{
    return cookieArguments(browser);
}

template<typename Value, typename Parse>
void YTDLPService::request(const QStringList &arguments, Parse parse, Completion<Value> completion)
{
    collect(arguments,
            [parse = std::move(parse),
             completion = std::move(completion)](const Reply<QByteArray> &output) {
                if (const auto *const bytes = std::get_if<QByteArray>(&output))
                    completion(parse(*bytes));
                else
                    completion(std::get<YTDLPError>(output));
            });
}

template<typename Value, typename Parse>
void YTDLPService::fetch(const QString &url, const QStringList &arguments, Parse parse,
                         Completion<Value> completion)
{
    if (looksLikeOption(url))
        completion(YTDLPError::fetchFailed(optionURLMessage(url)));
    else
        request<Value>(arguments, std::move(parse), std::move(completion));
}

void YTDLPService::runProcess(const QStringList &arguments, Completion<QString> completion)
{
    m_processes.post([this, arguments, completion = std::move(completion)] {
        request<QString>(
            arguments, [](const QByteArray &output) { return QString::fromUtf8(output); },
            completion);
    });
}

void YTDLPService::fetchInfo(const QString &url, const QString &cookiesBrowser,
                             Completion<VideoInfo> completion)
{
    m_processes.post([=, this, completion = std::move(completion)] {
        fetch<VideoInfo>(
            url, videoArguments(url, cookiesBrowser),
            [url](const QByteArray &output) { return videoFromOutput(output, url); }, completion);
    });
}

void YTDLPService::fetchPlaylistInfo(const QString &url, const QString &cookiesBrowser,
                                     Completion<VideoInfo> completion)
{
    m_processes.post([=, this, completion = std::move(completion)] {
        fetch<VideoInfo>(
            url, playlistArguments(url, cookiesBrowser),
            [url](const QByteArray &output) { return playlistFromOutput(output, url); },
            completion);
    });
}

void YTDLPService::search(const QString &query, int limit,
                          Completion<QList<SearchResult>> completion)
{
    m_processes.post([=, this, completion = std::move(completion)] {
        request<QList<SearchResult>>(searchArguments(query, limit), resultsFromOutput, completion);
    });
}

void YTDLPService::getStreamURL(const QString &videoURL, Completion<QUrl> completion)
{
    m_processes.post([=, this, completion = std::move(completion)] {
        fetch<QUrl>(videoURL, streamArguments(videoURL), streamFromOutput, completion);
    });
}

void YTDLPService::runProcessWithProgress(const QStringList &arguments,
                                          ProgressHandler progressHandler,
                                          ProcessingHandler processingHandler,
                                          Completion<QString> completion,
                                          const std::stop_token &stop)
{
    auto output =
        std::make_shared<DownloadOutput>(std::move(progressHandler), std::move(processingHandler));
    m_processes.post([this, arguments, output, completion = std::move(completion), stop] {
        download(arguments, output, completion, stop);
    });
}

std::shared_ptr<ProcessHandle> YTDLPService::activeProcess() const
{
    const std::scoped_lock lock(m_activeProcessMutex);
    return m_activeProcess;
}

void YTDLPService::endProcesses()
{
    m_processes.endAll();
}

void YTDLPService::collect(const QStringList &arguments, Completion<QByteArray> completion)
{
    const auto output = std::make_shared<QByteArray>();
    launch(
        arguments, std::make_shared<ProcessHandle>(),
        [output](const QByteArray &bytes) { output->append(bytes); },
        [output, completion = std::move(completion)](const ProcessEnding &ending) {
            if (!ending.isSuccess()) {
                completion(YTDLPError::fetchFailed(messageOf(ending), launchOf(ending)));
                return;
            }
            completion(isDecodable(*output) ? *output : QByteArray());
        });
}

void YTDLPService::download(const QStringList &arguments,
                            const std::shared_ptr<DownloadOutput> &output,
                            Completion<QString> completion, const std::stop_token &stop)
{
    if (stop.stop_requested()) {
        completion(YTDLPError::downloadFailed(u"Stopped"_s));
        return;
    }
    if (!arguments.isEmpty() && looksLikeOption(arguments.last())) {
        completion(YTDLPError::downloadFailed(optionURLMessage(arguments.last())));
        return;
    }
    const auto handle = std::make_shared<ProcessHandle>();
    const auto guard = std::make_shared<DownloadGuard>(arguments);
    setActiveProcess(handle);
    const auto end = std::make_shared<EndOnStop>();
    ChildProcess *const child = launch(
        arguments, handle, [output](const QByteArray &bytes) { output->append(bytes); },
        [=, this, completion = std::move(completion)](const ProcessEnding &ending) {
            end->disarm();
            clearActiveProcess(handle);
            const QString danger = guard->removeConfigurations();
            if (!danger.isEmpty()) {
                completion(YTDLPError::downloadFailed(danger));
            } else if (ending.isSuccess()) {
                for (const QString &path : output->namedFiles())
                    m_finishedFiles.insert(absoluteForTool(path));
                completion(output->savedPath());
            } else {
                // The next run would mistake such a file for a finished download.
                if (!output->halfMadeFile().isEmpty())
                    guard->removeHalfMade(output->halfMadeFile(), m_finishedFiles);
                completion(YTDLPError::downloadFailed(messageOf(ending), launchOf(ending)));
            }
        });
    end->arm(child, stop, m_processes);
}

ChildProcess *YTDLPService::launch(const QStringList &arguments,
                                   const std::shared_ptr<ProcessHandle> &handle,
                                   const ChildProcess::OutputHandler &onOutput,
                                   const ChildProcess::EndHandler &onEnd)
{
    return m_processes.launch({.program = ytdlpPath(),
                               .arguments = arguments,
                               .environment = processEnv(),
                               .folder = toolFolder()},
                              handle, onOutput, onEnd);
}

void YTDLPService::setActiveProcess(std::shared_ptr<ProcessHandle> handle)
{
    const std::scoped_lock lock(m_activeProcessMutex);
    m_activeProcess = std::move(handle);
}

void YTDLPService::clearActiveProcess(const std::shared_ptr<ProcessHandle> &handle)
{
    const std::scoped_lock lock(m_activeProcessMutex);
    if (m_activeProcess == handle)
        m_activeProcess.reset();
}
