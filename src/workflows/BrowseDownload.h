// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "QualityOption.h"
#include "SearchResult.h"

/// All that one download from a search needs, fixed at its start.
struct BrowseDownload
{
    SearchResult result;
    QString key;
    QualityOption quality;
    QString folder;
};
