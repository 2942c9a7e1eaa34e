// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopFileViewer.h"

#include "BusObject.h"

#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// To be looked at and not to be read, so that it cannot wait. Invalid if there is nothing.
QDBusUnixFileDescriptor descriptorOf(const QString &path, int flags)
{
    QDBusUnixFileDescriptor descriptor;
    const int opened = ::open(QFile::encodeName(path).constData(), O_PATH | O_CLOEXEC | flags);
    if (opened >= 0)
        descriptor.giveFileDescriptor(opened);
    return descriptor;
}

} // namespace

void DesktopFileViewer::select(const QString &path)
{
    callManager(u"ShowItems"_s, path);
}

void DesktopFileViewer::openFolder(const QString &path)
{
    if (QFileInfo(path).isDir())
        callManager(u"ShowFolders"_s, path);
}

void DesktopFileViewer::open(const QUrl &url)
{
    QDesktopServices::openUrl(url);
}

void DesktopFileViewer::callManager(const QString &method, const QString &path)
{
    const BusObject manager(QDBusConnection::sessionBus(), u"org.freedesktop.FileManager1"_s,
                            u"/org/freedesktop/FileManager1"_s, u"org.freedesktop.FileManager1"_s);
    const QStringList urls{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)};
    manager.call(method, {urls, QString()}, this, [this, path](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ErrorMessage)
            callPortal(path);
    });
}

// A folder, or that of a file; never a file, which would be opened by whatever program is
// registered for it.
void DesktopFileViewer::callPortal(const QString &path)
{
    const QFileInfo item(path);
    const QString folder = item.isDir() ? path : item.path();
    const auto openDirectly = [folder] {
        if (QFileInfo(folder).isDir())
            QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
    };
    const QDBusConnection bus = QDBusConnection::sessionBus();
    const QDBusUnixFileDescriptor descriptor = descriptorOf(path, item.isDir() ? O_DIRECTORY : 0);
    if (!descriptor.isValid()
        || !(bus.connectionCapabilities() & QDBusConnection::UnixFileDescriptorPassing)) {
        openDirectly();
        return;
    }
    const BusObject portal(bus, u"org.freedesktop.portal.Desktop"_s,
                           u"/org/freedesktop/portal/desktop"_s,
                           u"org.freedesktop.portal.OpenURI"_s);
    // The second opens the folder that a file is in.
    portal.call(item.isDir() ? u"OpenFile"_s : u"OpenDirectory"_s,
                {QString(), QVariant::fromValue(descriptor), QVariantMap()}, this,
                [openDirectly](const QDBusMessage &reply) {
                    if (reply.type() == QDBusMessage::ErrorMessage)
                        openDirectly();
                });
}
