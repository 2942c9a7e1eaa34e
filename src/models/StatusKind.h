// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/// The kinds of download status, for screens. `Paused` is how a screen shows
/// `Downloading` during a pause.
namespace StatusKind {
Q_NAMESPACE

enum Value { Idle, Waiting, Fetching, Downloading, Paused, Processing, Done, Failed };
Q_ENUM_NS(Value)

} // namespace StatusKind
