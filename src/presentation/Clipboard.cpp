// SPDX-License-Identifier: GPL-3.0-or-later
#include "Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

void Clipboard::copy(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

QString Clipboard::text()
{
    return QGuiApplication::clipboard()->text();
}
