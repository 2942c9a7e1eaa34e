// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"
#include "Metadata.h"

using namespace Qt::StringLiterals;

// What the tool prints for one video.
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString url = u"https://example.org/"_s;
    const Reply<VideoInfo> reply = videoFromOutput(input(data, size), url);
    if (const auto *const info = std::get_if<VideoInfo>(&reply)) {
        expect(!info->isPlaylist && info->originalURL == url);
        static_cast<void>(info->formattedDuration());
    }
    return 0;
}
