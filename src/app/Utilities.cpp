// SPDX-License-Identifier: GPL-3.0-or-later
#include "AppState.h"

#include "CompletionText.h"
#include "DownloadFolder.h"
#include "HomeDirectory.h"
#include "Openable.h"
#include "ShownText.h"
#include "URLKind.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

bool AppState::isMixedURL() const
{
    return namesVideoAndPlaylist(singleURL().trimmed());
}

QString AppState::resolvedDownloadDir() const
{
    return downloadFolder(downloadDir(), homeDirectory(), m_platform.folders->downloads());
}

void AppState::revealInFinder(const QString &path)
{
    const QString absolute = absoluteForTool(path);
    if (QFileInfo::exists(absolute))
        m_platform.fileViewer->select(absolute);
    else
        m_platform.fileViewer->openFolder(QFileInfo(absolute).path());
}

void AppState::openFile(const QString &path)
{
    const QString absolute = absoluteForTool(path);
    if (isPlayableFile(absolute))
        m_platform.fileViewer->open(QUrl::fromLocalFile(absolute));
}

void AppState::openInBrowser(const QString &url)
{
    if (isOfTheWeb(url))
        m_platform.fileViewer->open(QUrl(url.trimmed()));
}

void AppState::sendCompleteNotification(const QString &title, qint64 count)
{
    if (!notificationsEnabled())
        return;
    m_platform.sound->playCompletion();
    m_platform.notifier->post({.identifier = QUuid::createUuid().toString(QUuid::WithoutBraces),
                               .title = u"Download Complete"_s,
                               .body = completionText(shownText(title), count)});
}
