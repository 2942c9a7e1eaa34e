// SPDX-License-Identifier: GPL-3.0-or-later
#include "SearchResult.h"

#include "Duration.h"

QString SearchResult::formattedDuration() const
{
    return ::formattedDuration(duration);
}
