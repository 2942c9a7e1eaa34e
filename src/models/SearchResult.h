// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// One row of a search.
struct SearchResult
{
    QString id; ///< the site's
    QString title;
    QString uploader;
    std::optional<double> duration; ///< seconds
    QString thumbnailURL;
    QString videoURL; ///< of the watch page

    [[nodiscard]] QString formattedDuration() const;

    /// What a download of the result with this id, as video or sound, is known by.
    [[nodiscard]] static QString downloadKey(const QString &id, bool isAudio);

    bool operator==(const SearchResult &other) const = default;
};
