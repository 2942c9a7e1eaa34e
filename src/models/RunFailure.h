// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// How a run has failed: at which of its files, counted from 1, and by whose will.
struct RunFailure
{
    qsizetype position;
    qsizetype count;
    QString message;
    bool wasStopped;
};

/// What the user is told of it.
QString failureText(const RunFailure &failure);
