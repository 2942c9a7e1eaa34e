// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadOutput.h"

#include "ToolText.h"

DownloadOutput::DownloadOutput(ProgressHandler onProgress, ProcessingHandler onProcessing)
    : m_onProgress(std::move(onProgress))
    , m_onProcessing(std::move(onProcessing))
{
}

void DownloadOutput::append(const QByteArray &bytes)
{
    m_lines.append(bytes);
    while (const auto line = m_lines.takeLine()) {
        m_halfMadeFile.clear();
        std::visit([this](const auto &event) { handle(event); },
                   ProgressLine::parse(decodedText(*line)));
    }
}

QString DownloadOutput::savedPath() const
{
    return m_downloadPath.isEmpty() ? m_finalFilePath : m_downloadPath;
}

QStringList DownloadOutput::namedFiles() const
{
    QStringList files{m_downloadPath, m_finalFilePath};
    files.removeAll(QString());
    return files;
}

void DownloadOutput::handle(const ProgressLine::Nothing & /*event*/) { }

void DownloadOutput::handle(const ProgressLine::Progress &event)
{
    m_onProgress(event.fraction, event.speed, event.eta);
}

void DownloadOutput::handle(const ProgressLine::Destination &event)
{
    m_downloadPath = event.path;
    m_onProcessing();
}

void DownloadOutput::handle(const ProgressLine::AudioDestination &event)
{
    m_finalFilePath = event.path;
    m_halfMadeFile = event.path;
}

void DownloadOutput::handle(const ProgressLine::Processing & /*event*/)
{
    m_onProcessing();
}

void DownloadOutput::handle(const ProgressLine::AlreadyDownloaded &event)
{
    m_finalFilePath = event.path;
    m_onProgress(1.0, QString(), QString());
}
