// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Whether the tool's age may explain a failure. Not if a newer tool could not help: a
/// private or removed video, the network, the disk, cookies, ffmpeg.
bool ageMayExplain(const QString &failure);
