// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PortalRequest.h"

#include <QTimer>
#include <QUrl>

#include <memory>

/// The desktop's own chooser for the download folder, which is a window of another program.
/// Main thread.
class FolderPortal : public QObject
{
    Q_OBJECT

public:
    explicit FolderPortal(const QDBusConnection &bus = QDBusConnection::sessionBus());

    /// Shows it over a window, named as portals name windows (empty: over none). It starts in
    /// the folder where the portal can do that. One that is still shown is closed.
    void open(const QString &parentWindow, const QString &startFolder);

Q_SIGNALS:
    void chosen(const QUrl &folder);
    /// The desktop has none, or it does not answer.
    void unavailable();

private:
    void handleVersion(const QDBusMessage &reply);
    void handleAnswer(const QVariantMap &results);
    void end();
    void giveUp();

    QDBusConnection m_bus;
    QString m_parentWindow;
    QString m_startFolder;
    std::unique_ptr<PortalRequest> m_request; // while one is shown
    QTimer m_patience;
};
