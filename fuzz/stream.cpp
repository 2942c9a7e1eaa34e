// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"
#include "Search.h"

// What the tool prints for a stream.
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const Reply<QUrl> reply = streamFromOutput(input(data, size));
    if (const auto *const url = std::get_if<QUrl>(&reply))
        expect(!url->isEmpty());
    return 0;
}
