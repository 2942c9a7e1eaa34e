// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/// The one media player of the program. Nothing can be played yet, so it is
/// always empty; the application state owns it from the start all the same.
class AVPlayer : public QObject
{
    Q_OBJECT
};
