// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "DownloadUIStatus.h"

#include <QString>

/// What the status chip shows; all empty while there is nothing to tell.
struct StatusChipText
{
    QString icon;
    QString text;
    QString tone; ///< the theme's name of its colour
};

StatusChipText statusChipText(const DownloadUIStatus &status, bool isPaused);
