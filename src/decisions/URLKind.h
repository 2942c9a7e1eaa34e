// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Plain, case-sensitive tests anywhere in a URL.
bool namesVideo(const QString &url);
bool namesPlaylist(const QString &url);

/// Whether the URL names both, so that the user has a choice.
bool namesVideoAndPlaylist(const QString &url);

/// Whether single mode fetches a playlist for this URL.
bool fetchesPlaylist(const QString &url, bool fetchAsPlaylist);
