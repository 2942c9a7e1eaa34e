// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// The desktop's clipboard, for screens. Main thread.
class Clipboard : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE static void copy(const QString &text);
    /// The text on it; empty if there is something else.
    [[nodiscard]] Q_INVOKABLE static QString text();
};
