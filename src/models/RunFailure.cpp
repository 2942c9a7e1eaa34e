// SPDX-License-Identifier: GPL-3.0-or-later
#include "RunFailure.h"

using namespace Qt::StringLiterals;

QString failureText(const RunFailure &failure)
{
    const QString reason = failure.wasStopped ? u"Stopped."_s : failure.message;
    return failure.count > 1 ? u"%1 of %2: %3"_s.arg(QString::number(failure.position),
                                                     QString::number(failure.count), reason)
                             : reason;
}
