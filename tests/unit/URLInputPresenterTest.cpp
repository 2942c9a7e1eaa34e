// SPDX-License-Identifier: GPL-3.0-or-later
#include "URLInputPresenter.h"
#include "StateFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// The input bar of all three modes.
class URLInputPresenterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<StateFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void theBarsTextsFollowTheMode()
    {
        const URLInputPresenter input(state());
        QCOMPARE(input.placeholder(), u"Paste a YouTube URL..."_s);
        QCOMPARE(input.fieldIcon(), u"link"_s);
        QCOMPARE(input.buttonLabel(), u"Fetch Info"_s);
        QCOMPARE(input.buttonIcon(), u"magnifyingglass"_s);
        state().mode = AppMode::multi;
        QCOMPARE(input.placeholder(), u"Paste a URL to add to queue..."_s);
        QCOMPARE(input.fieldIcon(), u"link"_s);
        QCOMPARE(input.buttonLabel(), u"Add to Queue"_s);
        QCOMPARE(input.buttonIcon(), u"plus"_s);
        state().mode = AppMode::browse;
        QCOMPARE(input.placeholder(), u"Search YouTube..."_s);
        QCOMPARE(input.fieldIcon(), u"magnifyingglass"_s);
        QCOMPARE(input.buttonLabel(), u"Search"_s);
        QCOMPARE(input.buttonIcon(), u"magnifyingglass"_s);
    }

    void aBusyModeShowsItsBusyText()
    {
        const URLInputPresenter input(state());
        state().isFetching = true;
        QCOMPARE(input.buttonLabel(), u"Fetching..."_s);
        QVERIFY(input.isBusy());
        state().mode = AppMode::multi;
        QCOMPARE(input.buttonLabel(), u"Add to Queue"_s);
        QVERIFY(!input.isBusy());
        state().mode = AppMode::browse;
        QCOMPARE(input.buttonLabel(), u"Search"_s);
        state().isBrowseSearching = true;
        QCOMPARE(input.buttonLabel(), u"Searching..."_s);
    }

    void anyTextEnablesTheIdleButton()
    {
        URLInputPresenter input(state());
        QVERIFY(!input.canSubmit());
        input.edit(u"  "_s);
        QVERIFY(input.canSubmit()); // blanks are text
        state().isBrowseSearching = true;
        QVERIFY(!input.canSubmit());
        state().isBrowseSearching = false;
        state().isFetching = true;
        QVERIFY(!input.canSubmit());
        state().mode = AppMode::multi;
        state().multiURL = u"x"_s;
        QVERIFY(!input.canSubmit()); // a fetch of single mode counts everywhere
    }

    void editingResetsThePlaylistChoiceAndError()
    {
        URLInputPresenter input(state());
        state().fetchAsPlaylist = true;
        state().fetchError = u"old"_s;
        input.edit(u"x"_s);
        QVERIFY(!state().fetchAsPlaylist());
        QVERIFY(!state().fetchError());
    }

    void anEditInAnotherModeKeepsTheError()
    {
        URLInputPresenter input(state());
        state().mode = AppMode::multi;
        state().fetchAsPlaylist = true;
        state().fetchError = u"old"_s;
        input.edit(u"x"_s);
        QCOMPARE(state().multiURL(), u"x"_s);
        QVERIFY(!state().fetchAsPlaylist());
        QCOMPARE(state().fetchError(), u"old"_s);
    }

    void switchingModesKeepsTheTexts()
    {
        URLInputPresenter input(state());
        input.edit(u"single"_s);
        state().fetchAsPlaylist = true;
        state().fetchError = u"old"_s;
        state().mode = AppMode::browse;
        QCOMPARE(input.currentURL(), QString());
        input.edit(input.currentURL()); // what a field does that shows another text
        state().mode = AppMode::single;
        QCOMPARE(input.currentURL(), u"single"_s);
        QVERIFY(state().fetchAsPlaylist());
        QCOMPARE(state().fetchError(), u"old"_s);
    }

    void clearingInSingleModeAlsoResetsTheDownload()
    {
        URLInputPresenter input(state());
        state().singleURL = u"x"_s;
        state().singleInfo = StateFixture::video(u"a"_s);
        state().fetchError = u"old"_s;
        state().fetchAsPlaylist = true;
        state().downloadStatus = Status::Done{u"/d"_s};
        state().downloadProgress = 0.5;
        state().downloadSpeed = u"1MiB/s"_s;
        state().downloadETA = u"00:01"_s;
        state().isDownloading = true;
        state().isPaused = true;
        state().currentDownloadTitle = u"T"_s;
        state().currentDownloadIndex = 2;
        state().totalDownloadCount = 3;
        input.clearURL();
        QCOMPARE(state().singleURL(), QString());
        QVERIFY(!state().singleInfo());
        QVERIFY(!state().fetchError());
        QVERIFY(!state().fetchAsPlaylist());
        QVERIFY(state().downloadStatus() == DownloadUIStatus(Status::Idle{}));
        QCOMPARE(state().downloadProgress(), 0.0);
        QCOMPARE(state().downloadSpeed(), QString());
        QCOMPARE(state().downloadETA(), QString());
        QVERIFY(!state().isDownloading());
        QVERIFY(!state().isPaused());
        QCOMPARE(state().currentDownloadTitle(), QString());
        QCOMPARE(state().currentDownloadIndex(), 0);
        QCOMPARE(state().totalDownloadCount(), 0);
    }

    void clearingInMidFetchLetsItsResultCome()
    {
        URLInputPresenter input(state());
        m_fixture->tool.respond("wait go\n"
                                R"(print {"title":"T"})");
        input.edit(u"https://x/"_s);
        input.handleSubmit();
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->tool.calls().size(), 1, patience);
        input.clearURL();
        QVERIFY(state().isFetching());
        m_fixture->tool.open("go");
        QTRY_VERIFY_WITH_TIMEOUT(state().singleInfo().has_value(), patience);
        QVERIFY(!state().isFetching());
    }

    void clearingInOtherModesConcernsThemAlone()
    {
        URLInputPresenter input(state());
        state().singleURL = u"x"_s;
        state().multiURL = u"y"_s;
        state().browseSearchQuery = u"z"_s;
        state().browseResults = AppState::Results({SearchResult()});
        state().browseSearchError = u"old"_s;
        state().mode = AppMode::multi;
        input.clearURL();
        QCOMPARE(state().multiURL(), QString());
        QCOMPARE(state().browseResults().size(), 1);
        state().mode = AppMode::browse;
        input.clearURL();
        QCOMPARE(state().browseSearchQuery(), QString());
        QVERIFY(state().browseResults().isEmpty());
        QVERIFY(!state().browseSearchError());
        QCOMPARE(state().singleURL(), u"x"_s);
    }

    void clearingAndAddingAreEditsToo()
    {
        m_fixture->tool.respond("exit 1");
        URLInputPresenter input(state());
        for (const AppMode mode : {AppMode::multi, AppMode::browse}) {
            state().mode = mode;
            input.edit(u"x"_s);
            state().fetchAsPlaylist = true;
            input.clearURL();
            QVERIFY(!state().fetchAsPlaylist());
        }
        state().mode = AppMode::multi;
        input.edit(u"x"_s);
        state().fetchAsPlaylist = true;
        input.handleSubmit();
        QVERIFY(!state().fetchAsPlaylist());
        state().fetchAsPlaylist = true;
        input.handleSubmit(); // the text is empty and stays so
        QVERIFY(state().fetchAsPlaylist());
    }

    void returnGoesPastTheEnablingRule()
    {
        URLInputPresenter input(state());
        state().singleURL = u"https://x/"_s;
        state().isFetching = true;
        QVERIFY(!input.canSubmit());
        input.handleSubmit();
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->tool.calls().size(), 1, patience);
        QTRY_VERIFY_WITH_TIMEOUT(!state().isFetching(), patience);
    }

    void returnInAnEmptyFieldDoesNothing()
    {
        URLInputPresenter input(state());
        input.handleSubmit();
        QVERIFY(!state().isFetching());
    }

    void aMixedURLOffersAChoiceInSingleMode()
    {
        URLInputPresenter input(state());
        input.edit(u"https://x/watch?v=a&list=b"_s);
        QVERIFY(input.showsMixedBar());
        state().mode = AppMode::multi;
        QVERIFY(!input.showsMixedBar());
    }

    void choosingAlwaysClearsWhatWasFetched()
    {
        URLInputPresenter input(state());
        state().singleInfo = StateFixture::video(u"a"_s);
        input.choosePlaylist(false);
        QVERIFY(!state().singleInfo());
        input.choosePlaylist(true);
        QVERIFY(state().fetchAsPlaylist());
        QVERIFY(input.fetchesPlaylist());
    }

    void severalDroppedURLsBecomeEntriesOfTheQueue()
    {
        URLInputPresenter input(state());
        m_fixture->tool.respond("exit 1");
        state().mode = AppMode::multi;
        input.take(u"https://x/a\r\nhttps://x/b\r\n"_s);
        QCOMPARE(state().queue().size(), 2);
        QCOMPARE(state().multiURL(), QString());
        QTRY_VERIFY_WITH_TIMEOUT(kindOf(state().queue()[1]->status()) == StatusKind::Failed,
                                 patience);
    }

    void severalDroppedURLsAreOfferedInSingleMode()
    {
        URLInputPresenter input(state());
        const QSignalSpy offers(&state(), &AppState::severalURLsSeen);
        input.take(u"https://x/a\nhttps://x/b"_s);
        QCOMPARE(state().singleURL(), u"https://x/a"_s);
        QCOMPARE(offers.size(), 1);
        QVERIFY(state().queue().isEmpty());
    }

    void severalPastedURLsAreOfferedAndLeftAsTheyAre()
    {
        URLInputPresenter input(state());
        const QSignalSpy offers(&state(), &AppState::severalURLsSeen);
        QGuiApplication::clipboard()->setText(u"https://x/a\nhttps://x/b"_s);
        input.edit(u"https://x/a https://x/b"_s);
        QCOMPARE(offers.size(), 1);
        QCOMPARE(offers.first().first().toStringList(),
                 QStringList({u"https://x/a"_s, u"https://x/b"_s}));
        QCOMPARE(state().singleURL(), u"https://x/a https://x/b"_s);
    }

    void typingBesideAFullClipboardOffersNothing()
    {
        URLInputPresenter input(state());
        const QSignalSpy offers(&state(), &AppState::severalURLsSeen);
        QGuiApplication::clipboard()->setText(u"https://x/a\nhttps://x/b"_s);
        input.edit(u"h"_s);
        input.edit(u"https://y/"_s);
        QVERIFY(offers.isEmpty());
    }

private:
    AppState &state() { return *m_fixture->state; }

    std::unique_ptr<StateFixture> m_fixture;
};

QTEST_MAIN(URLInputPresenterTest)
#include "URLInputPresenterTest.moc"
