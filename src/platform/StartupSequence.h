// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWindow;

/// Under X11, what a start by the desktop does while the program runs already: activates the
/// window as of the moment when the user asked for it, which is part of the id, so that a
/// window manager does not take it for an old wish; and ends what the desktop shows of the
/// start, like a busy pointer. Nothing under another window system. Main thread.
void completeStartup(const QWindow &window, const QString &id);
