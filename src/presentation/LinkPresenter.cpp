// SPDX-License-Identifier: GPL-3.0-or-later
#include "LinkPresenter.h"

#include "Openable.h"

bool LinkPresenter::canBrowse(const QString &url)
{
    return isOfTheWeb(url);
}

void LinkPresenter::browse(const QString &url)
{
    state().openInBrowser(url);
}

bool LinkPresenter::canOpen(const QString &path)
{
    return isPlayableFile(path);
}

void LinkPresenter::open(const QString &path)
{
    state().openFile(path);
}

void LinkPresenter::reveal(const QString &path)
{
    state().revealInFinder(path);
}
