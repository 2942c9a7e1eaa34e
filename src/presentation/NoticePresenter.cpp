// SPDX-License-Identifier: GPL-3.0-or-later
#include "NoticePresenter.h"

#include "Clipboard.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds confirmationTime{2};

} // namespace

NoticePresenter::NoticePresenter(QList<NoticeSource *> sources)
    : m_sources(std::move(sources))
{
    for (NoticeSource *const source : m_sources)
        connect(source, &NoticeSource::changed, this, &NoticePresenter::update);
    m_copied.setSingleShot(true);
    m_copied.setInterval(confirmationTime);
    connect(&m_copied, &QTimer::timeout, this, &NoticePresenter::changed);
    update();
}

QString NoticePresenter::copyText() const
{
    return m_copied.isActive() ? u"Copied"_s : u"Copy"_s;
}

void NoticePresenter::act()
{
    // A copy, since the notice may go with what it does.
    if (const auto action = m_notice.act)
        action();
}

void NoticePresenter::dismiss()
{
    if (const auto action = m_notice.dismiss)
        action();
}

void NoticePresenter::copyCommand()
{
    Clipboard::copy(command());
    m_copied.start();
    Q_EMIT changed();
}

Notice NoticePresenter::firstDue() const
{
    for (NoticeSource *const source : m_sources) {
        if (Notice notice = source->notice(); !notice.kind.isEmpty())
            return notice;
    }
    return {};
}

void NoticePresenter::update()
{
    const Notice before = std::exchange(m_notice, firstDue());
    const bool isOther = m_notice.kind != before.kind;
    if (isOther)
        m_copied.stop();
    Q_EMIT changed(); // first, so that whoever makes the new notice finds it complete
    if (isOther)
        Q_EMIT kindChanged();
    if (m_notice.title != before.title)
        Q_EMIT titleChanged();
}
