// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include <algorithm>

using namespace Qt::StringLiterals;

const QList<PendingDownload> &AppState::interruptedDownloads() const
{
    return m_pending.interrupted();
}

void AppState::requeueInterrupted()
{
    const QList<PendingDownload> interrupted = interruptedDownloads();
    forgetInterrupted();
    if (interrupted.isEmpty())
        return;
    const PendingDownload &first = interrupted.first();
    const MediaFormat format = first.format == u"mp3" ? MediaFormat::mp3 : MediaFormat::mp4;
    const auto &options = QualityOption::queueOptions();
    const auto same =
        std::find_if(options.begin(), options.end(), [&first](const QualityOption &option) {
            return option.label == first.quality;
        });
    mode = AppMode::multi;
    multiFormat = format;
    multiQuality =
        format == MediaFormat::mp4 && same != options.end() ? *same : QualityOption::best(format);
    QStringList urls;
    for (const PendingDownload &download : interrupted)
        urls.append(download.url);
    addURLsToQueue(urls);
}

void AppState::forgetInterrupted()
{
    m_pending.forgetInterrupted();
    Q_EMIT interruptedDownloadsChanged();
}
