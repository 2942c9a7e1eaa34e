// SPDX-License-Identifier: GPL-3.0-or-later
#include "DownloadLabel.h"

using namespace Qt::StringLiterals;

QString downloadLabel(qsizetype count)
{
    return count == 1 ? u"Download 1 Video"_s : u"Download %1 Videos"_s.arg(count);
}
