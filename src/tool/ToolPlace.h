// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ToolReport.h"

#include <QMap>
#include <QStringList>

/// Where the tool is looked for, and where Quillon may install one.
struct ToolPlaces
{
    QStringList searchPaths;            ///< the first at which something exists is used
    QString ownPath;                    ///< one of them
    QMap<QString, QString> environment; ///< the tool's whole environment

    /// The program's.
    static ToolPlaces standard();
};

/// What a tool prepared by Quillon carries at its end, which marks it as Quillon's: the
/// SHA-256 of the release that it was made from, in hex.
QByteArray ownMark(const QByteArray &releaseSum);

/// Whether the file was prepared by Quillon. A link to one was not.
bool isOwn(const QString &path);

/// A shell command that would update the tool at this path, which is not Quillon's; empty
/// if that is unknown.
QString renewalCommand(const QString &path);

/// The command for a release file; with the necessary rights if the user may not write
/// it.
QString selfUpdateCommand(const QString &path, bool isWritable);

/// The program of this name in the environment's PATH; empty if there is none.
QString programIn(const QMap<QString, QString> &environment, const QString &name);

/// The path, and what stands in the way of an update; says nothing about the version.
ToolReport locateTool(const ToolPlaces &places);
