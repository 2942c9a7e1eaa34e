// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"
#include "StatusLook.h"

#include <QtQml/qqmlregistration.h>

/// The download section of single mode. It shows the displayed status, not the one that
/// the workflow keeps.
class DownloadSectionPresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(QString buttonLabel READ buttonLabel NOTIFY changed)
    Q_PROPERTY(bool isDisabled READ isDisabled NOTIFY changed)
    Q_PROPERTY(bool isDownloading READ isDownloading NOTIFY changed)
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY changed)
    Q_PROPERTY(QString pauseIcon READ pauseIcon NOTIFY changed)
    Q_PROPERTY(QString pauseHelp READ pauseHelp NOTIFY changed)
    Q_PROPERTY(bool isDone READ isDone NOTIFY changed)
    Q_PROPERTY(QString failure READ failure NOTIFY changed)
    Q_PROPERTY(StatusLook chip READ chip NOTIFY changed)
    Q_PROPERTY(bool showsRunLine READ showsRunLine NOTIFY changed)
    Q_PROPERTY(QString runLineTitle READ runLineTitle NOTIFY changed)
    Q_PROPERTY(QString runLineCount READ runLineCount NOTIFY changed)
    Q_PROPERTY(QString runLine READ runLine NOTIFY changed)
    Q_PROPERTY(bool showsProgress READ showsProgress NOTIFY changed)
    Q_PROPERTY(bool showsProcessing READ showsProcessing NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(QString percent READ percent NOTIFY progressChanged)
    Q_PROPERTY(QString speed READ speed NOTIFY progressChanged)
    Q_PROPERTY(QString remaining READ remaining NOTIFY progressChanged)
    Q_PROPERTY(QString description READ description NOTIFY progressChanged)

public:
    explicit DownloadSectionPresenter(AppState &state);

    [[nodiscard]] QString buttonLabel() const;
    [[nodiscard]] bool isDisabled() const;
    [[nodiscard]] bool isDownloading() const { return state().isDownloading(); }
    [[nodiscard]] bool isPaused() const { return state().isPaused(); }
    [[nodiscard]] QString pauseIcon() const;
    [[nodiscard]] QString pauseHelp() const;
    [[nodiscard]] bool isDone() const;
    /// Why the run has failed, and at which of its files; empty if it has not.
    [[nodiscard]] QString failure() const;
    [[nodiscard]] StatusLook chip() const;
    [[nodiscard]] bool showsRunLine() const;
    [[nodiscard]] QString runLineTitle() const;
    [[nodiscard]] QString runLineCount() const;
    /// Title and count in one.
    [[nodiscard]] QString runLine() const;
    [[nodiscard]] bool showsProgress() const;
    [[nodiscard]] bool showsProcessing() const;
    [[nodiscard]] double progress() const { return state().downloadProgress(); }
    [[nodiscard]] QString percent() const;
    [[nodiscard]] QString speed() const;
    /// "ETA" and the remaining time; empty while it is unknown.
    [[nodiscard]] QString remaining() const;
    /// Speed and remaining time as a screen reader speaks them.
    [[nodiscard]] QString description() const;

    Q_INVOKABLE void download();
    Q_INVOKABLE void togglePause();
    Q_INVOKABLE void stop();
    Q_INVOKABLE void reveal();

Q_SIGNALS:
    void progressChanged();
};
