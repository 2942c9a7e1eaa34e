// SPDX-License-Identifier: GPL-3.0-or-later
#include "NoticeModel.h"

#include "Percent.h"
#include "ShownText.h"
#include "ToolKeeper.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

constexpr std::chrono::seconds confirmationTime{2};

} // namespace

NoticeModel::NoticeModel(ToolKeeper &keeper)
    : m_keeper(keeper)
{
    connect(&keeper, &ToolKeeper::changed, this, &NoticeModel::update);
    m_copied.setSingleShot(true);
    m_copied.setInterval(confirmationTime);
    connect(&m_copied, &QTimer::timeout, this, &NoticeModel::changed);
}

void NoticeModel::update()
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

NoticeModel::Kind NoticeModel::kindDue() const
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

QString NoticeModel::titleDue() const
{
    if (kind() == Kind::updating)
        return QStringLiteral("Updating yt-dlp");
    return (text() + u' ' + command()).trimmed();
}

QString NoticeModel::text() const
{
    switch (kind()) {
    case Kind::none:
        return {};
    case Kind::updating: {
        const UpdateProgress &update = m_keeper.updateProgress();
        const QString what = update.step == UpdateProgress::Step::downloading
            ? QStringLiteral("Downloading yt-dlp…")
            : QStringLiteral("Preparing yt-dlp…");
        return update.part < 0 ? what : what + u' ' + percentText(update.part);
    }
    case Kind::updated:
        return QStringLiteral("yt-dlp %1 is ready.").arg(m_keeper.updateOutcome().version.text);
    case Kind::updateFailed:
        return shownText(m_keeper.updateOutcome().error);
    case Kind::uselessTool:
    case Kind::oldTool:
        return shownText(complaintAbout(*m_keeper.report(), m_keeper.today()));
    }
    Q_UNREACHABLE();
}

QString NoticeModel::symbol() const
{
    switch (kind()) {
    case Kind::none:
        return {};
    case Kind::updating:
        return QStringLiteral("arrow.down.circle");
    case Kind::updated:
        return QStringLiteral("checkmark.circle.fill");
    case Kind::updateFailed:
    case Kind::uselessTool:
        return QStringLiteral("exclamationmark.triangle.fill");
    case Kind::oldTool:
        return QStringLiteral("clock");
    }
    Q_UNREACHABLE();
}

QString NoticeModel::tone() const
{
    switch (kind()) {
    case Kind::updated:
        return QStringLiteral("green");
    case Kind::updateFailed:
        return QStringLiteral("red");
    case Kind::uselessTool:
        return QStringLiteral("orange");
    case Kind::none:
    case Kind::updating:
    case Kind::oldTool:
        return QStringLiteral("accent");
    }
    Q_UNREACHABLE();
}

double NoticeModel::progress() const
{
    return isBusy() ? m_keeper.updateProgress().part : -1;
}

QString NoticeModel::command() const
{
    const bool isOfTool = kind() == Kind::uselessTool || kind() == Kind::oldTool;
    return isOfTool ? m_keeper.report()->command : QString();
}

QString NoticeModel::copyText() const
{
    return m_copied.isActive() ? QStringLiteral("Copied") : QStringLiteral("Copy");
}

QString NoticeModel::actionText() const
{
    QString again = QStringLiteral("Try again");
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
        return m_keeper.report()->exists ? QStringLiteral("Update yt-dlp")
                                         : QStringLiteral("Install yt-dlp");
    }
    Q_UNREACHABLE();
}

QString NoticeModel::dismissText() const
{
    switch (kind()) {
    case Kind::none:
        return {};
    case Kind::updating:
        return QStringLiteral("Cancel");
    case Kind::updated:
        return QStringLiteral("Close");
    case Kind::updateFailed:
    case Kind::uselessTool:
    case Kind::oldTool:
        return QStringLiteral("Not now");
    }
    Q_UNREACHABLE();
}

void NoticeModel::act()
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

void NoticeModel::dismiss()
{
    if (kind() == Kind::updating)
        m_keeper.cancelUpdate();
    else if (kind() == Kind::updated)
        m_keeper.closeUpdate();
    else
        m_keeper.notNow();
}

void NoticeModel::copyCommand()
{
    QGuiApplication::clipboard()->setText(command());
    m_copied.start();
    Q_EMIT changed();
}
