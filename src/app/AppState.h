// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppMode.h"
#include "DownloadItem.h"
#include "DownloadStatus.h"
#include "HistoryItem.h"
#include "Mailbox.h"
#include "MediaFormat.h"
#include "MediaPlayer.h"
#include "PendingDownloads.h"
#include "PlatformServices.h"
#include "Published.h"
#include "QualityOption.h"
#include "RunFailure.h"
#include "SearchResult.h"
#include "StreamAhead.h"
#include "VideoInfo.h"
#include "YTDLPService.h"

#include <QCoroTask>

#include <functional>
#include <memory>
#include <stop_token>

using namespace Qt::StringLiterals;

class Preferences;
struct DownloadJob;
struct QueueRun;
struct SingleRun;
template<typename Value>
class ReplyAwaiter;

/// What AppState is built on; tests build it on parts of their own.
struct AppStateParts
{
    YTDLPService *service;
    Preferences *preferences;
    PlatformServices platform;

    /// The program's own: the shared service, the user's preferences, the desktop.
    static AppStateParts standard();
};

/// All state that the screens show, and every operation that they call. Lives on the main
/// thread. Every assignment of a published property notifies.
///
/// Operations that take time return at once and continue as coroutines; the destructor
/// ends what they wait for and lets each of them finish.
class AppState : public QObject
{
    Q_OBJECT

public:
    using EntrySelection = QSet<QString>;
    using Queue = QList<std::shared_ptr<DownloadItem>>;
    using Results = QList<SearchResult>;
    using DownloadStatuses = QMap<QString, DownloadStatus>;
    using DownloadFractions = QMap<QString, double>;
    using History = QList<HistoryItem>;

    /// On the program's own parts.
    AppState();
    explicit AppState(AppStateParts parts);
    ~AppState() override;

    // What the window shows, and the five settings. Settings take effect when
    // they are assigned and are stored by saveSettings() alone.
    PUBLISHED(AppState, AppMode, mode, AppMode::single)
    PUBLISHED(AppState, QString, downloadDir)
    PUBLISHED(AppState, bool, showSettings, false)
    PUBLISHED(AppState, qint64, historyLimit, 50)
    PUBLISHED(AppState, QString, speedLimit, u"0"_s)
    PUBLISHED(AppState, bool, notificationsEnabled, true)
    PUBLISHED(AppState, QString, cookiesBrowser, u"none"_s)

    // Single mode: the URL, what was fetched for it, and what to download.
    PUBLISHED(AppState, QString, singleURL)
    PUBLISHED(AppState, std::optional<VideoInfo>, singleInfo)
    PUBLISHED(AppState, bool, isFetching, false)
    PUBLISHED(AppState, std::optional<QString>, fetchError)
    PUBLISHED(AppState, MediaFormat, selectedFormat, MediaFormat::mp4)
    PUBLISHED(AppState, QualityOption, selectedQuality, QualityOption::best(MediaFormat::mp4))
    PUBLISHED(AppState, EntrySelection, selectedPlaylistItems)

    // The running download of single mode. The queue shares pause, title, index and
    // total.
    PUBLISHED(AppState, bool, isDownloading, false)
    PUBLISHED(AppState, double, downloadProgress, 0.0)
    PUBLISHED(AppState, QString, downloadSpeed)
    PUBLISHED(AppState, QString, downloadETA)
    PUBLISHED(AppState, DownloadUIStatus, downloadStatus, DownloadUIStatus(Status::Idle{}))
    PUBLISHED(AppState, bool, isPaused, false)
    PUBLISHED(AppState, QString, currentDownloadTitle)
    PUBLISHED(AppState, qint64, currentDownloadIndex, 0)
    PUBLISHED(AppState, qint64, totalDownloadCount, 0)
    PUBLISHED(AppState, bool, fetchAsPlaylist, false)

    // Multi mode: the queue and its choices.
    PUBLISHED(AppState, QString, multiURL)
    PUBLISHED(AppState, Queue, queue)
    PUBLISHED(AppState, MediaFormat, multiFormat, MediaFormat::mp4)
    PUBLISHED(AppState, QualityOption, multiQuality, QualityOption::best(MediaFormat::mp4))
    PUBLISHED(AppState, bool, isQueueDownloading, false)

    // Browse mode: playback, search, and downloads by result. The keys of the
    // two maps are a result's id followed by "_mp4" or "_mp3".
    PUBLISHED(AppState, std::optional<SearchResult>, nowPlaying)
    PUBLISHED(AppState, bool, isLoadingStream, false)
    PUBLISHED(AppState, std::optional<QString>, playerError)
    PUBLISHED(AppState, QString, browseSearchQuery)
    PUBLISHED(AppState, Results, browseResults)
    PUBLISHED(AppState, bool, isBrowseSearching, false)
    PUBLISHED(AppState, std::optional<QString>, browseSearchError)
    PUBLISHED(AppState, DownloadStatuses, browseDownloadStatuses)
    PUBLISHED(AppState, DownloadFractions, browseDownloadProgress)

