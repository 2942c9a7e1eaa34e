// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Whether a failure may come of the tool's age. Not so what a newer tool could not
/// change: a private or removed video, the network, the disk, cookies, ffmpeg.
bool ageMayExplain(const QString &failure);
