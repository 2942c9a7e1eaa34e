// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// How a finished run is announced: by name below two files, by number from two.
QString completionText(const QString &title, qint64 count);
