// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The download button's text for this many videos.
QString downloadLabel(qsizetype count);
