// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ReferenceDate.h"

#include <QString>
#include <QUuid>

#include <optional>

/// One finished download.
struct HistoryItem
{
    QUuid id;
    QString title;
    QString thumbnailURL; ///< may be empty
    QString url;
    QString format;  ///< "mp3" for an audio download, "mp4" otherwise
    QString quality; ///< the label of the quality used
    std::optional<QString> savedPath;
    ReferenceDate date; ///< when the download finished

    bool operator==(const HistoryItem &other) const = default;
};
