// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

/// The desktop's file manager. Main thread; returns at once, fails silently.
class FileViewer
{
public:
    virtual ~FileViewer() = default;

    /// Shows the folder that holds this file or folder, with it selected.
    virtual void select(const QString &path) = 0;

    virtual void openFolder(const QString &path) = 0;

    /// Opens a file, or a page, with the program that the desktop has for it. The caller
    /// sees to it that this is harmless.
    virtual void open(const QUrl &url) = 0;
};
