// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

/// The URLs of the web that stand on lines of their own, at most 100.
QStringList webURLsIn(const QString &text);

/// As webURLsIn(), for what was dropped: a line may also be the URL of a local link or text
/// file (.url, .webloc, .txt), which stands for the URLs in it. Reads at most 64 KiB of each.
QStringList webURLsInDrop(const QString &text);
