// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaFormat.h"

QString rawValue(MediaFormat format)
{
    switch (format) {
    case MediaFormat::mp4:
        return QStringLiteral("MP4 (Video)");
    case MediaFormat::mp3:
        return QStringLiteral("MP3 (Audio only)");
    }
    Q_UNREACHABLE();
}
