// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// What the button for so many videos reads.
QString downloadLabel(qsizetype count);
