// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Notifier.h"

#include <QObject>

#include <functional>
#include <optional>

/// Notifications over the session bus. There is no permission to request; at the start
/// the service is asked whether it reads text as markup. Without a service nothing is
/// shown.
class DesktopNotifier : public QObject, public Notifier
{
    Q_OBJECT

public:
    void requestPermission() override;
    void post(const UserNotification &notification) override;

private:
    void askCapabilities(const std::function<void()> &then);
    void send(const UserNotification &notification) const;

    std::optional<bool> m_readsMarkup; // nothing is sent while this is unknown
};
