// SPDX-License-Identifier: GPL-3.0-or-later
#include "CompletionText.h"

QString completionText(const QString &title, qint64 count)
{
    if (count < 2)
        return u'"' + title + QStringLiteral("\" downloaded successfully");
    return QString::number(count) + QStringLiteral(" files downloaded successfully");
}
