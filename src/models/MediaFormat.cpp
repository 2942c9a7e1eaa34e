// SPDX-License-Identifier: GPL-3.0-or-later
#include "MediaFormat.h"

using namespace Qt::StringLiterals;

QString rawValue(MediaFormat format)
{
    switch (format) {
    case MediaFormat::mp4:
        return u"MP4 (Video)"_s;
    case MediaFormat::mp3:
        return u"MP3 (Audio only)"_s;
    }
    Q_UNREACHABLE();
}
