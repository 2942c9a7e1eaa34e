// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QUrl>

#include <chrono>
#include <optional>

/// Where releases of the tool come from, and what to expect of that place.
struct ReleaseSource
{
    QUrl folder;    ///< ends with a slash; the release's files lie in it
    QByteArray key; ///< armored, the one that releases are signed with
    std::chrono::milliseconds longestSilence = std::chrono::seconds{15}; ///< between two bytes
    std::chrono::milliseconds timeToStart = std::chrono::seconds{20};    ///< of a new tool
    std::chrono::milliseconds timeToPack = std::chrono::seconds{120};

    /// The tool's own latest release. The key stands in yt-dlp-release-key.asc.
    static ReleaseSource official();
};

/// The release file that is used: the form that needs only Python and is one process, so
/// that a pause reaches all of it.
QString releasedFile();

/// The sum (64 hex digits) listed for this name in a file of SHA-256 sums.
std::optional<QByteArray> sumFor(const QByteArray &sums, const QString &name);

/// The key between the lines of its armor; empty if there is none.
QByteArray dearmored(const QByteArray &key);
