// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "StatePresenter.h"

#include <QtQml/qqmlregistration.h>

/// The bar at the lower edge of the window. It stands for an action row that is out of
/// sight, and for a single download that is shown nowhere else.
class ActionBarPresenter : public StatePresenter
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screens share one.")
    Q_PROPERTY(ActionBarPresenter::Sight sight READ sight WRITE setSight NOTIFY changed)
    Q_PROPERTY(ActionBarPresenter::Kind kind READ kind NOTIFY changed)
    Q_PROPERTY(QString choice READ choice NOTIFY changed)
    Q_PROPERTY(bool isElsewhere READ isElsewhere NOTIFY changed)

public:
    /// Where the action row of the current mode is on the page.
    enum class Sight { None, Above, Shown, Below };
    Q_ENUM(Sight)
    /// What the bar stands for: the download section, a single download, or the queue's row.
    enum class Kind { None, Section, Run, Queue };
    Q_ENUM(Kind)

    explicit ActionBarPresenter(AppState &state);

    [[nodiscard]] Sight sight() const { return m_sight; }
    /// The page tells it, which alone knows.
    void setSight(Sight sight);
    [[nodiscard]] Kind kind() const;
    /// Format and quality of single mode, such as "MP4 · 720p".
    [[nodiscard]] QString choice() const;
    /// Whether the single download can be seen in full in another place.
    [[nodiscard]] bool isElsewhere() const;

    /// Shows single mode.
    Q_INVOKABLE void lead();

private:
    Sight m_sight = Sight::None;
};
