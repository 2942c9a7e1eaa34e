// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// How every command line begins.
QStringList leadingArguments();

/// Makes the tool read a browser's cookies; empty for "none" and the empty text.
QStringList cookieArguments(const QString &browser);

/// The command line that prints one video's metadata.
QStringList videoArguments(const QString &url, const QString &cookiesBrowser);

/// The command line that lists a playlist without opening each entry.
QStringList playlistArguments(const QString &url, const QString &cookiesBrowser);

/// The command line that lists up to `limit` results of a search.
QStringList searchArguments(const QString &query, int limit);

/// The command line that prints the URL of a video's stream.
QStringList streamArguments(const QString &videoURL);

/// Whether the tool would take the URL for an option.
bool looksLikeOption(const QString &url);

/// The error for such a URL.
QString optionURLMessage(const QString &url);
