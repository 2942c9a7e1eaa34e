// SPDX-License-Identifier: GPL-3.0-or-later
#include "YTDLPService.h"

#include "ChildProcess.h"
#include "HomeDirectory.h"
#include "Metadata.h"
#include "RequestArguments.h"
#include "Search.h"
#include "ToolText.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <semaphore>
#include <utility>

namespace {

YTDLPService *sharedService = nullptr;

/// What is said of a run that has failed.
QString messageOf(const ProcessEnding &ending)
{
    return ending.launchError.isEmpty() ? failureMessage(ending.standardError, ending.status)
                                        : ending.launchError;
}

} // namespace

YTDLPService &YTDLPService::shared()
{
    if (!sharedService) {
        sharedService = new YTDLPService(standardSearchPaths());
        // Not at the end of the process: its thread needs the application.
        qAddPostRoutine([] { delete std::exchange(sharedService, nullptr); });
    }
    return *sharedService;
}

QStringList YTDLPService::standardSearchPaths()
{
    return {QStringLiteral("/opt/homebrew/bin/yt-dlp"), QStringLiteral("/usr/local/bin/yt-dlp"),
            QStringLiteral("/usr/bin/yt-dlp")};
}

YTDLPService::YTDLPService(QStringList searchPaths)
    : binarySearchPaths(std::move(searchPaths))
{
}

YTDLPService::~YTDLPService()
{
    endProcesses();
    m_worker.post([children = std::move(m_children)] { Q_UNUSED(children) });
}

QString YTDLPService::ytdlpPath() const
{
    const auto path = std::find_if(binarySearchPaths.begin(), binarySearchPaths.end(),
                                   [](const QString &each) { return QFile::exists(each); });
    return path == binarySearchPaths.end() ? binarySearchPaths.first() : *path;
}

QMap<QString, QString> YTDLPService::processEnv()
{
    return {
        {QStringLiteral("PATH"), QStringLiteral("/opt/homebrew/bin:/usr/local/bin:/usr/bin:/bin")},
        {QStringLiteral("HOME"), homeDirectory()},
        {QStringLiteral("LANG"), QStringLiteral("en_US.UTF-8")}};
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
        completion(YTDLPError::fetchFailed(optionAddressMessage(url)));
    else
        request<Value>(arguments, std::move(parse), std::move(completion));
}

void YTDLPService::runProcess(const QStringList &arguments, Completion<QString> completion)
{
    m_worker.post([this, arguments, completion = std::move(completion)] {
        request<QString>(
            arguments, [](const QByteArray &output) { return QString::fromUtf8(output); },
            completion);
    });
}

void YTDLPService::fetchInfo(const QString &url, const QString &cookiesBrowser,
                             Completion<VideoInfo> completion)
{
    m_worker.post([=, this, completion = std::move(completion)] {
        fetch<VideoInfo>(
            url, videoArguments(url, cookiesBrowser),
            [url](const QByteArray &output) { return videoFromOutput(output, url); }, completion);
    });
}

void YTDLPService::fetchPlaylistInfo(const QString &url, const QString &cookiesBrowser,
                                     Completion<VideoInfo> completion)
{
    m_worker.post([=, this, completion = std::move(completion)] {
        fetch<VideoInfo>(
            url, playlistArguments(url, cookiesBrowser),
            [url](const QByteArray &output) { return playlistFromOutput(output, url); },
            completion);
    });
}

void YTDLPService::search(const QString &query, int limit,
                          Completion<QList<SearchResult>> completion)
{
    m_worker.post([=, this, completion = std::move(completion)] {
        request<QList<SearchResult>>(searchArguments(query, limit), resultsFromOutput, completion);
    });
}

void YTDLPService::getStreamURL(const QString &videoURL, Completion<QUrl> completion)
{
    m_worker.post([=, this, completion = std::move(completion)] {
        fetch<QUrl>(videoURL, streamArguments(videoURL), streamFromOutput, completion);
    });
}

void YTDLPService::runProcessWithProgress(const QStringList &arguments,
                                          ProgressHandler progressHandler,
                                          ProcessingHandler processingHandler,
                                          Completion<QString> completion)
{
    auto output =
        std::make_shared<DownloadOutput>(std::move(progressHandler), std::move(processingHandler));
    m_worker.post([this, arguments, output, completion = std::move(completion)] {
        download(arguments, output, completion);
    });
}

std::shared_ptr<ProcessHandle> YTDLPService::activeProcess() const
{
    const std::scoped_lock lock(m_activeProcessMutex);
    return m_activeProcess;
}

void YTDLPService::endProcesses()
{
    std::binary_semaphore idle(0);
    m_worker.post([this, &idle] {
        m_children->idleHandlers.append([&idle] { idle.release(); });
        for (ChildProcess *const child : std::as_const(m_children->running))
            child->end();
        signalIfIdle();
    });
    idle.acquire();
}

void YTDLPService::collect(const QStringList &arguments, Completion<QByteArray> completion)
{
    const auto output = std::make_shared<QByteArray>();
    launch(
        arguments, std::make_shared<ProcessHandle>(),
        [output](const QByteArray &bytes) { output->append(bytes); },
        [output, completion = std::move(completion)](const ProcessEnding &ending) {
            if (!ending.isSuccess()) {
                completion(YTDLPError::fetchFailed(messageOf(ending)));
                return;
            }
            completion(isDecodable(*output) ? *output : QByteArray());
        });
}

void YTDLPService::download(const QStringList &arguments,
                            const std::shared_ptr<DownloadOutput> &output,
                            Completion<QString> completion)
{
    if (!arguments.isEmpty() && looksLikeOption(arguments.last())) {
        completion(YTDLPError::downloadFailed(optionAddressMessage(arguments.last())));
        return;
    }
    const auto handle = std::make_shared<ProcessHandle>();
    setActiveProcess(handle);
    launch(
        arguments, handle, [output](const QByteArray &bytes) { output->append(bytes); },
        [=, this, completion = std::move(completion)](const ProcessEnding &ending) {
            clearActiveProcess(handle);
            if (ending.isSuccess()) {
                completion(output->savedPath());
                return;
            }
            // The next run would take such a file for a finished download.
            if (!output->halfMadeFile().isEmpty())
                QFile::remove(output->halfMadeFile());
            completion(YTDLPError::downloadFailed(messageOf(ending)));
        });
}

void YTDLPService::launch(const QStringList &arguments, std::shared_ptr<ProcessHandle> handle,
                          BytesHandler onOutput, EndHandler onEnd)
{
    const auto self = std::make_shared<ChildProcess *>(nullptr);
    auto *const child = new ChildProcess(
        {.program = ytdlpPath(), .arguments = arguments, .environment = processEnv()},
        std::move(handle), std::move(onOutput),
        [this, self, onEnd = std::move(onEnd)](const ProcessEnding &ending) {
            m_children->running.remove(*self);
            onEnd(ending);
            signalIfIdle();
        });
    *self = child;
    m_children->running.insert(child);
    child->start();
}

void YTDLPService::signalIfIdle()
{
    if (!m_children->running.isEmpty())
        return;
    const auto handlers = std::exchange(m_children->idleHandlers, {});
    for (const auto &handler : handlers)
        handler();
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