    // Finished downloads of every mode, newest first.
    PUBLISHED(AppState, History, history)

    // Plain parts, never observed.
    MediaPlayer avPlayer;
    YTDLPService &service;
    std::optional<std::stop_source> streamLoadTask;
    const QString historyKey = u"quillon.history.v2"_s;
    const QString settingsKey = u"quillon.downloadDir"_s;
    const QString historyLimitKey = u"quillon.historyLimit"_s;
    const QString speedLimitKey = u"quillon.speedLimit"_s;
    const QString notificationsKey = u"quillon.notifications"_s;
    const QString cookiesBrowserKey = u"quillon.cookiesBrowser"_s;

    /// Whether the single-mode URL names both a video and a playlist.
    Q_PROPERTY(bool isMixedURL READ isMixedURL NOTIFY singleURLChanged)
    [[nodiscard]] bool isMixedURL() const;

    /// `downloadStatus` as screens show it: the tool names a destination, which
    /// counts as processing, before it reports percentages, so progress that is
    /// reported while processing shows as downloading.
    Q_PROPERTY(DownloadUIStatus displayedDownloadStatus READ displayedDownloadStatus NOTIFY
                   displayedDownloadStatusChanged)
    [[nodiscard]] DownloadUIStatus displayedDownloadStatus() const;
    Q_SIGNAL void displayedDownloadStatusChanged();

    /// The tool is about to be asked for something.
    Q_SIGNAL void operationStarted();
    /// What the tool was asked for has failed; the properties follow. On the main thread.
    Q_SIGNAL void operationFailed(const QString &description, bool wasLaunched);

    // Persistence (Persistence.cpp).
    void loadSettings();
    void saveSettings();
    void loadHistory();
    void saveHistory();
    /// Puts a record in front, drops the oldest beyond the limit, and saves.
    void addToHistory(const HistoryItem &item);
    /// Removes one record, and saves. The file stays.
    void removeFromHistory(const QUuid &id);

    // Utilities (Utilities.cpp).
    /// The absolute folder that downloads are written to.
    [[nodiscard]] QString resolvedDownloadDir() const;
    /// Shows a saved file, or its folder when it is gone.
    void revealInFinder(const QString &path);
    /// Plays a saved file with the desktop's program for it; does nothing unless it is a
    /// media file that is there.
    void openFile(const QString &path);
    /// Opens a page of the web; does nothing for any other URL.
    void openInBrowser(const QString &url);
    /// Announces a finished run by sound and notification, if the user wants it.
    void sendCompleteNotification(const QString &title, qint64 count);

    // Single mode (SingleMode.cpp).
    /// Fetches the metadata of `singleURL`; a blank one does nothing.
    void fetchSingleInfo();
    /// Downloads the fetched video, or the selected entries of a playlist.
    void startSingleDownload();
    /// Forgets the last run. A run in progress continues.
    void resetDownload();
    /// Ends the run in progress, whose download then fails. Its partial files stay for the
    /// next one.
    void stopSingleDownload();
    /// How the run that `downloadStatus` tells of has failed, if it has.
    [[nodiscard]] const std::optional<RunFailure> &singleFailure() const { return m_failure; }

    // Multi mode (Queue.cpp).
    /// Puts a URL at the end of the queue and fetches what it is; a playlist
    /// gives way to its entries. Blank text does nothing.
    void addURLToQueue(const QString &url);
    /// As addURLToQueue() for each, but they are fetched one after another.
    void addURLsToQueue(const QStringList &urls);
    /// Downloads every entry that is not being fetched or downloaded, including finished
    /// and failed ones. Does nothing during a run or with an empty queue.
    void startQueueDownload();
    /// Removes every entry that is not being fetched or downloaded. A run that has
    /// already taken one still downloads it.
    void clearQueue();
    /// Puts the entries of before a clearing back in their places.
    void restoreQueue(const Queue &before);
    Q_SIGNAL void queueCleared(const Queue &before);
    /// Removes one entry. Its fetch or download continues unseen.
    void removeFromQueue(const QUuid &id);

    // What an earlier start has left (Interrupted.cpp).
    [[nodiscard]] const QList<PendingDownload> &interruptedDownloads() const;
    /// Shows the queue and puts them into it, with their format and quality.
    void requeueInterrupted();
    void forgetInterrupted();
    Q_SIGNAL void interruptedDownloadsChanged();
    /// Removes all records, and whatever else tells what was downloaded; saves.
    void clearHistory();
    /// Puts the records of before a clearing behind those of since; saves.
    void restoreHistory(const History &before);
    Q_SIGNAL void historyCleared(const History &before);

