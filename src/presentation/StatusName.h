// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DownloadStatus.h"

/// The name by which screens tell one status from another.
QString statusName(const DownloadStatus &status);

class AppState;

/// Of the last download of a search result; empty where there was none.
QString browseStatusName(const AppState &state, const QString &resultID, bool isAudio);

/// In words, for those who do not see it.
QString browseSpoken(const AppState &state, const QString &resultID, bool isAudio);

/// How far it was last reported to be, from 0 to 1.
double browseProgress(const AppState &state, const QString &resultID, bool isAudio);
