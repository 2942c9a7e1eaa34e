// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

#include "NoticePresenter.h"
#include "Release.h"
#include "ToolKeeper.h"
#include "ToolNotice.h"
#include "ToolPresenter.h"

#include <QClipboard>
#include <QDir>

/// The slot for notices, and the line of the settings that tells of the tool.
class NoticeTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        m_main.reset();
        m_tool.reset();
        m_notices.reset();
        m_toolNotice.reset();
        m_keeper.reset();
        m_server.answers.clear();
        m_server.requests.clear();
        WindowFixture::cleanup();
    }

    void aToolThatWorksIsNotSpokenOf()
    {
        QVERIFY(see("2026.08.01"));
        QVERIFY(!item("notice"));
    }

    void theNoticeStandsBelowAndMovesNothing()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        m_window->grabWindow();
        const double before = sceneY("download");
        const double scrolled = item("page")->property("contentY").toDouble();
        QVERIFY(complain());
        m_window->grabWindow();
        QCOMPARE(sceneY("download"), before);
        QCOMPARE(item("page")->property("contentY").toDouble(), scrolled);
        const QRectF card = item("notice")->mapRectToScene(item("notice")->boundingRect());
        QVERIFY(card.bottom() < m_window->height());
        QVERIFY(card.bottom() > m_window->height() - 30);
        QCOMPARE(card.center().x(), m_window->width() / 2.0);
    }

    void thePageScrollsClearOfTheNotice()
    {
        state().singleInfo = playlist(100);
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        QVERIFY(complain());
        auto *const page = item("page");
        const auto isClear = [&] {
            turnWheel(20);
            const double end = page->property("contentY").toDouble() + page->height();
            return end >= page->property("contentHeight").toDouble() + item("notice")->height();
        };
        QTRY_VERIFY_WITH_TIMEOUT(isClear(), patience);
    }

    void itSaysTheProblemAndTheRemedy()
    {
        QVERIFY(complain());
        QCOMPARE(textOf("noticeText"), u"YouTube no longer answers yt-dlp 2023.03.04."_s);
        QCOMPARE(textOf("noticeAction"), u"Update yt-dlp"_s);
        QCOMPARE(textOf("noticeDismiss"), u"Not now"_s);
        QVERIFY(!shown("noticeCommand"));
    }

    void aMissingToolMayBeInstalled()
    {
        QFile::remove(m_fixture->tool.path());
        m_keeper->begin();
        QTRY_VERIFY_WITH_TIMEOUT(shown("notice"), patience);
        QCOMPARE(textOf("noticeAction"), u"Install yt-dlp"_s);
        state().showSettings = true;
        QTRY_VERIFY_WITH_TIMEOUT(shown("updateTool"), patience);
        QCOMPARE(textOf("updateTool"), u"Install yt-dlp"_s);
        QCOMPARE(textOf("toolMeaning"), u"not installed"_s);
        QCOMPARE(textOf("toolName"), u"yt-dlp"_s);
    }

    void aScreenReaderIsToldOnce()
    {
        QVERIFY(complain());
        QStringList alerts = alertsIn(m_window->contentItem());
        QCOMPARE(alerts, {u"YouTube no longer answers yt-dlp 2023.03.04."_s});
        m_server.answers[u"SHA2-256SUMS"_s] = {{.body = {}, .isSilent = true}};
        click("noticeAction");
        QTRY_COMPARE_WITH_TIMEOUT(textOf("noticeText"), u"Downloading yt-dlp…"_s, patience);
        QCOMPARE(alertsIn(m_window->contentItem()), {u"Updating yt-dlp"_s});
    }

    void notNowByMouse()
    {
        QVERIFY(complain());
        click("noticeDismiss");
        QTRY_VERIFY_WITH_TIMEOUT(!item("notice"), patience);
        QCOMPARE(m_fixture->preferences->string(u"quillon.toolNotNow"_s),
                 m_fixture->tool.path() + u" 2023.03.04"_s);
    }

    void whatLiesBelowIsNotPressed()
    {
        QVERIFY(complain());
        AppState::History records;
        for (int number = 0; number < 40; ++number) {
            records.append(HistoryItem());
            records.last().id = QUuid::createUuid();
        }
        state().history = records;
        QTRY_VERIFY_WITH_TIMEOUT(numbered("page", u"history"_s) > 8, patience);
        QTest::mouseClick(m_window, Qt::LeftButton, {},
                          item("notice")->mapToScene({40, 20}).toPoint());
        QVERIFY(!focusIsIn(item("page")));
    }

    void f6GoesThereAndBack()
    {
        QVERIFY(complain());
        QVERIFY(focusField());
        press(Qt::Key_F6);
        QCOMPARE(m_window->activeFocusItem(), item("noticeAction"));
        QVERIFY(item("noticeAction")->property("visualFocus").toBool());
        press(Qt::Key_F6);
        QCOMPARE(m_window->activeFocusItem(), item("urlField"));
    }

    void escapeLeavesItAndItStays()
    {
        QVERIFY(complain());
        QVERIFY(focusField());
        press(Qt::Key_F6);
        press(Qt::Key_Escape);
        QCOMPARE(m_window->activeFocusItem(), item("urlField"));
        QVERIFY(shown("notice"));
    }

    void tabReachesItBehindThePage()
    {
        QVERIFY(complain());
        QVERIFY(focusField());
        QStringList reached;
        for (int step = 0; step < 8 && !reached.contains(u"noticeDismiss"_s); ++step) {
            press(Qt::Key_Tab);
            reached.append(m_window->activeFocusItem()->objectName());
        }
        QCOMPARE(reached.mid(reached.size() - 2),
                 QStringList({u"noticeAction"_s, u"noticeDismiss"_s}));
    }

    void theKeyboardFollowsFromNoticeToNotice()
    {
        m_server.answers[u"SHA2-256SUMS"_s] = {{.body = {}, .isSilent = true}};
        QVERIFY(complain());
        QVERIFY(focusField());
        press(Qt::Key_F6);
        press(Qt::Key_Return);
        QCOMPARE(m_window->activeFocusItem(), item("noticeDismiss"));
        QVERIFY(item("noticeDismiss")->property("visualFocus").toBool());
        QCOMPARE(textOf("noticeDismiss"), u"Cancel"_s);
        press(Qt::Key_Space);
        QTRY_COMPARE_WITH_TIMEOUT(m_keeper->updatePhase(), ToolKeeper::UpdatePhase::none, patience);
        QCOMPARE(m_window->activeFocusItem(), item("noticeAction"));
    }

    void focusReturnsToTheFieldWhenTheNoticeGoes()
    {
        QVERIFY(complain());
        QVERIFY(focusField());
        press(Qt::Key_F6);
        press(Qt::Key_Tab);
        press(Qt::Key_Space);
        QTRY_VERIFY_WITH_TIMEOUT(!item("notice"), patience);
        QCOMPARE(m_window->activeFocusItem(), item("urlField"));
    }

    void anUpdateTellsHowFarItIs()
    {
        m_server.answers[u"SHA2-256SUMS"_s] = {{.body = {}, .isSilent = true}};
        QVERIFY(complain());
        click("noticeAction");
        QTRY_COMPARE_WITH_TIMEOUT(textOf("noticeText"), u"Downloading yt-dlp…"_s, patience);
        QVERIFY(!shown("noticeAction"));
        QVERIFY(!item("noticeDismiss")->property("visualFocus").toBool()); // it was a click
        state().showSettings = true;
        QTRY_VERIFY_WITH_TIMEOUT(shown("toolMeaning"), patience);
        QCOMPARE(textOf("toolMeaning"), u"updating…"_s);
        QVERIFY(!shown("updateTool"));
    }

    void aReadyToolOffersToRepeatTheFailure()
    {
        offer(m_server, m_signer, zippedTool(versionCode("2026.08.19")));
        QVERIFY(complain());
        setTool("2023.03.04");
        state().singleURL = u"https://example.org/a"_s;
        state().fetchSingleInfo();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isFetching(), patience);
        click("noticeAction");
        QTRY_COMPARE_WITH_TIMEOUT(textOf("noticeText"), u"yt-dlp 2026.08.19 is ready."_s, patience);
        QCOMPARE(textOf("noticeAction"), u"Try again"_s);
        QCOMPARE(textOf("noticeDismiss"), u"Close"_s);
        state().singleURL = u"https://example.org/b"_s;
        QVERIFY(!shown("noticeAction"));
        click("noticeDismiss");
        QTRY_VERIFY_WITH_TIMEOUT(!item("notice"), patience);
    }

    void aFailedUpdateSaysWhy()
    {
        QVERIFY(complain());
        click("noticeAction");
        QTRY_COMPARE_WITH_TIMEOUT(textOf("noticeText"),
                                  u"yt-dlp could not be downloaded: the server answered 404."_s,
                                  patience);
        QCOMPARE(textOf("noticeAction"), u"Try again"_s);
        offer(m_server, m_signer, zippedTool(versionCode("2026.08.19")));
        click("noticeAction");
        QTRY_COMPARE_WITH_TIMEOUT(textOf("noticeText"), u"yt-dlp 2026.08.19 is ready."_s, patience);
    }

    void whatRenewsAForeignToolCanBeCopied()
    {
        QVERIFY(QDir(m_fixture->folder.path()).mkpath(u"own"_s));
        writeFile(ownPath(), "#!/bin/sh\nPK=; echo 2023.03.04\n"); // begins as releases do
        QFile::setPermissions(ownPath(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(complain());
        QVERIFY(textOf("noticeText").endsWith(u"; this renews it:"));
        QVERIFY(!shown("noticeAction"));
        QCOMPARE(textOf("noticeCommand"), ownPath() + u" -U"_s);
        click("noticeCopy");
        QCOMPARE(QGuiApplication::clipboard()->text(), ownPath() + u" -U"_s);
        QCOMPARE(textOf("noticeCopy"), u"Copied"_s);
        QTRY_COMPARE_WITH_TIMEOUT(textOf("noticeCopy"), u"Copy"_s, patience);
    }

    void aFailureHintsAtAnOldTool()
    {
        setTool("2026.03.01");
        m_keeper->begin();
        QTRY_COMPARE_WITH_TIMEOUT(m_keeper->report()->version.text, u"2026.03.01"_s, patience);
        QVERIFY(!item("notice"));
        state().singleURL = u"https://example.org/a"_s;
        state().fetchSingleInfo();
        QTRY_VERIFY_WITH_TIMEOUT(shown("notice"), patience);
        QCOMPARE(textOf("noticeText"), u"yt-dlp is 5 months old. A newer one may help."_s);
    }

    void theSettingsTellOfTheTool()
    {
        QVERIFY(complain());
        state().showSettings = true;
        QTRY_VERIFY_WITH_TIMEOUT(shown("updateTool"), patience);
        QCOMPARE(textOf("toolName"), u"yt-dlp 2023.03.04"_s);
        QCOMPARE(textOf("toolMeaning"), u"too old for YouTube"_s);
        QCOMPARE(item("toolPath")->property("text").toString(), m_fixture->tool.path());
        QCOMPARE(textOf("updateTool"), u"Update yt-dlp"_s);
        QCOMPARE(item("toolName")->mapToScene({}).x(), item("downloadDir")->mapToScene({}).x());
        QCOMPARE(accessible("toolMeaning")->text(QAccessible::Name),
                 u"yt-dlp 2023.03.04, too old for YouTube"_s);
        QVERIFY(focusByTab("cookiesBrowser"));
        press(Qt::Key_Tab);
        QCOMPARE(m_window->activeFocusItem(), item("updateTool"));
    }

    void theToolsPathIsSeenInATooltip()
    {
        QVERIFY(see("2026.08.01"));
        state().showSettings = true;
        QTRY_VERIFY_WITH_TIMEOUT(shown("toolMeaning"), patience);
        QCOMPARE(textOf("toolMeaning"), u"current"_s);
        m_window->grabWindow();
        QTest::mouseMove(m_window, item("toolMeaning")->mapToScene({10, 5}).toPoint());
        QTRY_COMPARE_WITH_TIMEOUT(tip(), m_fixture->tool.path(), patience);
        QTest::mouseMove(m_window, {2, m_window->height() - 2});
    }

protected:
    MainWindow::Extras extras() override
    {
        setTool("2026.08.19");
        m_keeper = std::make_unique<ToolKeeper>(
            state(), *m_fixture->preferences,
            ToolKeeper::Parts{.places = {.searchPaths = {ownPath(), m_fixture->tool.path()},
                                         .ownPath = ownPath(),
                                         .environment = {{u"PATH"_s, u"/usr/bin:/bin"_s}}},
                              .source = {.folder = m_server.url(), .key = m_signer.key},
                              .today = [] { return QDate(2026, 8, 19); }});
        m_keeper->begin();
        m_toolNotice = std::make_unique<ToolNotice>(*m_keeper);
        m_notices = std::make_unique<NoticePresenter>(QList<NoticeSource *>{m_toolNotice.get()});
        m_tool = std::make_unique<ToolPresenter>(*m_keeper);
        return {.notices = m_notices.get(), .tool = m_tool.get()};
    }

private:
    QString ownPath() const { return m_fixture->folder.filePath(u"own/yt-dlp"_s); }

    /// Which fails at everything else.
    void setTool(const QByteArray &version)
    {
        m_fixture->tool.respond("for --version print " + version
                                + "\nfor --version exit 0\nexit 1");
    }
    /// Lets the program see a tool of this version.
    [[nodiscard]] bool see(const QByteArray &version)
    {
        setTool(version);
        m_keeper->begin();
        return waitFor([&] {
            return m_keeper->report()
                && m_keeper->report()->version.text == QString::fromLatin1(version);
        });
    }
    [[nodiscard]] bool complain()
    {
        return see("2023.03.04") && waitFor([&] { return shown("notice"); });
    }
    static QStringList alertsIn(QQuickItem *parent)
    {
        QStringList found;
        const QList<QQuickItem *> children = parent->childItems();
        for (QQuickItem *const child : children) {
            QAccessibleInterface *const accessible = QAccessible::queryAccessibleInterface(child);
            if (accessible && child->isVisible() && accessible->role() == QAccessible::AlertMessage
                && !accessible->text(QAccessible::Name).isEmpty())
                found.append(accessible->text(QAccessible::Name));
            found += alertsIn(child);
        }
        return found;
    }
    Signer m_signer;
    ReleaseServer m_server;
    std::unique_ptr<ToolKeeper> m_keeper;
    std::unique_ptr<ToolNotice> m_toolNotice;
    std::unique_ptr<NoticePresenter> m_notices;
    std::unique_ptr<ToolPresenter> m_tool;
};

QTEST_MAIN(NoticeTest)
#include "NoticeTest.moc"
