// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QStringList>

/// The choice of format and quality. Every quality is offered, whatever heights
/// the site has: the tool takes the best that there is below it.
class FormatQualityModel : public StatePresenter
{
    Q_OBJECT
    Q_PROPERTY(QStringList formats READ formats CONSTANT)
    Q_PROPERTY(QStringList qualities READ qualities CONSTANT)
    Q_PROPERTY(int selectedFormat READ selectedFormat NOTIFY changed)
    Q_PROPERTY(int selectedQuality READ selectedQuality NOTIFY changed)
    Q_PROPERTY(bool showsQualities READ showsQualities NOTIFY changed)

public:
    explicit FormatQualityModel(AppState &state);

    [[nodiscard]] static QStringList formats();
    [[nodiscard]] static QStringList qualities();
    [[nodiscard]] int selectedFormat() const;
    /// -1 when the selected quality is none of those offered.
    [[nodiscard]] int selectedQuality() const;
    [[nodiscard]] bool showsQualities() const;

    /// Also resets the quality to the format's best, even if it was selected.
    Q_INVOKABLE void selectFormat(int index);
    Q_INVOKABLE void selectQuality(int index);
};
