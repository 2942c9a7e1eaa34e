// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "AppState.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

/// What one screen shows, derived from the application state. One signal reports every
/// change that may concern the screen. Holds no state of its own.
class StatePresenter : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    /// The state outlives the presenter.
    explicit StatePresenter(AppState &state)
        : m_state(state)
    {
    }

Q_SIGNALS:
    void changed();

protected:
    [[nodiscard]] AppState &state() const { return m_state; }

private:
    AppState &m_state;
};
