// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatusKind.h"

#include <QString>

#include <variant>

/// The states of a download.
namespace Status {

struct Idle
{
    static constexpr auto kind = StatusKind::Idle;
    bool operator==(const Idle &other) const = default;
};
struct Waiting
{
    static constexpr auto kind = StatusKind::Waiting;
    bool operator==(const Waiting &other) const = default;
};
struct Fetching
{
    static constexpr auto kind = StatusKind::Fetching;
    bool operator==(const Fetching &other) const = default;
};
/// Of a download whose progress is kept elsewhere.
struct Running
{
    static constexpr auto kind = StatusKind::Downloading;
    bool operator==(const Running &other) const = default;
};
struct Downloading
{
    static constexpr auto kind = StatusKind::Downloading;
    double progress = 0; ///< from 0 to 1
    QString speed = {};  ///< as the tool prints it
    QString eta = {};    ///< as the tool prints it
    bool operator==(const Downloading &other) const = default;
};
struct Processing
{
    static constexpr auto kind = StatusKind::Processing;
    bool operator==(const Processing &other) const = default;
};
struct Done
{
    static constexpr auto kind = StatusKind::Done;
    QString path = {}; ///< empty where the tool did not name it
    bool operator==(const Done &other) const = default;
};
struct Failed
{
    static constexpr auto kind = StatusKind::Failed;
    QString message = {};
    bool operator==(const Failed &other) const = default;
};

} // namespace Status

/// How far one queue entry, or one download from a search row, has come.
using DownloadStatus = std::variant<Status::Waiting, Status::Fetching, Status::Downloading,
                                    Status::Processing, Status::Done, Status::Failed>;

/// How far the single-mode download has come. Its progress, speed and remaining time are
/// properties of the application state; the path of `Done` is the run's folder.
using DownloadUIStatus =
    std::variant<Status::Idle, Status::Running, Status::Processing, Status::Done, Status::Failed>;

template<typename... Kinds>
StatusKind::Value kindOf(const std::variant<Kinds...> &status)
{
    return std::visit([](const auto &each) { return each.kind; }, status);
}

/// Of a finished download; empty for the others.
template<typename... Kinds>
QString pathOf(const std::variant<Kinds...> &status)
{
    const auto *const done = std::get_if<Status::Done>(&status);
    return done ? done->path : QString();
}

/// Of a failed download; empty for the others.
template<typename... Kinds>
QString messageOf(const std::variant<Kinds...> &status)
{
    const auto *const failed = std::get_if<Status::Failed>(&status);
    return failed ? failed->message : QString();
}

/// From 0 to 1; 0 for what does not download.
double progressOf(const DownloadStatus &status);

/// The status in a word, as a badge shows it.
QString badgeLabel(const DownloadStatus &status);
