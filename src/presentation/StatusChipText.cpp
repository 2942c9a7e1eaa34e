// SPDX-License-Identifier: GPL-3.0-or-later
#include "StatusChipText.h"

StatusChipText statusChipText(const DownloadUIStatus &status, bool isPaused)
{
    switch (status.kind()) {
    case DownloadUIStatus::Case::done:
        return {QStringLiteral("checkmark.circle.fill"), QStringLiteral("Complete"),
                QStringLiteral("green")};
    case DownloadUIStatus::Case::failed:
        return {QStringLiteral("xmark.circle.fill"), QStringLiteral("Failed"),
                QStringLiteral("red")};
    case DownloadUIStatus::Case::downloading:
        if (isPaused) {
            return {QStringLiteral("pause.circle.fill"), QStringLiteral("Paused"),
                    QStringLiteral("orange")};
        }
        return {QStringLiteral("arrow.down.circle.fill"), QStringLiteral("Downloading"),
                QStringLiteral("accent")};
    case DownloadUIStatus::Case::processing:
        return {QStringLiteral("gearshape.fill"), QStringLiteral("Processing"),
                QStringLiteral("orange")};
    case DownloadUIStatus::Case::idle:
        return {};
    }
    Q_UNREACHABLE();
}
