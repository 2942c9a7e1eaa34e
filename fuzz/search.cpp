// SPDX-License-Identifier: GPL-3.0-or-later
#include "Search.h"
#include "Fuzz.h"

// What the tool prints for a search.
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QList<SearchResult> results = resultsFromOutput(input(data, size));
    for (const SearchResult &each : results) {
        expect(!each.id.isNull());
        static_cast<void>(each.formattedDuration());
    }
    return 0;
}
