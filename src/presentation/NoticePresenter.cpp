// SPDX-License-Identifier: GPL-3.0-or-later
#include "NoticePresenter.h"

#include "Percent.h"
#include "ShownText.h"
#include "ToolKeeper.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds confirmationTime{2};

} // namespace

NoticePresenter::NoticePresenter(ToolKeeper &keeper)
    : m_keeper(keeper)
{
    connect(&keeper, &ToolKeeper::changed, this, &NoticePresenter::update);
    m_copied.setSingleShot(true);
    m_copied.setInterval(confirmationTime);
    connect(&m_copied, &QTimer::timeout, this, &NoticePresenter::changed);
}

void NoticePresenter::update()
{
    const Kind before = std::exchange(m_kind, kindDue());
    const QString titleBefore = std::exchange(m_title, titleDue());
    if (m_kind != before)
        m_copied.stop();
    Q_EMIT changed(); // first, so that who makes the new notice finds it whole
    if (m_kind != before)
        Q_EMIT kindChanged();
    if (m_title != titleBefore)
        Q_EMIT titleChanged();
}

NoticePresenter::Kind NoticePresenter::kindDue() const
{
    switch (m_keeper.updatePhase()) {
    case ToolKeeper::UpdatePhase::running:
        return Kind::updating;
    case ToolKeeper::UpdatePhase::ready:
        return Kind::updated;
    case ToolKeeper::UpdatePhase::failed:
        return Kind::updateFailed;
    case ToolKeeper::UpdatePhase::none:
        break;
    }
    if (m_keeper.isComplaintDue())
        return Kind::uselessTool;
    return m_keeper.isHintDue() ? Kind::oldTool : Kind::none;
}

QString NoticePresenter::titleDue() const
{
    if (kind() == Kind::updating)
        return u"Updating yt-dlp"_s;
    return (text() + u' ' + command()).trimmed();
}

QString NoticePresenter::text() const
{
    switch (kind()) {
    case Kind::none:
        return {};
    case Kind::updating: {
        const UpdateProgress &update = m_keeper.updateProgress();
        const QString what = update.step == UpdateProgress::Step::downloading
            ? u"Downloading yt-dlp…"_s
            : u"Preparing yt-dlp…"_s;
        return update.part < 0 ? what : what + u' ' + percentText(update.part);
    }
    case Kind::updated:
        return u"yt-dlp %1 is ready."_s.arg(m_keeper.updateOutcome().version.text);
    case Kind::updateFailed:
        return shownText(m_keeper.updateOutcome().error);
    case Kind::uselessTool:
    case Kind::oldTool:
        return shownText(complaintAbout(*m_keeper.report(), m_keeper.today()));
    }
    Q_UNREACHABLE();
}

QString NoticePresenter::symbol() const
{
    switch (kind()) {
    case Kind::none:
        return {};
    case Kind::updating:
        return u"arrow.down.circle"_s;
    case Kind::updated:
        return u"checkmark.circle.fill"_s;
    case Kind::updateFailed:
    case Kind::uselessTool:
        return u"exclamationmark.triangle.fill"_s;
    case Kind::oldTool:
        return u"clock"_s;
    }
    Q_UNREACHABLE();
}

QString NoticePresenter::tone() const
{
    switch (kind()) {
    case Kind::updated:
        return u"green"_s;
    case Kind::updateFailed:
        return u"red"_s;
    case Kind::uselessTool:
        return u"orange"_s;
    case Kind::none:
    case Kind::updating:
    case Kind::oldTool:
        return u"accent"_s;
    }
    Q_UNREACHABLE();
}

double NoticePresenter::progress() const
{
    return isBusy() ? m_keeper.updateProgress().part : -1;
}

QString NoticePresenter::command() const
{
    const bool isOfTool = kind() == Kind::uselessTool || kind() == Kind::oldTool;
    return isOfTool ? m_keeper.report()->command : QString();
}

QString NoticePresenter::copyText() const
{
    return m_copied.isActive() ? u"Copied"_s : u"Copy"_s;
}

QString NoticePresenter::actionText() const
{
    QString again = u"Try again"_s;
    switch (kind()) {
    case Kind::none:
    case Kind::updating:
        return {};
    case Kind::updated:
        return m_keeper.retry().isPossible() ? again : QString();
    case Kind::updateFailed:
        return again;
    case Kind::uselessTool:
    case Kind::oldTool:
        if (!m_keeper.canUpdate())
            return {};
        return m_keeper.report()->exists ? u"Update yt-dlp"_s : u"Install yt-dlp"_s;
    }
    Q_UNREACHABLE();
}

QString NoticePresenter::dismissText() const
{
    switch (kind()) {
    case Kind::none:
        return {};
    case Kind::updating:
        return u"Cancel"_s;
    case Kind::updated:
        return u"Close"_s;
    case Kind::updateFailed:
    case Kind::uselessTool:
    case Kind::oldTool:
        return u"Not now"_s;
    }
    Q_UNREACHABLE();
}

void NoticePresenter::act()
{
    switch (kind()) {
    case Kind::none:
    case Kind::updating:
        return;
    case Kind::updated:
        m_keeper.retry().repeat();
        m_keeper.closeUpdate();
        return;
    case Kind::updateFailed:
    case Kind::uselessTool:
    case Kind::oldTool:
        m_keeper.update();
        return;
    }
}

void NoticePresenter::dismiss()
{
    if (kind() == Kind::updating)
        m_keeper.cancelUpdate();
    else if (kind() == Kind::updated)
        m_keeper.closeUpdate();
    else
        m_keeper.notNow();
}

void NoticePresenter::copyCommand()
{
    QGuiApplication::clipboard()->setText(command());
    m_copied.start();
    Q_EMIT changed();
}
