// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

/// The main job and what surrounds it.
class WindowTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void theMinimumSizeExcludesTheMenuBar()
    {
        const auto *const menuBar = m_window->property("menuBar").value<QQuickItem *>();
        QVERIFY(menuBar->height() > 0);
        QCOMPARE(m_window->minimumWidth(), 880);
        QCOMPARE(m_window->minimumHeight() - menuBar->height(), 600.0);
        QCOMPARE(m_window->title(), u"Quillon"_s);
    }

    void itOpensNoLargerThanTheScreen()
    {
        QCOMPARE(openingSize({1920, 1080}), QSize(960, 720));
        QCOMPARE(openingSize({1366, 720}), QSize(960, 680)); // 768 with a panel
        QCOMPARE(openingSize({800, 480}), QSize(880, 600));  // never below the minimum
    }

    void itOpensAtThatSize()
    {
        const QSize expected = openingSize(m_window->screen()->availableSize());
        const MainWindow another(*m_app, *m_appearance, makeThumbnails(), {});
        QCOMPARE(another.window()->width(), expected.width());
        QCOMPARE(another.window()->height(), expected.height());
    }

    void leavingPageItemsGiveTheirRoomGradually()
    {
        state().isFetching = true;
        QTRY_VERIFY_WITH_TIMEOUT(shown("fetching"), patience);
        const QQuickItem *const place = revealOf("fetching");
        QTRY_COMPARE_WITH_TIMEOUT(presenceOf(place), 1, patience);
        const double room = place->height();
        QVERIFY(room > 50);
        state().isFetching = false;
        QTRY_VERIFY_WITH_TIMEOUT(presenceOf(place) < 0.95, patience);
        QVERIFY(place->height() <= room * presenceOf(place) + 1);
    }

    void leavingRowItemsGiveTheirRoomGradually()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        state().isDownloading = true;
        QTRY_VERIFY_WITH_TIMEOUT(shown("pause"), patience);
        const QQuickItem *const place = revealOf("pause");
        QTRY_COMPARE_WITH_TIMEOUT(presenceOf(place), 1, patience);
        const double room = place->width();
        QVERIFY(room > 30);
        state().isDownloading = false;
        QTRY_VERIFY_WITH_TIMEOUT(presenceOf(place) < 0.95, patience);
        QVERIFY(place->width() <= room * presenceOf(place) + 1);
    }

    void returnFetchesEvenWithADisabledButton()
    {
        m_fixture->tool.respond("wait go\n"
                                R"(print {"id":"i","title":"T"})");
        const auto before = m_fixture->tool.calls().size();
        QVERIFY(focusField());
        typeText("https://x/watch?v=i");
        QTest::keyClick(m_window, Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->tool.calls().size(), before + 1, patience);
        QVERIFY(!item("submit")->isEnabled());
        QTest::keyClick(m_window, Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->tool.calls().size(), before + 2, patience);
        m_fixture->tool.open("go");
        m_fixture->tool.open("go");
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoTitle") && !state().isFetching(), patience);
    }

    void anEmptyFieldDisablesButtonAndReturn()
    {
        QVERIFY(focusField());
        QVERIFY(!item("submit")->isEnabled());
        QTest::keyClick(m_window, Qt::Key_Return);
        QVERIFY(!state().isFetching());
    }

    void typingFetchingAndDownloadingByMouse()
    {
        m_fixture->tool.respond(R"(print {"id":"i","title":"T","duration":61})");
        QVERIFY(focusField());
        typeText("https://x/watch?v=i");
        QCOMPARE(state().singleURL(), u"https://x/watch?v=i"_s);
        QVERIFY(item("submit")->isEnabled());
        click("submit");
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoTitle"), patience);
        QCOMPARE(item("videoTitle")->property("text").toString(), u"T"_s);
        click("quality720p");
        QCOMPARE(state().selectedQuality().id, u"720p"_s);
        click("format1");
        QVERIFY(state().selectedFormat() == MediaFormat::mp3);
        QTRY_VERIFY_WITH_TIMEOUT(!shown("quality720p"), patience);
        click("format0");
        click("quality720p");
        click("format0"); // once more, which is a choice, too
        QCOMPARE(state().selectedQuality().id, u"best"_s);
        m_fixture->tool.respond("print [download]  42.5% of 1MiB at 2MiB/s ETA 00:42\n"
                                "wait a\n"
                                "print [Merger] x\n"
                                "wait b");
        click("download");
        QTRY_VERIFY_WITH_TIMEOUT(shown("progressBar") && state().downloadProgress() > 0, patience);
        QCOMPARE(item("percent")->property("text").toString(), u"42%"_s);
        QVERIFY(shown("speed") && shown("remaining"));
        QVERIFY(!item("download")->isEnabled());
        m_fixture->tool.open("a");
        QTRY_VERIFY_WITH_TIMEOUT(shown("processingBar") && !shown("progressBar"), patience);
        m_fixture->tool.open("b");
        QTRY_VERIFY_WITH_TIMEOUT(shown("showInFinder"), patience);
        QCOMPARE(item("statusChip")->property("text").toString(), u"Complete"_s);
        click("showInFinder");
        QCOMPARE(m_fixture->desktop.fileViewer->selected.last(), m_fixture->folder.path());
    }

    void unknownSpeedAndTimeHaveNoTags()
    {
        m_fixture->tool.respond("wait go");
        state().singleInfo = video();
        state().startSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(shown("progressBar"), patience);
        QVERIFY(!shown("speed") && !shown("remaining"));
        state().downloadSpeed = u"1MiB/s"_s;
        state().downloadETA = u"--"_s;
        QTRY_VERIFY_WITH_TIMEOUT(shown("speed") && !shown("remaining"), patience);
        m_fixture->tool.open("go");
    }

    void pauseAndResumeByTheButton()
    {
        state().singleInfo = video();
        m_fixture->tool.respond("print [Merger] x\n"
                                "wait c");
        state().startSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(shown("pause") && m_fixture->service->activeProcess(), patience);
        click("pause");
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(m_fixture->tool.processIdentifiers().last()),
                                  QByteArray("T"), patience);
        QVERIFY(state().isPaused());
        click("pause");
        QTRY_VERIFY_WITH_TIMEOUT(stateOf(m_fixture->tool.processIdentifiers().last()) != "T",
                                 patience);
        m_fixture->tool.open("c");
    }

    void markupInATitleIsShownLiterally()
    {
        VideoInfo info = video();
        info.title = u"<b>bold</b> & more"_s;
        info.uploader = QString();
        info.duration.reset();
        state().singleInfo = info;
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoTitle"), patience);
        QCOMPARE(item("videoTitle")->property("textFormat").toInt(), int(Qt::PlainText));
    }

    void aSparseVideoShowsOnlyItsTitle()
    {
        VideoInfo info = video();
        info.uploader = u"U"_s;
        info.duration = 61;
        state().singleInfo = info;
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoUploader") && shown("videoDuration"), patience);
        info.uploader = QString();
        info.duration.reset();
        state().singleInfo = info;
        QTRY_VERIFY_WITH_TIMEOUT(
            shown("videoTitle") && !shown("videoUploader") && !shown("videoDuration"), patience);
    }

    void anErrorAndAFetchShowTogether()
    {
        state().fetchError = u"No"_s;
        state().isFetching = true;
        QTRY_VERIFY_WITH_TIMEOUT(shown("errorBanner") && shown("fetching"), patience);
        state().isFetching = false;
        QTRY_VERIFY_WITH_TIMEOUT(shown("errorBanner") && !shown("fetching"), patience);
    }

    void anErrorIsAnAlertNamedAfterItsText()
    {
        state().fetchError = u"No such video\n"_s;
        QTRY_VERIFY_WITH_TIMEOUT(shown("errorBanner"), patience);
        QVERIFY(accessible("errorBanner")->role() == QAccessible::AlertMessage);
        QCOMPARE(accessible("errorBanner")->text(QAccessible::Name), u"No such video"_s);
    }

    void aPlaylistShowsItsTitle()
    {
        state().singleInfo = playlist(2);
        QTRY_VERIFY_WITH_TIMEOUT(shown("playlistTitle") && !shown("videoTitle"), patience);
    }

    void theClearButtonShowsWhileThereIsText()
    {
        QVERIFY(focusField());
        QTRY_VERIFY_WITH_TIMEOUT(!shown("clearField"), patience);
        typeText("abc");
        QTRY_VERIFY_WITH_TIMEOUT(shown("clearField"), patience);
        click("clearField");
        QCOMPARE(state().singleURL(), QString());
        QTRY_VERIFY_WITH_TIMEOUT(!shown("clearField"), patience);
    }

    void theMixedBarOffersItsChoice()
    {
        QVERIFY(focusField());
        typeText("https://x/watch?v=a&list=b");
        QTRY_VERIFY_WITH_TIMEOUT(shown("fullPlaylist"), patience);
        for (int time = 0; time < 2; ++time) { // also the one that is chosen already
            state().singleInfo = video();
            click("fullPlaylist");
            QVERIFY(state().fetchAsPlaylist() && !state().singleInfo());
        }
        for (int time = 0; time < 2; ++time) {
            state().singleInfo = video();
            click("singleVideo");
            QVERIFY(!state().fetchAsPlaylist() && !state().singleInfo());
        }
        typeText("c");
        QVERIFY(!state().fetchAsPlaylist());
    }

    void modesSwitchByMouseAndArrows()
    {
        click("modeMulti");
        QVERIFY(state().mode() == AppMode::multi);
        QVERIFY(QMetaObject::invokeMethod(item("modeMulti"), "forceActiveFocus"));
        QTest::keyClick(m_window, Qt::Key_Right);
        QVERIFY(state().mode() == AppMode::browse);
        QTest::keyClick(m_window, Qt::Key_Right);
        QVERIFY(state().mode() == AppMode::single);
    }

    void settingsOpenInMidDownloadWithoutDisturbingIt()
    {
        state().singleInfo = video();
        m_fixture->tool.respond("wait d");
        state().startSingleDownload();
        click("settings");
        QVERIFY(state().showSettings() && state().isDownloading());
        click("settings");
        QVERIFY(!state().showSettings() && state().isDownloading());
        m_fixture->tool.open("d");
    }

    void theAppearanceButtonCyclesFromAnyValue()
    {
        QCOMPARE(m_appearance->themeIcon(), u"circle.lefthalf.filled"_s);
        click("toggleTheme");
        QCOMPARE(m_appearance->colorSchemeRaw(), u"light"_s);
        QCOMPARE(m_appearance->themeIcon(), u"sun.max.fill"_s);
        QVERIFY(!m_appearance->isDark());
        click("toggleTheme");
        QCOMPARE(m_appearance->themeIcon(), u"moon.fill"_s);
        QVERIFY(m_appearance->isDark());
        QCOMPARE(m_window->color(), QColor(u"#1e1e20"_s));
        m_fixture->preferences->setString(u"quillon.colorScheme"_s, u"sepia"_s);
        QCOMPARE(m_appearance->themeIcon(), u"circle.lefthalf.filled"_s);
        click("toggleTheme");
        QCOMPARE(m_appearance->colorSchemeRaw(), u"system"_s);
    }

    void anInvalidURLShowsThePhotoPlaceholder_data()
    {
        QTest::addColumn<QString>("url");
        QTest::newRow("no URL") << u"not a URL"_s;
        QTest::newRow("a file") << u"file:///etc/passwd"_s;
        QTest::newRow("nobody there") << u"http://127.0.0.1:1/a.png"_s;
    }

    void anInvalidURLShowsThePhotoPlaceholder()
    {
        QFETCH(QString, url);
        VideoInfo info = video();
        info.thumbnailURL = url;
        // That a picture cannot be had is nothing to warn of, but Qt does.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"QML (QQuick)?Image"_s));
        state().singleInfo = info;
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoThumbnail"), patience);
        QTRY_VERIFY_WITH_TIMEOUT(item("videoThumbnail")->property("showsPlaceholder").toBool(),
                                 patience);
        QQuickItem *const photo = find(item("videoThumbnail"), u"placeholder"_s);
        QVERIFY(photo->isVisible());
        QCOMPARE(photo->property("symbol").toString(), u"photo"_s);
    }

    void aKnownDurationShowsAsABadge()
    {
        VideoInfo info = video();
        state().singleInfo = info;
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoThumbnail"), patience);
        QVERIFY(!shown("durationBadge"));
        info.duration = 61;
        state().singleInfo = info;
        QTRY_VERIFY_WITH_TIMEOUT(shown("durationBadge"), patience);
    }

private:
    /// What lets it enter and leave.
    QQuickItem *revealOf(const char *name)
    {
        QQuickItem *place = item(name);
        while (!place->property("presence").isValid())
            place = place->parentItem();
        return place;
    }

    static double presenceOf(const QQuickItem *place)
    {
        return place->property("presence").toDouble();
    }
};

QTEST_MAIN(WindowTest)
#include "WindowTest.moc"
