// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QtQml/qqmlregistration.h>

/// A run of the queue: its start, its pause and its progress.
class QueueControlsPresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed)
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY changed)
    Q_PROPERTY(QString pauseIcon READ pauseIcon NOTIFY changed)
    Q_PROPERTY(QString pauseHelp READ pauseHelp NOTIFY changed)
    Q_PROPERTY(QString position READ position NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)

public:
    explicit QueueControlsPresenter(AppState &state);

    [[nodiscard]] bool isRunning() const { return state().isQueueDownloading(); }
    [[nodiscard]] bool isPaused() const { return state().isPaused(); }
    [[nodiscard]] QString pauseIcon() const;
    [[nodiscard]] QString pauseHelp() const;
    /// The running entry's place in the run, and the run's length.
    [[nodiscard]] QString position() const;
    [[nodiscard]] QString title() const;

    Q_INVOKABLE void start();
    Q_INVOKABLE void togglePause();
    Q_INVOKABLE void clear();
};
