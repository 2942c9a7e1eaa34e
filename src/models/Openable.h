// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// What may be opened with another program, which is chosen by the desktop.

/// Whether the URL is http or https and names a host.
bool isOfTheWeb(const QString &url);

/// Whether the path names a file that is there and plays: by its extension one of the
/// containers that the tool writes, a regular file and no program.
bool isPlayableFile(const QString &path);
