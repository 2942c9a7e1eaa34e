// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QStringList>
#include <QtQml/qqmlregistration.h>

/// A choice of format and quality. Every quality is offered, whatever the video has: the
/// tool takes the best available below it.
class FormatQualityPresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(QStringList formats READ formats CONSTANT)
    Q_PROPERTY(QStringList qualities READ qualities NOTIFY changed)
    Q_PROPERTY(int selectedFormat READ selectedFormat NOTIFY changed)
    Q_PROPERTY(int selectedQuality READ selectedQuality NOTIFY changed)
    Q_PROPERTY(bool showsQualities READ showsQualities NOTIFY changed)

public:
    [[nodiscard]] static QStringList formats();
    [[nodiscard]] QStringList qualities() const;
    [[nodiscard]] int selectedFormat() const;
    /// -1 when the selected quality is not among those offered.
    [[nodiscard]] int selectedQuality() const;
    [[nodiscard]] bool showsQualities() const;

    /// Also resets the quality to the format's best, even when that format was already
    /// selected.
    Q_INVOKABLE void selectFormat(int index);
    Q_INVOKABLE void selectQuality(int index);

protected:
    using StatePresenter::StatePresenter;

    [[nodiscard]] virtual MediaFormat format() const = 0;
    [[nodiscard]] virtual QualityOption quality() const = 0;
    [[nodiscard]] virtual QList<QualityOption> options() const = 0;
    virtual void setFormat(MediaFormat format) = 0;
    virtual void setQuality(const QualityOption &quality) = 0;
};

/// Single mode's: seven qualities for MP4, none to choose for MP3.
class SingleFormatQualityPresenter : public FormatQualityPresenter
{
    Q_OBJECT

public:
    explicit SingleFormatQualityPresenter(AppState &state);

protected:
    [[nodiscard]] MediaFormat format() const override;
    [[nodiscard]] QualityOption quality() const override;
    [[nodiscard]] QList<QualityOption> options() const override;
    void setFormat(MediaFormat format) override;
    void setQuality(const QualityOption &quality) override;
};

/// The queue's: five qualities for MP4, one for MP3.
class QueueFormatQualityPresenter : public FormatQualityPresenter
{
    Q_OBJECT

public:
    explicit QueueFormatQualityPresenter(AppState &state);

protected:
    [[nodiscard]] MediaFormat format() const override;
    [[nodiscard]] QualityOption quality() const override;
    [[nodiscard]] QList<QualityOption> options() const override;
    void setFormat(MediaFormat format) override;
    void setQuality(const QualityOption &quality) override;
};
