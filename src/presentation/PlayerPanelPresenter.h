// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"
#include "StatusLook.h"

#include <QtQml/qqmlregistration.h>

/// The player above the results: what is chosen, its place among the results, and what
/// can be done with it. When nothing is chosen any more, only that change is reported, so
/// that what leaves the screen keeps its appearance.
class PlayerPanelPresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(MediaPlayer *player READ player CONSTANT)
    Q_PROPERTY(bool isPresent READ isPresent NOTIFY presenceChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString url READ url NOTIFY changed)
    Q_PROPERTY(QString errorText READ errorText NOTIFY changed)
    Q_PROPERTY(QString place READ place NOTIFY changed)
    Q_PROPERTY(QString elapsed READ elapsed NOTIFY timesChanged)
    Q_PROPERTY(QString total READ total NOTIFY timesChanged)
    Q_PROPERTY(bool hasPrevious READ hasPrevious NOTIFY changed)
    Q_PROPERTY(bool hasNext READ hasNext NOTIFY changed)
    Q_PROPERTY(StatusLook video READ video NOTIFY changed)
    Q_PROPERTY(StatusLook audio READ audio NOTIFY changed)

public:
    explicit PlayerPanelPresenter(AppState &state);

    [[nodiscard]] MediaPlayer *player() const { return &state().avPlayer; }
    [[nodiscard]] bool isPresent() const { return state().nowPlaying().has_value(); }
    [[nodiscard]] bool isLoading() const { return state().isLoadingStream(); }
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString url() const;
    [[nodiscard]] QString errorText() const;
    /// Such as "2 / 25"; without a number if it is not among the results.
    [[nodiscard]] QString place() const;
    /// The position and the length, as on a clock.
    [[nodiscard]] QString elapsed() const;
    [[nodiscard]] QString total() const;
    [[nodiscard]] bool hasPrevious() const;
    [[nodiscard]] bool hasNext() const;
    /// Of the buttons that download it.
    [[nodiscard]] StatusLook video() const;
    [[nodiscard]] StatusLook audio() const;

    Q_INVOKABLE void playPrevious();
    Q_INVOKABLE void playNext();
    Q_INVOKABLE void download(bool isAudio);
    Q_INVOKABLE void stop();

Q_SIGNALS:
    void presenceChanged();
    void timesChanged();

private:
    void follow();
    void playAt(qsizetype offset);
    [[nodiscard]] StatusLook look(bool isAudio) const;
};