    /// The user has pasted or dropped several URLs, where one was expected.
    Q_SIGNAL void severalURLsSeen(const QStringList &urls);

    // Browse mode (Browse.cpp).
    /// Searches for the query; while a search is going on, or for a blank one, it
    /// does nothing.
    void searchYouTube();
    /// Downloads a result in the best quality. The same download never runs twice at
    /// once; one that has ended may be repeated.
    void browseDownload(const SearchResult &result, bool isAudio);

    // Playback (Playback.cpp).
    /// Where the playing result stands in the results: the first of its identifier.
    [[nodiscard]] std::optional<qsizetype> currentPlayIndex() const;
    /// Plays a result, or stops the one that is playing or loading.
    void playBrowseResult(SearchResult result);
    void stopPlayback();
    /// Plays the result after the one that has ended, if there is one.
    void playNext();

    // Pause (Pause.cpp).
    /// Stops the running download's process, or lets it continue. The flag is toggled
    /// even when there is no process to signal.
    void togglePause();

private:
    enum class Report { none, progress, processing };

    [[nodiscard]] QCoro::Task<> fetch(QString url, bool asPlaylist);
    [[nodiscard]] QCoro::Task<> run(SingleRun singleRun);
    [[nodiscard]] QCoro::Task<> downloadTask(SingleRun singleRun, qsizetype position);
    /// Makes a request of the service and reports its failure. A coroutine that awaits it
    /// ends there once the state is closing.
    template<typename Value>
    ReplyAwaiter<Value> request(std::function<void(Completion<Value>)> start);
    ReplyAwaiter<VideoInfo> requestInfo(const QString &url, bool asPlaylist);
    [[nodiscard]] QCoro::Task<> fetchForQueue(std::shared_ptr<DownloadItem> item);
    [[nodiscard]] QCoro::Task<> fetchOneByOne(Queue items);
    [[nodiscard]] QCoro::Task<> runQueue(QueueRun queueRun);
    [[nodiscard]] QCoro::Task<> downloadItem(QueueRun queueRun, qsizetype position);
    /// What a running download reports. Called on the main thread, and not once the state
    /// is closing.
    struct DownloadReports
    {
        ProgressHandler onProgress;
        ProcessingHandler onProcessing;
    };
    /// Downloads one file with the current settings; yields its path, which may be empty.
    ReplyAwaiter<QString> requestDownload(const DownloadJob &job, const DownloadReports &reports,
                                          const std::stop_token &stop = {});
    [[nodiscard]] QCoro::Task<> search(QString query);
    ReplyAwaiter<Results> requestSearch(const QString &query, int limit);
    [[nodiscard]] QCoro::Task<> downloadResult(QString key, DownloadJob job);
    void setBrowseStatus(const QString &key, const DownloadStatus &status);
    void setBrowseProgress(const QString &key, double progress);
    void setupAutoPlayNext();
    [[nodiscard]] QCoro::Task<> loadStream(SearchResult result, std::optional<double> position,
                                           std::stop_token task);
    ReplyAwaiter<QUrl> requestStream(const QString &videoURL);
    /// Resolves the playing result anew, whose URL has run out, and goes on there.
    void renewStream(const QString &message, double position);
    [[nodiscard]] std::optional<SearchResult> nextResult() const;
    void resolveNextAhead();
    void cancelStreamLoad();
    void showProgress(double progress, const QString &speed, const QString &eta);
    void showProcessing();
    void setLastReport(Report report);
    void endRun(const DownloadUIStatus &status);
    /// Ends the pause, whoever asks for it, so that no process stays stopped without the
    /// flag.
    void unsetPause();

    /// Starts a coroutine in the event loop's next turn and looks after it; `start` is
    /// not called once the state is closing.
    void spawn(std::function<QCoro::Task<>()> start);
    /// Looks after a coroutine that has started.
    QCoro::Task<> lookAfter(QCoro::Task<> task);
    /// Any thread.
    void postUnlessClosing(std::function<void()> action);

    Preferences &m_preferences;
    PendingDownloads m_pending;
    const PlatformServices m_platform;
    const std::shared_ptr<Mailbox> m_mailbox; // to the main thread
    const std::unique_ptr<QSocketNotifier> m_delivery;
    StreamAhead m_streamAhead;
    bool m_hasRenewedStream = false;
    Report m_lastReport = Report::none;
    std::stop_source m_stopSource; // of the single-mode run that began last
    std::optional<RunFailure> m_failure;
    QList<std::shared_ptr<ProcessHandle>> m_stopped; // by togglePause()
    int m_runningTasks = 0;
    bool m_isClosing = false;
};
