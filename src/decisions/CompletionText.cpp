// SPDX-License-Identifier: GPL-3.0-or-later
#include "CompletionText.h"

using namespace Qt::StringLiterals;

QString completionText(const QString &title, qint64 count)
{
    if (count < 2)
        return u'"' + title + u"\" downloaded successfully"_s;
    return QString::number(count) + u" files downloaded successfully"_s;
}
