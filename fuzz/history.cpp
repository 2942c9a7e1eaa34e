// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"
#include "HistoryDocument.h"

// The stored history: what is read is written, and read the same.
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto records = decodeHistory(input(data, size));
    if (!records)
        return 0;
    const auto document = encodeHistory(*records);
    expect(document.has_value());
    const auto again = decodeHistory(*document);
    expect(again.has_value() && encodeHistory(*again) == document);
    expect(again->size() == records->size());
    for (qsizetype row = 0; row < records->size(); ++row) {
        const HistoryItem &one = (*records)[row];
        const HistoryItem &other = (*again)[row];
        expect(one.id == other.id && one.title == other.title && one.url == other.url
               && one.format == other.format && one.quality == other.quality
               && one.thumbnailURL == other.thumbnailURL && one.savedPath == other.savedPath
               && one.date.seconds == other.date.seconds);
    }
    return 0;
}
