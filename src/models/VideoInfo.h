// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>
#include <QSet>
#include <QString>

#include <optional>

/// What is known about a video, or about a playlist with its entries.
struct VideoInfo
{
    Q_GADGET
    Q_PROPERTY(QString title READ shownTitle CONSTANT)
    Q_PROPERTY(QString thumbnailURL MEMBER thumbnailURL CONSTANT)
    Q_PROPERTY(QString originalURL MEMBER originalURL CONSTANT)
    Q_PROPERTY(QString uploader READ shownUploader CONSTANT)
    Q_PROPERTY(QString formattedDuration READ formattedDuration CONSTANT)
    Q_PROPERTY(bool isPlaylist MEMBER isPlaylist CONSTANT)

public:
    QString id; ///< the site's, or any unique text where the site gave none
    QString title;
    QString thumbnailURL;           ///< may be empty
    std::optional<double> duration; ///< seconds
    QString uploader;               ///< may be empty
    QString originalURL;            ///< as the user gave it; of an entry, its own URL
    bool isPlaylist = false;
    QList<VideoInfo> playlistEntries;
    std::optional<QString> playlistTitle;
    QSet<qint64> availableHeights; ///< pixels; empty when unknown

    [[nodiscard]] QString formattedDuration() const;
    [[nodiscard]] QString shownTitle() const;
    [[nodiscard]] QString shownUploader() const;

    bool operator==(const VideoInfo &other) const;
};
