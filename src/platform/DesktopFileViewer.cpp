// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopFileViewer.h"

#include "BusObject.h"

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

void DesktopFileViewer::open(const QUrl &url)
{
    QDesktopServices::openUrl(url);
}

void DesktopFileViewer::call(const QString &method, const QString &path,
                             const QString &fallbackFolder)
{
    const BusObject manager(QDBusConnection::sessionBus(), u"org.freedesktop.FileManager1"_s,
                            u"/org/freedesktop/FileManager1"_s, u"org.freedesktop.FileManager1"_s);
    const QStringList urls{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)};
    manager.call(method, {urls, QString()}, this, [fallbackFolder](const QDBusMessage &reply) {
        // Only ever a folder: a file would be opened by whatever program is registered
        // for it.
        if (reply.type() == QDBusMessage::ErrorMessage && QFileInfo(fallbackFolder).isDir())
            QDesktopServices::openUrl(QUrl::fromLocalFile(fallbackFolder));
    });
}
