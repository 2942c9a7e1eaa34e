// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QStringList>
#include <QtQml/qqmlregistration.h>

/// The mode switch, and which screen it shows.
class ModePresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(QStringList labels READ labels CONSTANT)
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY changed)
    Q_PROPERTY(bool isSingle READ isSingle NOTIFY changed)
    Q_PROPERTY(bool isMulti READ isMulti NOTIFY changed)
    Q_PROPERTY(bool isBrowse READ isBrowse NOTIFY changed)

public:
    explicit ModePresenter(AppState &state);

    [[nodiscard]] static QStringList labels();
    [[nodiscard]] int currentIndex() const;
    void setCurrentIndex(int index);
    [[nodiscard]] bool isSingle() const { return state().mode() == AppMode::single; }
    [[nodiscard]] bool isMulti() const { return state().mode() == AppMode::multi; }
    [[nodiscard]] bool isBrowse() const { return state().mode() == AppMode::browse; }
};
