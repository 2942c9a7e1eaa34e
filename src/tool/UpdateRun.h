// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "BoundedRun.h"
#include "Download.h"
#include "ToolFolder.h"
#include "ToolUpdate.h"

#include <QCryptographicHash>
#include <QFile>
#include <QNetworkAccessManager>

/// The steps of one update, each of which starts the next. Everything on the thread of
/// its processes.
class UpdateRun
{
    Q_DISABLE_COPY_MOVE(UpdateRun)

public:
    UpdateRun(ChildProcesses &processes, ReleaseSource source, ToolPlaces places,
              ToolVersion present, ToolUpdate::Handlers handlers);
    ~UpdateRun() = default;

    void begin();
    /// Ends it without an error, unless it has already ended.
    void giveUp();

private:
    using Next = std::function<void()>;
    using RunHandler = std::function<void(const BoundedRun &)>;

    void claimFolder();
    void fetchSums();
    void verifySums();
    void fetchTool();
    void checkSum();
    void pack();
    void tryPacked();
    void install(const ToolVersion &version);

    /// Downloads a file of the release into the folder to work in.
    void fetch(const QString &name, qint64 mostBytes, bool isReported, const Next &next);
    void run(const QString &program, const QStringList &arguments, std::chrono::milliseconds time,
             const RunHandler &onEnd, const ChildProcess::OutputHandler &onOutput = {});
    /// Once more from the start, since a release may have appeared meanwhile; the second
    /// time it is an error.
    void beginAnew(const QString &error);
    void fail(const QString &error);
    void end(const UpdateOutcome &outcome);
    void dropDownload();

    ChildProcesses &m_processes;
    const ReleaseSource m_source;
    const ToolPlaces m_places;
    const ToolVersion m_present;
    ToolUpdate::Handlers m_handlers;

    QString m_python;
    std::unique_ptr<ToolFolder> m_folder;
    QNetworkAccessManager m_network;
    std::unique_ptr<Download> m_download;
    QFile m_file; // that is downloaded
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    QByteArray m_sum;                // of the downloaded tool, in hex
    ChildProcess *m_child = nullptr; // that runs
    bool m_isGivenUp = false;
    int m_beginnings = 0;
};
