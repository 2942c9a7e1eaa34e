// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

class ToolKeeper;

/// The settings' line about the tool.
class ToolPresenter : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString meaning READ meaning NOTIFY changed)
    Q_PROPERTY(bool isUseless READ isUseless NOTIFY changed)
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(QString buttonText READ buttonText NOTIFY changed)

public:
    /// The keeper outlives it.
    explicit ToolPresenter(ToolKeeper &keeper);

    /// "yt-dlp", with its version where that is known.
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString meaning() const;
    [[nodiscard]] bool isUseless() const;
    [[nodiscard]] QString path() const;
    /// Empty where an update would not help. Where only the user can update, it offers to
    /// show the notice with the command again.
    [[nodiscard]] QString buttonText() const;

    Q_INVOKABLE void update();

Q_SIGNALS:
    void changed();

private:
    /// Whether the tool is unusable, Quillon may not update it, and no notice says so.
    [[nodiscard]] bool isObstructed() const;

    ToolKeeper &m_keeper;
};
