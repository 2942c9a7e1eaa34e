// SPDX-License-Identifier: GPL-3.0-or-later
#include "DesktopFolderChooser.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

/// Under Wayland windows have no name that another program could use.
QString nameOf(const QWindow *window)
{
    if (!window || QGuiApplication::platformName() != u"xcb")
        return {};
    return u"x11:"_s + QString::number(window->winId(), 16);
}

} // namespace

DesktopFolderChooser::DesktopFolderChooser(QObject *parent)
    : QObject(parent)
{
    connect(&m_portal, &FolderPortal::chosen, this, &DesktopFolderChooser::chosen);
    connect(&m_portal, &FolderPortal::unavailable, this, &DesktopFolderChooser::unavailable);
}

void DesktopFolderChooser::open(const QWindow *window, const QUrl &startFolder)
{
    m_portal.open(nameOf(window), startFolder.toLocalFile());
}
