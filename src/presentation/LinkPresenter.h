// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QtQml/qqmlregistration.h>

/// What can be done with a URL or a saved file, wherever a screen shows one.
class LinkPresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")

public:
    using StatePresenter::StatePresenter;

    /// Whether it is http or https: anything else may be opened by any program.
    [[nodiscard]] Q_INVOKABLE static bool canBrowse(const QString &url);
    Q_INVOKABLE void browse(const QString &url);
    /// Whether it is a media file that is there.
    [[nodiscard]] Q_INVOKABLE static bool canOpen(const QString &path);
    Q_INVOKABLE void open(const QString &path);
    Q_INVOKABLE void reveal(const QString &path);
};
