// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopFileViewer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

void DesktopFileViewer::select(const QString &path)
{
    const QFileInfo item(path);
    call(u"ShowItems"_s, path, item.isDir() ? path : item.path());
}

void DesktopFileViewer::openFolder(const QString &path)
{
    if (QFileInfo(path).isDir())
        call(u"ShowFolders"_s, path, path);
}

void DesktopFileViewer::call(const QString &method, const QString &path,
                             const QString &fallbackFolder)
{
    auto message = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s,
                                                  u"/org/freedesktop/FileManager1"_s,
                                                  u"org.freedesktop.FileManager1"_s, method);
    message << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    auto *const watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, fallbackFolder] {
        watcher->deleteLater();
        // A file would be opened by whatever program it names.
        if (QDBusPendingReply<>(*watcher).isError() && QFileInfo(fallbackFolder).isDir())
            QDesktopServices::openUrl(QUrl::fromLocalFile(fallbackFolder));
    });
}
