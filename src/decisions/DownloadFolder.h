// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// The folder that the user's setting means: "~" and "~/…" are the home folder
/// and what is below it, nothing is the first of the standard folders for
/// downloads, else the home folder. Whether it exists is the downloader's matter.
QString downloadFolder(const QString &setting, const QString &home, const QStringList &downloads);
