// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

class AppState;

/// Repeats what has failed, as long as the screen still shows what was asked for. Main
/// thread; the state outlives it.
class Retry : public QObject
{
    Q_OBJECT

public:
    explicit Retry(AppState &state);

    /// Whether the current mode's screen shows the failure of a fetch, a search or a
    /// playback of exactly what it holds. Downloads have buttons of their own.
    [[nodiscard]] bool isPossible() const;
    void repeat();

private:
    [[nodiscard]] bool hasFailedFetch() const;
    [[nodiscard]] bool hasFailedSearch() const;
    [[nodiscard]] bool hasFailedPlayback() const;

    AppState &m_state;
    QString m_url;   // of the last fetch
    QString m_query; // of the last search
};
