// SPDX-License-Identifier: GPL-3.0-or-later
#include "Fuzz.h"
#include "Metadata.h"

using namespace Qt::StringLiterals;

// What the tool prints for a playlist.
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray output = input(data, size);
    const VideoInfo info = playlistFromOutput(output, u"https://example.org/"_s);
    expect(info.isPlaylist && info.playlistEntries.size() <= output.count('\n') + 1);
    return 0;
}
