// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/// The statuses of downloads by name, for screens. `Paused` is what a screen makes of
/// `Downloading` while the pause is on.
namespace StatusKind {
Q_NAMESPACE

enum Value { Idle, Waiting, Fetching, Downloading, Paused, Processing, Done, Failed };
Q_ENUM_NS(Value)

} // namespace StatusKind
