// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <variant>

/// What one line of a download's output says.
namespace ProgressLine {

struct Nothing
{
};
struct Progress
{
    double fraction = 0; ///< 0 to 1
    QString speed;       ///< as printed, such as 2.50MiB/s
    QString eta;         ///< as printed, such as 00:42, or "--" when unknown
};
/// A file is being written, or streams are being merged into it.
struct Destination
{
    QString path;
};
/// Audio is being extracted into this file.
struct AudioDestination
{
    QString path;
};
/// A phase without percentages.
struct Processing
{
};
struct AlreadyDownloaded
{
    QString path;
};

using Event =
    std::variant<Nothing, Progress, Destination, AudioDestination, Processing, AlreadyDownloaded>;

/// The meaning of one line without its line break. The first expression that
/// matches wins. Any thread.
Event parse(const QString &line);

} // namespace ProgressLine
