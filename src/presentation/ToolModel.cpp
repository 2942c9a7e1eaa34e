// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolModel.h"

#include "ShownText.h"
#include "ToolKeeper.h"

ToolModel::ToolModel(ToolKeeper &keeper)
    : m_keeper(keeper)
{
    connect(&keeper, &ToolKeeper::changed, this, &ToolModel::changed);
}

QString ToolModel::name() const
{
    const QString version = m_keeper.report() ? m_keeper.report()->version.text : QString();
    return QStringLiteral("yt-dlp %1").arg(version).trimmed();
}

QString ToolModel::meaning() const
{
    if (m_keeper.updatePhase() == ToolKeeper::UpdatePhase::running)
        return QStringLiteral("updating…");
    return m_keeper.report() ? shownLine(meaningOf(*m_keeper.report(), m_keeper.today()))
                             : QStringLiteral("…");
}

bool ToolModel::isUseless() const
{
    return ::isUseless(m_keeper.status());
}

QString ToolModel::path() const
{
    return m_keeper.report() && m_keeper.report()->exists ? m_keeper.report()->path : QString();
}

QString ToolModel::buttonText() const
{
    if (isObstructed())
        return QStringLiteral("How to update");
    if (!m_keeper.canUpdate())
        return {};
    return m_keeper.report()->exists ? QStringLiteral("Update yt-dlp")
                                     : QStringLiteral("Install yt-dlp");
}

void ToolModel::update()
{
    if (isObstructed())
        m_keeper.remind();
    else
        m_keeper.update();
}

bool ToolModel::isObstructed() const
{
    return m_keeper.report() && m_keeper.report()->obstacle != Obstacle::none
        && ::isUseless(m_keeper.status()) && !m_keeper.isComplaintDue();
}
