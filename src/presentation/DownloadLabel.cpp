// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadLabel.h"

QString downloadLabel(qsizetype count)
{
    return count == 1 ? QStringLiteral("Download 1 Video")
                      : QStringLiteral("Download %1 Videos").arg(count);
}
