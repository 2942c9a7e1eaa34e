// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Texts from outside as they are drawn, spoken, and handed to the desktop; the stored
// text stays as it came. Direction overrides (U+202A to U+202E) are removed, since they
// can make "exe.4pm" look like "mp4.exe". Isolates (U+2066 to U+2069), which
// right-to-left titles need, are closed at the end of the text.

/// The text with its lines, trimmed, and cut after 10,000 characters: nobody reads
/// megabytes, and laying them out would freeze the window.
QString shownText(const QString &text);

/// The text on one line, cut after 1,000 characters, more than any row can show.
QString shownLine(const QString &text);
