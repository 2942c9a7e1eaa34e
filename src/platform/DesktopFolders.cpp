// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopFolders.h"

#include <QStandardPaths>

QStringList DesktopFolders::downloads() const
{
    return QStandardPaths::standardLocations(QStandardPaths::DownloadLocation);
}
