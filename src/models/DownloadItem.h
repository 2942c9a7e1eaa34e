// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DownloadStatus.h"
#include "Published.h"
#include "VideoInfo.h"

#include <QObject>
#include <QUuid>

#include <optional>

/// One entry of the queue. It is shared: the queue shows it while a run works on it, and
/// the run keeps it when it has left the queue.
class DownloadItem : public QObject
{
    Q_OBJECT

public:
    explicit DownloadItem(const QString &itsURL);

    const QUuid id;
    const QString url; ///< as the user entered it

    PUBLISHED(DownloadItem, std::optional<VideoInfo>, info)
    PUBLISHED(DownloadItem, DownloadStatus, status, DownloadStatus(Status::Waiting{}))

    /// The video's title, or its URL until that is known.
    [[nodiscard]] QString title() const;
    /// The video's formatted duration, or the empty text.
    [[nodiscard]] QString duration() const;
};
