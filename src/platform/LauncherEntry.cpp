// SPDX-License-Identifier: GPL-3.0-or-later
#include "LauncherEntry.h"

#include "ApplicationId.h"

#include <QDBusMessage>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

LauncherEntry::LauncherEntry(QDBusConnection bus)
    : m_bus(std::move(bus))
{
}

LauncherEntry::~LauncherEntry()
{
    setProgress({});
}

void LauncherEntry::setProgress(std::optional<double> progress)
{
    const int percent =
        progress ? static_cast<int>(std::floor(std::clamp(*progress, 0.0, 1.0) * 100)) : -1;
    if (percent == m_percent)
        return;
    m_percent = percent;
    update();
}

void LauncherEntry::update() const
{
    QDBusMessage message =
        QDBusMessage::createSignal(u"/com/canonical/unity/launcherentry/quillon"_s,
                                   u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    message << u"application://"_s + applicationId + u".desktop"_s
            << QVariantMap{{u"progress"_s, std::max(m_percent, 0) / 100.0},
                           {u"progress-visible"_s, m_percent >= 0}};
    m_bus.send(message);
}
