// SPDX-License-Identifier: GPL-3.0-or-later
#include "URLInputModel.h"

namespace {

struct ModeTexts
{
    QString placeholder;
    QString fieldIcon;
    QString idleLabel;
    QString busyLabel;
    QString buttonIcon;
};

const ModeTexts &textsOf(AppMode mode)
{
    static const QList<ModeTexts> texts{
        {QStringLiteral("Paste a YouTube URL..."), QStringLiteral("link"),
         QStringLiteral("Fetch Info"), QStringLiteral("Fetching..."),
         QStringLiteral("magnifyingglass")},
        {QStringLiteral("Paste a URL to add to queue..."), QStringLiteral("link"),
         QStringLiteral("Add to Queue"), QStringLiteral("Add to Queue"), QStringLiteral("plus")},
        {QStringLiteral("Search YouTube..."), QStringLiteral("magnifyingglass"),
         QStringLiteral("Search"), QStringLiteral("Searching..."),
         QStringLiteral("magnifyingglass")},
    };
    return texts[static_cast<qsizetype>(mode)];
}

} // namespace

URLInputModel::URLInputModel(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::modeChanged, &AppState::singleURLChanged, &AppState::multiURLChanged,
          &AppState::browseSearchQueryChanged, &AppState::isFetchingChanged,
          &AppState::isBrowseSearchingChanged, &AppState::fetchAsPlaylistChanged})
        connect(&state, signal, this, &URLInputModel::changed);
}

QString URLInputModel::currentURL() const
{
    switch (state().mode()) {
    case AppMode::single:
        return state().singleURL;
    case AppMode::multi:
        return state().multiURL;
    case AppMode::browse:
        return state().browseSearchQuery;
    }
    Q_UNREACHABLE();
}

QString URLInputModel::placeholder() const
{
    return textsOf(state().mode).placeholder;
}

QString URLInputModel::fieldIcon() const
{
    return textsOf(state().mode).fieldIcon;
}

QString URLInputModel::buttonLabel() const
{
    const ModeTexts &texts = textsOf(state().mode);
    return isBusy() ? texts.busyLabel : texts.idleLabel;
}

QString URLInputModel::buttonIcon() const
{
    return textsOf(state().mode).buttonIcon;
}

bool URLInputModel::isBusy() const
{
    switch (state().mode()) {
    case AppMode::single:
        return state().isFetching;
    case AppMode::multi:
        return false;
    case AppMode::browse:
        return state().isBrowseSearching;
    }
    Q_UNREACHABLE();
}

bool URLInputModel::canSubmit() const
{
    return !currentURL().isEmpty() && !state().isFetching && !state().isBrowseSearching;
}

bool URLInputModel::showsMixedBar() const
{
    return state().mode() == AppMode::single && state().isMixedURL();
}

bool URLInputModel::fetchesPlaylist() const
{
    return state().fetchAsPlaylist;
}

void URLInputModel::edit(const QString &text)
{
    if (text == currentURL())
        return;
    switch (state().mode()) {
    case AppMode::single:
        state().singleURL = text;
        state().fetchError = AppState::Text();
        break;
    case AppMode::multi:
        state().multiURL = text;
        break;
    case AppMode::browse:
        state().browseSearchQuery = text;
        break;
    }
    state().fetchAsPlaylist = false;
}

void URLInputModel::take(const QString &dropped)
{
    const QStringList lines = dropped.split(u'\n');
    for (const QString &line : lines) {
        if (const QString text = line.trimmed(); !text.isEmpty()) {
            edit(text);
            return;
        }
    }
}

void URLInputModel::handleSubmit()
{
    switch (state().mode()) {
    case AppMode::single:
        state().fetchSingleInfo();
        break;
    case AppMode::multi:
        state().addURLToQueue(state().multiURL);
        edit(QString());
        break;
    case AppMode::browse:
        state().searchYouTube();
        break;
    }
}

void URLInputModel::clearURL()
{
    switch (state().mode()) {
    case AppMode::single:
        state().singleURL = QString();
        state().singleInfo = AppState::Info();
        state().fetchError = AppState::Text();
        state().fetchAsPlaylist = false;
        state().resetDownload();
        break;
    case AppMode::multi:
        edit(QString());
        break;
    case AppMode::browse:
        edit(QString());
        state().browseResults = AppState::Results();
        state().browseSearchError = AppState::Text();
        break;
    }
}

void URLInputModel::choosePlaylist(bool asPlaylist)
{
    state().fetchAsPlaylist = asPlaylist;
    state().singleInfo = AppState::Info();
}
