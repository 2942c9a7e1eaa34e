// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Plain, case-sensitive tests anywhere in an address.
bool namesVideo(const QString &address);
bool namesPlaylist(const QString &address);

/// Whether the address names both, so that the user has a choice.
bool isMixedAddress(const QString &address);

/// Whether single mode fetches a playlist for this address.
bool fetchesPlaylist(const QString &address, bool fetchAsPlaylist);
