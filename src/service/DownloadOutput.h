// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "LineBuffer.h"
#include "ProgressLine.h"

#include <QStringList>

#include <functional>

/// Gets the fraction done (0 to 1), and speed and remaining time as the tool prints them.
/// Called on the service's worker thread.
using ProgressHandler = std::function<void(double progress, QString speed, QString eta)>;

/// Told that the tool has entered a phase without percentages. Called on the
/// service's worker thread.
using ProcessingHandler = std::function<void()>;

/// Reads the output of one download: calls the handlers and remembers paths.
class DownloadOutput
{
public:
    DownloadOutput(ProgressHandler onProgress, ProcessingHandler onProcessing);

    /// Handles every line that is complete with these bytes.
    void append(const QByteArray &bytes);

    /// Where the file was saved. A written or merged file takes precedence over the one
    /// that audio was extracted into; empty when none was named.
    [[nodiscard]] QString savedPath() const;

    /// Every file that was named as finished.
    [[nodiscard]] QStringList namedFiles() const;

    /// The file that would be left incomplete under its final name if the run ended now;
    /// empty if there is none. Only audio extraction writes like that; the tool is silent
    /// while it lasts and prints something right after.
    [[nodiscard]] QString halfMadeFile() const { return m_halfMadeFile; }

private:
    void handle(const ProgressLine::Nothing &event);
    void handle(const ProgressLine::Progress &event);
    void handle(const ProgressLine::Destination &event);
    void handle(const ProgressLine::AudioDestination &event);
    void handle(const ProgressLine::Processing &event);
    void handle(const ProgressLine::AlreadyDownloaded &event);

    const ProgressHandler m_onProgress;
    const ProcessingHandler m_onProcessing;
    LineBuffer m_lines;
    QString m_downloadPath;
    QString m_finalFilePath;
    QString m_halfMadeFile;
};
