// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolNotice.h"

#include "Percent.h"
#include "ShownText.h"
#include "ToolKeeper.h"

using namespace Qt::StringLiterals;

ToolNotice::ToolNotice(ToolKeeper &keeper)
    : m_keeper(keeper)
{
    connect(&keeper, &ToolKeeper::changed, this, &ToolNotice::changed);
}

Notice ToolNotice::notice()
{
    switch (m_keeper.updatePhase()) {
    case ToolKeeper::UpdatePhase::running:
        return updating();
    case ToolKeeper::UpdatePhase::ready:
        return updated();
    case ToolKeeper::UpdatePhase::failed:
        return updateFailed();
    case ToolKeeper::UpdatePhase::none:
        break;
    }
    return m_keeper.isComplaintDue() || m_keeper.isHintDue() ? complaint() : Notice{};
}

Notice ToolNotice::updating() const
{
    const UpdateProgress &update = m_keeper.updateProgress();
    const QString what = update.step == UpdateProgress::Step::downloading ? u"Downloading yt-dlp…"_s
                                                                          : u"Preparing yt-dlp…"_s;
    return {.kind = u"updating"_s,
            .title = u"Updating yt-dlp"_s,
            .text = update.part < 0 ? what : what + u' ' + percentText(update.part),
            .symbol = u"arrow.down.circle"_s,
            .tone = u"accent"_s,
            .dismissText = u"Cancel"_s,
            .dismiss = [this] { m_keeper.cancelUpdate(); },
            .isBusy = true,
            .progress = update.part};
}

Notice ToolNotice::updated() const
{
    const QString text = u"yt-dlp %1 is ready."_s.arg(m_keeper.updateOutcome().version.text);
    return {.kind = u"updated"_s,
            .title = text,
            .text = text,
            .symbol = u"checkmark.circle.fill"_s,
            .tone = u"green"_s,
            .actionText = m_keeper.retry().isPossible() ? u"Try again"_s : QString(),
            .dismissText = u"Close"_s,
            .act =
                [this] {
                    m_keeper.retry().repeat();
                    m_keeper.closeUpdate();
                },
            .dismiss = [this] { m_keeper.closeUpdate(); }};
}

Notice ToolNotice::updateFailed() const
{
    const QString text = shownText(m_keeper.updateOutcome().error);
    return {.kind = u"updateFailed"_s,
            .title = text,
            .text = text,
            .symbol = u"exclamationmark.triangle.fill"_s,
            .tone = u"red"_s,
            .actionText = u"Try again"_s,
            .dismissText = u"Not now"_s,
            .act = [this] { m_keeper.update(); },
            .dismiss = [this] { m_keeper.notNow(); }};
}

Notice ToolNotice::complaint() const
{
    const ToolReport &report = *m_keeper.report();
    const bool isOld = !m_keeper.isComplaintDue();
    const QString text = shownText(complaintAbout(report, m_keeper.today()));
    const QString action = report.exists ? u"Update yt-dlp"_s : u"Install yt-dlp"_s;
    return {.kind = isOld ? u"oldTool"_s : u"uselessTool"_s,
            .title = (text + u' ' + report.command).trimmed(),
            .text = text,
            .symbol = isOld ? u"clock"_s : u"exclamationmark.triangle.fill"_s,
            .tone = isOld ? u"accent"_s : u"orange"_s,
            .command = report.command,
            .actionText = m_keeper.canUpdate() ? action : QString(),
            .dismissText = u"Not now"_s,
            .act = [this] { m_keeper.update(); },
            .dismiss = [this] { m_keeper.notNow(); }};
}
