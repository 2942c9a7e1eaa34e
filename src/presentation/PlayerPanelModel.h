// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

/// The player above the results: what is chosen, where it stands among them, and
/// what can be done with it. When nothing is chosen any more it tells of that alone: what
/// leaves the screen keeps its looks.
class PlayerPanelModel : public StatePresenter
{
    Q_OBJECT
    Q_PROPERTY(AVPlayer *player READ player CONSTANT)
    Q_PROPERTY(bool isPresent READ isPresent NOTIFY presenceChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString errorText READ errorText NOTIFY changed)
    Q_PROPERTY(QString place READ place NOTIFY changed)
    Q_PROPERTY(QString elapsed READ elapsed NOTIFY timesChanged)
    Q_PROPERTY(QString total READ total NOTIFY timesChanged)
    Q_PROPERTY(bool hasPrevious READ hasPrevious NOTIFY changed)
    Q_PROPERTY(bool hasNext READ hasNext NOTIFY changed)
    Q_PROPERTY(QString videoStatus READ videoStatus NOTIFY changed)
    Q_PROPERTY(QString videoSpoken READ videoSpoken NOTIFY changed)
    Q_PROPERTY(double videoProgress READ videoProgress NOTIFY changed)
    Q_PROPERTY(QString audioStatus READ audioStatus NOTIFY changed)
    Q_PROPERTY(QString audioSpoken READ audioSpoken NOTIFY changed)
    Q_PROPERTY(double audioProgress READ audioProgress NOTIFY changed)

public:
    explicit PlayerPanelModel(AppState &state);

    [[nodiscard]] AVPlayer *player() const { return &state().avPlayer; }
    [[nodiscard]] bool isPresent() const { return state().nowPlaying().has_value(); }
    [[nodiscard]] bool isLoading() const { return state().isLoadingStream; }
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString errorText() const;
    /// Such as "2 / 25"; without a number where it is not among the results.
    [[nodiscard]] QString place() const;
    /// How far the stream is played, and how long it is, as on a clock.
    [[nodiscard]] QString elapsed() const;
    [[nodiscard]] QString total() const;
    [[nodiscard]] bool hasPrevious() const;
    [[nodiscard]] bool hasNext() const;
    [[nodiscard]] QString videoStatus() const;
    [[nodiscard]] QString videoSpoken() const;
    [[nodiscard]] double videoProgress() const;
    [[nodiscard]] QString audioStatus() const;
    [[nodiscard]] QString audioSpoken() const;
    [[nodiscard]] double audioProgress() const;

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
    [[nodiscard]] QString id() const;
};
