// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QtQml/qqmlregistration.h>

/// What single mode shows under the input bar: three sections, independent of
/// each other.
class SingleModePresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(bool hasError READ hasError NOTIFY changed)
    Q_PROPERTY(QString error READ error NOTIFY changed)
    Q_PROPERTY(bool isFetching READ isFetching NOTIFY changed)
    Q_PROPERTY(bool hasInfo READ hasInfo NOTIFY changed)
    Q_PROPERTY(VideoInfo info READ info NOTIFY infoChanged)
    Q_PROPERTY(QString known READ known NOTIFY knownChanged)
    Q_PROPERTY(QString knownPath READ knownPath NOTIFY knownChanged)

public:
    explicit SingleModePresenter(AppState &state);

    [[nodiscard]] bool hasError() const { return state().fetchError().has_value(); }
    [[nodiscard]] QString error() const;
    [[nodiscard]] bool isFetching() const { return state().isFetching(); }
    [[nodiscard]] bool hasInfo() const { return state().singleInfo().has_value(); }
    [[nodiscard]] VideoInfo info() const { return state().singleInfo().value_or(VideoInfo()); }

    /// When the fetched video was downloaded last; empty if the history does not say.
    [[nodiscard]] QString known() const;
    /// Its file; empty if that is unknown.
    [[nodiscard]] QString knownPath() const;

Q_SIGNALS:
    void infoChanged();
    void knownChanged();

private:
    [[nodiscard]] const HistoryItem *record() const;
};
