// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FileViewer.h"

#include <QObject>

/// The file manager, over the session bus; where none answers, the desktop's portal, and
/// without one, what is registered for folders.
class DesktopFileViewer : public QObject, public FileViewer
{
    Q_OBJECT

public:
    void select(const QString &path) override;
    void openFolder(const QString &path) override;
    void open(const QUrl &url) override;

private:
    void callManager(const QString &method, const QString &path);
    void callPortal(const QString &path);
};
