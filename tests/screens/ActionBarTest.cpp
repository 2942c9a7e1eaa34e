// SPDX-License-Identifier: GPL-3.0-or-later
#include "ActionBarPresenter.h"
#include "WindowFixture.h"

/// What stands at the lower edge of the window for an action row that is out of sight.
class ActionBarTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aSectionInSightHasNoBar()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("download"), patience);
        m_window->grabWindow();
        QVERIFY(!shown("downloadBar"));
    }

    void aLongPlaylistsButtonStaysInSight()
    {
        QVERIFY(showPlaylist(playlist(5000)));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        QCOMPARE(textOf("barDownload"), u"Download 5000 Videos"_s);
        click("selectNone");
        QTRY_VERIFY_WITH_TIMEOUT(!item("barDownload")->isEnabled(), patience);
        click("card0");
        QTRY_COMPARE_WITH_TIMEOUT(textOf("barDownload"), u"Download 1 Video"_s, patience);
    }

    void theBarGoesWhereTheSectionBegins()
    {
        QVERIFY(showPlaylist(playlist(40)));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        QVERIFY(scrollTo(sectionTop() + 34 - page()->height()));
        QTRY_VERIFY_WITH_TIMEOUT(!shown("downloadBar"), patience);
        QVERIFY(scrollTo(sectionTop() + 20 - page()->height()));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
    }

    void aRunFromTheBarLeavesThePageWhereItIs()
    {
        QVERIFY(showPlaylist(playlist(40)));
        QVERIFY(scrollTo(100));
        runSlowly();
        QTRY_VERIFY_WITH_TIMEOUT(shown("barPause"), patience);
        QTRY_COMPARE_WITH_TIMEOUT(accessible("barProgress")->text(QAccessible::Name),
                                  u"1 / 40 · Title 0, 42%"_s, patience);
        QCOMPARE(accessible("barProgress")->role(), QAccessible::ProgressBar);
        QCOMPARE(page()->property("contentY").toDouble(), 100);
    }

    void theBarPausesAndStops()
    {
        QVERIFY(showPlaylist(playlist(40)));
        runSlowly();
        QTRY_VERIFY_WITH_TIMEOUT(shown("barPause"), patience);
        click("barPause");
        QVERIFY(state().isPaused());
        QCOMPARE(accessible("barPause")->text(QAccessible::Name), u"Resume download"_s);
        click("barStop");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isDownloading(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(shown("barChip") && !shown("barPause"), patience);
    }

    void itsChoiceLeadsToThePills()
    {
        state().selectedQuality = quality(u"720p"_s);
        QVERIFY(showPlaylist(playlist(40)));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        QCOMPARE(textOf("barChoice"), u"MP4 · 720p"_s);
        click("barChoice");
        QVERIFY(sceneY("format0") < m_window->height());
        QVERIFY(sceneY("format0") > 150);
    }

    void itsChoiceByKeyboardEntersThePills()
    {
        QVERIFY(showPlaylist(playlist(40)));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        QVERIFY(focusByTab("barChoice"));
        press(Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("format0")), patience);
    }

    void theKeyboardEntersAndLeavesIt()
    {
        QVERIFY(showPlaylist(playlist(40)));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        QVERIFY(focusByTab("selectAll"));
        press(Qt::Key_F6);
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("barDownload")), patience);
        press(Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("selectAll")), patience);
    }

    void theFocusFollowsTheRunAndTheRow()
    {
        QVERIFY(showPlaylist(playlist(40)));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        m_fixture->tool.respond("wait go");
        QVERIFY(focusByTab("barDownload"));
        press(Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("barPause")), patience);
        QVERIFY(scrollTo(sectionTop() + 60 - page()->height()));
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("pause")), patience);
    }

    void aRunIsSeenFromOtherModes()
    {
        QVERIFY(startSingle());
        state().mode = AppMode::browse;
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        QVERIFY(!shown("barDownload") && !shown("barChoice"));
        QTRY_COMPARE_WITH_TIMEOUT(accessible("barProgress")->text(QAccessible::Name),
                                  u"Title a, 42%"_s, patience);
        click("barLink");
        QCOMPARE(state().mode(), AppMode::single);
        QTRY_VERIFY_WITH_TIMEOUT(!shown("downloadBar") && shown("pause"), patience);
    }

    void aRunIsSeenWhileAnotherVideoIsFetched()
    {
        QVERIFY(startSingle());
        m_fixture->tool.respond("wait fetch");
        state().singleURL = u"https://x/other"_s;
        state().fetchSingleInfo();
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        QVERIFY(!shown("barLink")); // it would lead nowhere
        click("barStop");
        QTRY_VERIFY_WITH_TIMEOUT(!shown("downloadBar"), patience);
    }

    void aRunAboveTheHistoryIsSeen()
    {
        HistoryItem record = StateFixture::record(u"T"_s);
        for (int each = 0; each < 60; ++each) {
            record.id = QUuid::createUuid();
            state().addToHistory(record);
        }
        QVERIFY(startSingle());
        QVERIFY(scrollTo(1500));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        click("barLink");
        QTRY_VERIFY_WITH_TIMEOUT(!shown("downloadBar"), patience);
    }

    void aScrolledQueueKeepsItsButtons()
    {
        state().mode = AppMode::multi;
        state().queue = entries(40);
        QTRY_VERIFY_WITH_TIMEOUT(shown("startQueue"), patience);
        QVERIFY(!shown("queueBar"));
        m_fixture->tool.respond("wait go");
        QVERIFY(scrollTo(900));
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("queueBar"), patience);
        QCOMPARE(textOf("barStartQueue"), u"Download 40 Videos"_s);
        click("barStartQueue");
        QTRY_COMPARE_WITH_TIMEOUT(textOf("barQueuePosition"), u"1 / 40"_s, patience);
        click("barPauseQueue");
        QVERIFY(state().isPaused());
        QVERIFY(scrollTo(0));
        QTRY_VERIFY_WITH_TIMEOUT(!shown("queueBar"), patience);
    }

private:
    /// Whether it has come, rather than being on its way.
    bool isPresent(const char *name)
    {
        return shown(name) && item(name)->parentItem()->opacity() == 1;
    }

    /// Once the page is long enough.
    [[nodiscard]] bool scrollTo(double y)
    {
        const auto isLongEnough = [&] {
            return page()->property("contentHeight").toDouble() > y + page()->height();
        };
        if (!waitFor(isLongEnough))
            return false;
        page()->setProperty("contentY", y);
        return true;
    }

    static QualityOption quality(const QString &label)
    {
        const QList<QualityOption> all = QualityOption::mp4Options();
        return *std::find_if(all.begin(), all.end(),
                             [&](const QualityOption &each) { return each.label == label; });
    }

    QQuickItem *page() { return item("page"); }

    double sectionTop() { return item("download")->mapToItem(page(), QPointF()).y() + contentY(); }
    double contentY() { return page()->property("contentY").toDouble(); }

    void runSlowly()
    {
        m_fixture->tool.respond("print [download]  42.0% of 1MiB at 2MiB/s ETA 00:42\n"
                                "wait go");
        QTRY_VERIFY_WITH_TIMEOUT(isPresent("downloadBar"), patience);
        click("barDownload");
    }

    static QList<std::shared_ptr<DownloadItem>> entries(int count)
    {
        QList<std::shared_ptr<DownloadItem>> all;
        for (int each = 0; each < count; ++each)
            all.append(std::make_shared<DownloadItem>(u"https://x/%1"_s.arg(each)));
        return all;
    }
};

QTEST_MAIN(ActionBarTest)
#include "ActionBarTest.moc"
