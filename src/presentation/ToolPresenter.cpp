// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolPresenter.h"

#include "ShownText.h"
#include "ToolKeeper.h"

using namespace Qt::StringLiterals;

ToolPresenter::ToolPresenter(ToolKeeper &keeper)
    : m_keeper(keeper)
{
    connect(&keeper, &ToolKeeper::changed, this, &ToolPresenter::changed);
}

QString ToolPresenter::name() const
{
    const QString version = m_keeper.report() ? m_keeper.report()->version.text : QString();
    return u"yt-dlp %1"_s.arg(version).trimmed();
}

QString ToolPresenter::meaning() const
{
    if (m_keeper.updatePhase() == ToolKeeper::UpdatePhase::running)
        return u"updating…"_s;
    return m_keeper.report() ? shownLine(meaningOf(*m_keeper.report(), m_keeper.today())) : u"…"_s;
}

bool ToolPresenter::isUseless() const
{
    return ::isUseless(m_keeper.status());
}

QString ToolPresenter::path() const
{
    return m_keeper.report() && m_keeper.report()->exists ? m_keeper.report()->path : QString();
}

QString ToolPresenter::buttonText() const
{
    if (isObstructed())
        return u"How to update"_s;
    if (!m_keeper.canUpdate())
        return {};
    return m_keeper.report()->exists ? u"Update yt-dlp"_s : u"Install yt-dlp"_s;
}

void ToolPresenter::update()
{
    if (isObstructed())
        m_keeper.remind();
    else
        m_keeper.update();
}

bool ToolPresenter::isObstructed() const
{
    return m_keeper.report() && m_keeper.report()->obstacle != Obstacle::none
        && ::isUseless(m_keeper.status()) && !m_keeper.isComplaintDue();
}
