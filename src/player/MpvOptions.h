// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// An option of mpv's, in its own words.
struct MpvOption
{
    const char *name;
    const char *value;
};

// Nothing from the user's own mpv configuration, nothing drawn over the picture, no
// helper programs; only the web, also behind redirects and in playlists.
inline constexpr MpvOption mpvOptions[] = {
    {"config", "no"},
    {"load-scripts", "no"},
    {"ytdl", "no"},
    {"osc", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"terminal", "no"},
    {"input-default-bindings", "no"},
    {"input-vo-keyboard", "no"},
    {"vo", "libmpv"},
    // Pictures are wanted in memory.
    {"hwdec", "auto-copy-safe"},
    // In this way a picture gets its colours, and a larger size, in half the time.
    {"sws-fast", "yes"},
    {"sws-scaler", "bilinear"},
    // The proportions are those of whoever shows it.
    {"keepaspect", "no"},
    {"idle", "yes"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"tls-verify", "yes"},
    {"network-timeout", "15"},
    {"demuxer-max-bytes", "32MiB"},
    {"demuxer-max-back-bytes", "8MiB"},
    {"demuxer-lavf-o", "protocol_whitelist=[http,https,tcp,tls,crypto,data]"},
    {"stream-lavf-o", "protocol_whitelist=[http,https,tcp,tls,crypto]"},
    // A little more than 8K. A stream may claim any size, and each picture of 12,000 by
    // 12,000 would take more than a gigabyte.
    {"vd-lavc-o", "max_pixels=40000000"},
    // Without the last one, a machine without sound plays nothing at all.
    {"ao", "pipewire,pulse,alsa,null"},
    // What has ended stays visible.
    {"keep-open", "yes"},
    {"keep-open-pause", "no"},
};
