// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ToolReport.h"

#include <QMap>
#include <QStringList>

/// Where the tool is looked for, and where Quillon may put one.
struct ToolPlaces
{
    QStringList searchPaths;            ///< the first at which something exists is used
    QString ownPath;                    ///< one of them
    QMap<QString, QString> environment; ///< the tool's whole environment

    /// The program's.
    static ToolPlaces standard();
};

/// What a tool that Quillon has put together carries at its end, so that it is known
/// as Quillon's by itself: the SHA-256 of the release that it was made of, in hex.
QByteArray ownMark(const QByteArray &releaseSum);

/// Whether the file is one that Quillon has put together. A link to one is not.
bool isOwn(const QString &path);

/// What would renew the tool at this path, which is not Quillon's, as a line for a
/// shell; empty if that cannot be told.
QString renewalCommand(const QString &path);

/// What has a release file renew itself; with the rights for it if the user may not write.
QString selfUpdateCommand(const QString &path, bool isWritable);

/// The program of this name in the environment's PATH; empty if there is none.
QString programIn(const QMap<QString, QString> &environment, const QString &name);

/// The path and what stands in the way of a renewal; says nothing of the version.
ToolReport locateTool(const ToolPlaces &places);
