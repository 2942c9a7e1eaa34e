// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct UserNotification
{
    QString identifier; ///< a UUID, new for each
    QString title;
    QString body; ///< plain text
};

/// The desktop's notifications. Main thread; failures are silent.
class Notifier
{
public:
    virtual ~Notifier() = default;

    /// Once at the start, before the first post.
    virtual void requestPermission() = 0;

    /// Shows a notification now, with the desktop's default sound.
    virtual void post(const UserNotification &notification) = 0;
};
