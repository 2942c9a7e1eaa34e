// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"
#include "NoticePresenter.h"

#include <QClipboard>

namespace {
/// A notice that leads to a setting.
class SettingNotice : public NoticeSource
{
public:
    Notice notice() override
    {
        return {.kind = kind,
                .text = u"Sign in"_s,
                .actionText = u"Choose browser cookies"_s,
                .setting = u"cookiesBrowser"_s,
                .dismissText = u"Close"_s,
                .act =
                    [this] {
                        kind.clear();
                        opens();
                        Q_EMIT changed();
                    },
                .dismiss = [] {}};
    }

    QString kind;
    std::function<void()> opens;
};
} // namespace

/// What the keyboard reaches of texts: the whole of what is cut, messages to copy, and the
/// setting that a notice is about.
class CutTextTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        m_main.reset();
        m_notices.reset();
        BrowseFixture::cleanup();
    }

    void aFocusedRowShowsItsWholeTitle()
    {
        const QString title = u"A long title "_s.repeated(30).trimmed();
        state().addToHistory(StateFixture::record(title));
        state().addToHistory(StateFixture::record(u"Short"_s));
        QTRY_VERIFY_WITH_TIMEOUT(shown("history0") && shown("history1"), patience);
        QVERIFY(focusByTab("history0"));
        press(Qt::Key_Down);
        QTRY_COMPARE_WITH_TIMEOUT(tip(), title, patience);
        press(Qt::Key_Up);
        QTRY_COMPARE_WITH_TIMEOUT(tip(), QString(), patience);
    }

    void aFocusedCardShowsItsWholeTitle()
    {
        VideoInfo info = playlist(2);
        info.playlistEntries[0].title = u"A long title "_s.repeated(30).trimmed();
        QVERIFY(showPlaylist(info));
        QVERIFY(focusByTab("playlistCards"));
        QTRY_COMPARE_WITH_TIMEOUT(tip(), info.playlistEntries[0].title, patience);
    }

    void aCutHeadingIsAStopOfItsOwn()
    {
        VideoInfo info = playlist(2);
        QVERIFY(showPlaylist(info));
        QVERIFY(!item("playlistTitle")->property("activeFocusOnTab").toBool());
        info.title = u"A long title "_s.repeated(30).trimmed();
        QVERIFY(showPlaylist(info));
        QTRY_VERIFY_WITH_TIMEOUT(item("playlistTitle")->property("activeFocusOnTab").toBool(),
                                 patience);
        QVERIFY(focusByTab("playlistTitle"));
        QTRY_VERIFY_WITH_TIMEOUT(tip().startsWith(u"A long title"), patience);
    }

    void theBannersMessageIsCopiedByKey()
    {
        QVERIFY(failToFetch());
        QVERIFY(focusByTab("errorBanner"));
        QTRY_VERIFY_WITH_TIMEOUT(tipPart("copyTip"), patience);
        QTest::keyClick(m_window, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard(), u"Failed to fetch info: ERROR: gone"_s);
    }

    void theBannersMessageIsCopiedByItsButton()
    {
        QVERIFY(failToFetch());
        QVERIFY(focusByTab("errorBanner"));
        QTRY_VERIFY_WITH_TIMEOUT(tipPart("copyTip"), patience);
        click(tipPart("copyTip"));
        QCOMPARE(clipboard(), u"Failed to fetch info: ERROR: gone"_s);
    }

    void aFailedEntrysMessageIsCopiedByKey()
    {
        auto entry = std::make_shared<DownloadItem>(u"https://x/1"_s);
        entry->status = Status::Failed{u"Download failed: gone"_s};
        state().queue = {entry};
        state().mode = AppMode::multi;
        QTRY_VERIFY_WITH_TIMEOUT(shown("queue0"), patience);
        QVERIFY(focusByTab("queue0"));
        QTRY_VERIFY_WITH_TIMEOUT(tipPart("copyTip"), patience);
        QTest::keyClick(m_window, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard(), u"Download failed: gone"_s);
    }

    void aRowWithoutAMessageOffersNoCopy()
    {
        QGuiApplication::clipboard()->setText(u"before"_s);
        state().queue = {std::make_shared<DownloadItem>(u"https://x/1"_s)};
        state().mode = AppMode::multi;
        QTRY_VERIFY_WITH_TIMEOUT(shown("queue0"), patience);
        QVERIFY(focusByTab("queue0"));
        QTest::keyClick(m_window, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard(), u"before"_s);
    }

    void thePlayersMessageIsCopiedByKey()
    {
        QVERIFY(show(1));
        QVERIFY(play(0));
        state().playerError = u"The connection was lost"_s;
        QTRY_VERIFY_WITH_TIMEOUT(shown("playerError"), patience);
        QVERIFY(focusByTab("video"));
        QTest::keyClick(m_window, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard(), u"The connection was lost"_s);
    }

    void aNoticeLeadsToItsSetting()
    {
        m_source.kind = u"setting"_s;
        m_source.opens = [this] { state().showSettings = true; };
        Q_EMIT m_source.changed();
        QTRY_VERIFY_WITH_TIMEOUT(shown("noticeAction"), patience);
        click("noticeAction");
        QVERIFY(shown("cookiesBrowser"));
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("cookiesBrowser")), patience);
    }

protected:
    MainWindow::Extras extras() override
    {
        m_source.kind.clear();
        m_notices = std::make_unique<NoticePresenter>(QList<NoticeSource *>{&m_source});
        return {.notices = m_notices.get()};
    }

private:
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }

    [[nodiscard]] bool failToFetch()
    {
        m_fixture->tool.respond("fail ERROR: gone");
        state().singleURL = u"https://x/1"_s;
        state().fetchSingleInfo();
        return waitFor([&] { return state().fetchError() && hasEntered(item("errorBanner")); });
    }

    /// What stands in an open tooltip.
    QQuickItem *tipPart(const char *name)
    {
        const QObject *const open = tipIn(m_window->contentItem());
        return open
            ? find(open->property("contentItem").value<QQuickItem *>(), QString::fromLatin1(name))
            : nullptr;
    }

    SettingNotice m_source;
    std::unique_ptr<NoticePresenter> m_notices;
};

QTEST_MAIN(CutTextTest)
#include "CutTextTest.moc"
