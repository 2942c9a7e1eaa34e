// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Outcome.h"

#include <mutex>

using namespace Qt::StringLiterals;

/// One download, what its handlers were told and how it ended.
class Download
{
public:
    explicit Download(YTDLPService &service, const QStringList &arguments = {u"https://x/"_s})
    {
        service.runProcessWithProgress(
            arguments,
            [shared = m_shared](double progress, const QString &speed, const QString &eta) {
                shared->add(u"%1 %2 %3"_s.arg(progress).arg(speed, eta));
            },
            [shared = m_shared] { shared->add(u"processing"_s); }, m_outcome.completion());
    }

    [[nodiscard]] QStringList reports() const
    {
        const std::scoped_lock lock(m_shared->mutex);
        return m_shared->reports;
    }

    [[nodiscard]] const Outcome<QString> &outcome() const { return m_outcome; }

private:
    struct Shared
    {
        void add(const QString &report)
        {
            const std::scoped_lock lock(mutex);
            reports.append(report);
        }
        std::mutex mutex;
        QStringList reports;
    };
    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
    Outcome<QString> m_outcome;
};
