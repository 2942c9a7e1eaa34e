// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Texts from outside as they are drawn, spoken, and handed to the desktop; what is stored
// stays as it came. Overrides of direction (U+202A to U+202E) are left out, since they
// can make "exe.4pm" of "mp4.exe". Isolates (U+2066 to U+2069), which right-to-left titles
// need, are closed at the end, so that they end with the text.

/// The text with its lines, trimmed, and cut after 10,000 characters: of megabytes nobody
/// reads the rest, and laying them out would hold the window up.
QString shownText(const QString &text);

/// The text on one line, cut after 1,000 characters, which no row has room for.
QString shownLine(const QString &text);
