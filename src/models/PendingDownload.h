// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// One file that a run is to download.
struct PendingDownload
{
    QString url;
    QString title;
    QString format;  ///< "mp4" or "mp3"
    QString quality; ///< the label
};
