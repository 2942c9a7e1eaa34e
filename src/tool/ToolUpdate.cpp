// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolUpdate.h"

#include "UpdateRun.h"

#include <utility>

ToolUpdate::ToolUpdate(const ReleaseSource &source, const ToolPlaces &places,
                       const ToolVersion &present, const Handlers &handlers)
{
    m_processes.post([=, this] {
        m_run = std::make_shared<UpdateRun>(m_processes, source, places, present, handlers);
        m_run->begin();
    });
}

ToolUpdate::~ToolUpdate()
{
    m_processes.post([this] { m_run->giveUp(); });
    m_processes.endAll();
    m_processes.post([this] { m_run.reset(); });
}

void ToolUpdate::cancel()
{
    m_processes.post([this] { m_run->giveUp(); });
}
