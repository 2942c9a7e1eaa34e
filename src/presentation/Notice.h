// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>

/// What a notice says and offers.
struct Notice
{
    QString kind{};        // tells it from another one of the same source; empty: no notice
    QString title{};       // what screen readers announce, once
    QString text{};        // what is read; may change while the title stays
    QString symbol{};      // none while it is busy
    QString tone{};        // the name of the symbol's colour in Theme
    QString command{};     // a line for a shell that the user may copy, or nothing
    QString actionText{};  // empty where there is nothing to be done here
    QString setting{};     // the one that its action leads to, by its name in the panel
    QString dismissText{}; // the button that ends the notice
    std::function<void()> act{};
    std::function<void()> dismiss{};
    bool isBusy = false;
    double progress = -1; // from 0 to 1; below 0 while it is unknown
};

/// Something that notices are about. Main thread.
class NoticeSource : public QObject
{
    Q_OBJECT

public:
    /// What there is to say now; without a kind, nothing.
    [[nodiscard]] virtual Notice notice() = 0;

Q_SIGNALS:
    void changed();
};
