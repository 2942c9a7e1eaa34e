// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The desktop's file manager. Main thread; returns at once, fails silently.
class FileViewer
{
public:
    virtual ~FileViewer() = default;

    /// Shows the folder that holds this file or folder, with it selected.
    virtual void select(const QString &path) = 0;

    virtual void openFolder(const QString &path) = 0;
};
