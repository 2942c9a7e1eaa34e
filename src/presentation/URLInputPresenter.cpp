// SPDX-License-Identifier: GPL-3.0-or-later
#include "URLInputPresenter.h"

#include "Clipboard.h"
#include "URLList.h"

using namespace Qt::StringLiterals;

namespace {

struct ModeTexts
{
    QString placeholder;
    QString fieldIcon;
    QString idleLabel;
    QString busyLabel;
    QString buttonIcon;
    QString pasteLabel;
};

const ModeTexts &textsOf(AppMode mode)
{
    static const QList<ModeTexts> texts{
        {u"Paste a YouTube URL..."_s, u"link"_s, u"Fetch Info"_s, u"Fetching..."_s,
         u"magnifyingglass"_s, u"Paste and Fetch"_s},
        {u"Paste a URL to add to queue..."_s, u"link"_s, u"Add to Queue"_s, u"Add to Queue"_s,
         u"plus"_s, u"Paste and Add"_s},
        {u"Search YouTube..."_s, u"magnifyingglass"_s, u"Search"_s, u"Searching..."_s,
         u"magnifyingglass"_s, u"Paste and Search"_s},
    };
    return texts[static_cast<qsizetype>(mode)];
}

} // namespace

URLInputPresenter::URLInputPresenter(AppState &state)
    : StatePresenter(state)
{
    for (const auto signal :
         {&AppState::modeChanged, &AppState::singleURLChanged, &AppState::multiURLChanged,
          &AppState::browseSearchQueryChanged, &AppState::isFetchingChanged,
          &AppState::isBrowseSearchingChanged, &AppState::fetchAsPlaylistChanged})
        connect(&state, signal, this, &URLInputPresenter::changed);
}

QString URLInputPresenter::currentURL() const
{
    switch (state().mode()) {
    case AppMode::single:
        return state().singleURL();
    case AppMode::multi:
        return state().multiURL();
    case AppMode::browse:
        return state().browseSearchQuery();
    }
    Q_UNREACHABLE();
}

QString URLInputPresenter::placeholder() const
{
    return textsOf(state().mode()).placeholder;
}

QString URLInputPresenter::fieldIcon() const
{
    return textsOf(state().mode()).fieldIcon;
}

QString URLInputPresenter::buttonLabel() const
{
    const ModeTexts &texts = textsOf(state().mode());
    return isBusy() ? texts.busyLabel : texts.idleLabel;
}

QString URLInputPresenter::pasteLabel() const
{
    return textsOf(state().mode()).pasteLabel;
}

QString URLInputPresenter::buttonIcon() const
{
    return textsOf(state().mode()).buttonIcon;
}

bool URLInputPresenter::isBusy() const
{
    switch (state().mode()) {
    case AppMode::single:
        return state().isFetching();
    case AppMode::multi:
        return false;
    case AppMode::browse:
        return state().isBrowseSearching();
    }
    Q_UNREACHABLE();
}

bool URLInputPresenter::canSubmit() const
{
    return !currentURL().isEmpty() && !state().isFetching() && !state().isBrowseSearching();
}

bool URLInputPresenter::showsMixedBar() const
{
    return state().mode() == AppMode::single && state().isMixedURL();
}

bool URLInputPresenter::fetchesPlaylist() const
{
    return state().fetchAsPlaylist();
}

void URLInputPresenter::edit(const QString &text)
{
    const QString before = currentURL();
    if (text == before)
        return;
    lookForSeveral(text, before);
    switch (state().mode()) {
    case AppMode::single:
        state().singleURL = text;
        state().fetchError = std::nullopt;
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

// A field of one line joins the lines of what is pasted, so the clipboard is asked. Only
// after more than a letter, since asking takes time.
void URLInputPresenter::lookForSeveral(const QString &text, const QString &before)
{
    if (state().mode() == AppMode::browse || text.size() < before.size() + 2)
        return;
    const QStringList urls = webURLsIn(Clipboard::text());
    if (urls.size() > 1 && text.contains(urls.first()) && text.contains(urls.last()))
        Q_EMIT state().severalURLsSeen(urls);
}

void URLInputPresenter::take(const QString &dropped)
{
    const QStringList urls = webURLsInDrop(dropped);
    if (urls.size() > 1 && state().mode() == AppMode::multi) {
        state().addURLsToQueue(urls);
        return;
    }
    if (urls.size() > 1 && state().mode() == AppMode::single)
        Q_EMIT state().severalURLsSeen(urls);
    const QStringList lines = dropped.split(u'\n');
    for (const QString &line : lines) {
        if (const QString text = line.trimmed(); !text.isEmpty()) {
            const bool isFile = QUrl(text).isLocalFile();
            edit(isFile && !urls.isEmpty() ? urls.first() : text);
            return;
        }
    }
}

void URLInputPresenter::handleSubmit()
{
    switch (state().mode()) {
    case AppMode::single:
        state().fetchSingleInfo();
        break;
    case AppMode::multi:
        state().addURLToQueue(state().multiURL());
        edit(QString());
        break;
    case AppMode::browse:
        state().searchYouTube();
        break;
    }
}

void URLInputPresenter::pasteAndSubmit()
{
    take(Clipboard::text());
    handleSubmit();
}

void URLInputPresenter::clearURL()
{
    switch (state().mode()) {
    case AppMode::single:
        state().singleURL = QString();
        state().singleInfo = std::nullopt;
        state().fetchError = std::nullopt;
        state().fetchAsPlaylist = false;
        state().resetDownload();
        break;
    case AppMode::multi:
        edit(QString());
        break;
    case AppMode::browse:
        edit(QString());
        state().browseResults = AppState::Results();
        state().browseSearchError = std::nullopt;
        break;
    }
}

void URLInputPresenter::choosePlaylist(bool asPlaylist)
{
    state().fetchAsPlaylist = asPlaylist;
    state().singleInfo = std::nullopt;
}
