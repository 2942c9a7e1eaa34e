// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "FailureAdvice.h"
#include "Notice.h"

#include <QTimer>

#include <chrono>
#include <optional>

class AppState;
class Retry;

/// What can be done about the last failure, where that is known. Goes when the tool is asked
/// for something else.
class FailureNotice : public NoticeSource
{
    Q_OBJECT

public:
    /// State and retry outlive it. `pause` is how long a site is left alone that asks for it.
    FailureNotice(AppState &state, Retry &retry,
                  std::chrono::milliseconds pause = std::chrono::minutes(1));

    [[nodiscard]] Notice notice() override;

private:
    void handleFailure(const QString &failure);
    void forget();
    void act();
    [[nodiscard]] QString actionText() const;
    [[nodiscard]] QString setting() const;
    [[nodiscard]] bool hasFailedDownload() const;

    AppState &m_state;
    Retry &m_retry;
    std::optional<FailureAdvice> m_advice;
    QTimer m_pause; // runs while it is too early to try again
};
