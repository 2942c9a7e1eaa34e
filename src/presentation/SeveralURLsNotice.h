// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Notice.h"

#include <QStringList>

class AppState;

/// Offers to put several URLs into the queue that were pasted or dropped at once.
class SeveralURLsNotice : public NoticeSource
{
    Q_OBJECT

public:
    /// The state outlives it.
    explicit SeveralURLsNotice(AppState &state);

    [[nodiscard]] Notice notice() override;

private:
    void setURLs(const QStringList &urls);
    void addAll();

    AppState &m_state;
    QStringList m_urls;
};
