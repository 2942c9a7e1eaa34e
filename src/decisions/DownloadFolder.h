// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// The folder that the user's setting means. "~" and "~/…" start at the home folder; an
/// empty setting means the first of the standard download folders, else the home folder.
/// Whether it exists is left to the downloader.
QString downloadFolder(const QString &setting, const QString &home, const QStringList &downloads);
