// SPDX-License-Identifier: GPL-3.0-or-later
#include "SeveralURLsNotice.h"

#include "AppState.h"

#include <utility>

using namespace Qt::StringLiterals;

SeveralURLsNotice::SeveralURLsNotice(AppState &state)
    : m_state(state)
{
    connect(&state, &AppState::severalURLsSeen, this, &SeveralURLsNotice::setURLs);
}

Notice SeveralURLsNotice::notice()
{
    if (m_urls.isEmpty())
        return {};
    const QString text = u"These are %1 addresses."_s.arg(m_urls.size());
    return {.kind = u"several "_s + QString::number(m_urls.size()),
            .title = text,
            .text = text,
            .symbol = u"list.bullet"_s,
            .tone = u"accent"_s,
            .actionText = u"Add all %1 to the queue"_s.arg(m_urls.size()),
            .dismissText = u"Not now"_s,
            .act = [this] { addAll(); },
            .dismiss = [this] { setURLs({}); }};
}

void SeveralURLsNotice::setURLs(const QStringList &urls)
{
    m_urls = urls;
    Q_EMIT changed();
}

void SeveralURLsNotice::addAll()
{
    m_state.mode = AppMode::multi;
    m_state.addURLsToQueue(std::exchange(m_urls, {}));
    Q_EMIT changed();
}
