// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FolderPortal.h"

#include <QWindow>
#include <QtQml/qqmlregistration.h>

/// The desktop's own chooser for the download folder, for screens. Main thread.
class DesktopFolderChooser : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit DesktopFolderChooser(QObject *parent = nullptr);

    /// Shows it over the window, starting in a local folder.
    Q_INVOKABLE void open(const QWindow *window, const QUrl &startFolder);

Q_SIGNALS:
    void chosen(const QUrl &folder);
    /// The desktop has none, or it does not answer.
    void unavailable();

private:
    FolderPortal m_portal;
};
