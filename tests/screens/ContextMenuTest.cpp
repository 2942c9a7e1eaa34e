// SPDX-License-Identifier: GPL-3.0-or-later
#include "BrowseFixture.h"

#include <QClipboard>

/// The menus of rows, cards, fields and messages, and the keys of the window.
class ContextMenuTest : public BrowseFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aRightClickOpensAHistoryRowsMenu()
    {
        QVERIFY(showHistory());
        rightClick("history0");
        QTRY_COMPARE_WITH_TIMEOUT(
            commands(),
            QStringList({u"Show in Finder"_s, u"Fetch again"_s, u"Copy title"_s, u"Copy address"_s,
                         u"Open in browser"_s, u"Remove from history"_s}),
            patience);
    }

    void theMenuKeyOpensARowsMenu_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::newRow("menu") << int(Qt::Key_Menu) << Qt::KeyboardModifiers();
        QTest::newRow("shift F10") << int(Qt::Key_F10) << Qt::KeyboardModifiers(Qt::ShiftModifier);
    }
    void theMenuKeyOpensARowsMenu()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QVERIFY(showHistory());
        QVERIFY(focusByTab("history0"));
        QTest::keyClick(m_window, Qt::Key(key), modifiers);
        QTRY_VERIFY_WITH_TIMEOUT(!commands().isEmpty(), patience);
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        QTRY_COMPARE_WITH_TIMEOUT(QGuiApplication::clipboard()->text(), u"Boat"_s, patience);
        QTRY_VERIFY_WITH_TIMEOUT(focusIsIn(item("history0")), patience);
    }

    void oneRecordIsRemovedAndSaved()
    {
        QVERIFY(showHistory());
        QVERIFY(choose("history0", u"Remove from history"_s));
        QTRY_COMPARE_WITH_TIMEOUT(state().history().size(), 1, patience);
        QCOMPARE(state().history().first().title, u"Car"_s);
        state().loadHistory();
        QCOMPARE(state().history().size(), 1);
    }

    void onlyTheWebIsOpenedInTheBrowser()
    {
        QVERIFY(showHistory());
        QVERIFY(choose("history0", u"Open in browser"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->desktop.fileViewer->openedUrls,
                                  QStringList(u"https://x/boat"_s), patience);
        rightClick("history1"); // a file
        QTRY_VERIFY_WITH_TIMEOUT(!commands().isEmpty(), patience);
        QVERIFY(!commands().contains(u"Open in browser"_s));
    }

    void aMediaFileIsOpened()
    {
        const QString path = m_fixture->folder.filePath(u"boat.mp4"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(showHistory(path));
        QVERIFY(choose("history0", u"Open"_s));
        QTRY_COMPARE_WITH_TIMEOUT(m_fixture->desktop.fileViewer->openedUrls,
                                  QStringList(QUrl::fromLocalFile(path).toString()), patience);
    }

    void aProgramIsNeverOpened()
    {
        const QString path = m_fixture->folder.filePath(u"boat.mp4"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
        QVERIFY(showHistory(path));
        rightClick("history0");
        QTRY_VERIFY_WITH_TIMEOUT(!commands().isEmpty(), patience);
        QVERIFY(!commands().contains(u"Open"_s));
        state().openFile(path);
        QVERIFY(m_fixture->desktop.fileViewer->openedUrls.isEmpty());
    }

    void aFailedQueueEntrysMessageIsCopied()
    {
        state().mode = AppMode::multi;
        const auto entry = std::make_shared<DownloadItem>(u"https://x/a"_s);
        entry->status = Status::Failed{u"Download failed: gone"_s};
        state().queue = {entry};
        QTRY_VERIFY_WITH_TIMEOUT(item("queue0"), patience);
        QVERIFY(choose("queue0", u"Copy message"_s));
        QTRY_COMPARE_WITH_TIMEOUT(QGuiApplication::clipboard()->text(), u"Download failed: gone"_s,
                                  patience);
    }

    void aResultIsPlayedFromItsMenu()
    {
        QVERIFY(show(2));
        QVERIFY(choose("result1", u"Play"_s));
        QTRY_VERIFY_WITH_TIMEOUT(state().nowPlaying().has_value(), patience);
        QCOMPARE(state().nowPlaying()->id, state().browseResults()[1].id);
    }

    void theVideoCardHasAMenu()
    {
        state().singleInfo = video();
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoCard"), patience);
        QVERIFY(focusByTab("videoCard"));
        press(Qt::Key_Menu);
        QTRY_COMPARE_WITH_TIMEOUT(
            commands(), QStringList({u"Copy title"_s, u"Copy address"_s, u"Open in browser"_s}),
            patience);
    }

    void aPlaylistCardIsDeselectedFromItsMenu()
    {
        state().selectedPlaylistItems = {u"0"_s, u"1"_s};
        state().singleInfo = playlist(2);
        QTRY_VERIFY_WITH_TIMEOUT(item("card0"), patience);
        QVERIFY(choose("card0", u"Deselect"_s));
        QTRY_COMPARE_WITH_TIMEOUT(state().selectedPlaylistItems(), AppState::EntrySelection{u"1"_s},
                                  patience);
    }

    void theBannersMessageIsCopied()
    {
        state().fetchError = u"Failed to fetch info: gone"_s;
        QTRY_VERIFY_WITH_TIMEOUT(shown("errorBanner") && hasEntered(item("errorBanner")), patience);
        QVERIFY(choose("errorBanner", u"Copy message"_s));
        QTRY_COMPARE_WITH_TIMEOUT(QGuiApplication::clipboard()->text(),
                                  u"Failed to fetch info: gone"_s, patience);
    }

    void aFieldHasTheUsualCommands()
    {
        rightClick("urlField");
        QTRY_COMPARE_WITH_TIMEOUT(commands(),
                                  QStringList({u"Paste and Fetch"_s, u"Undo"_s, u"Cut"_s, u"Copy"_s,
                                               u"Paste"_s, u"Delete"_s, u"Select All"_s}),
                                  patience);
    }

    void pasteAndFetchFetches()
    {
        m_fixture->tool.respond("wait go");
        QGuiApplication::clipboard()->setText(u" https://x/watch?v=1\n"_s);
        QVERIFY(choose("urlField", u"Paste and Fetch"_s));
        QTRY_VERIFY_WITH_TIMEOUT(state().isFetching(), patience);
        QCOMPARE(state().singleURL(), u"https://x/watch?v=1"_s);
        m_fixture->tool.open("go");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isFetching(), patience);
    }

    void deletingFromTheMenuEditsTheURL()
    {
        QVERIFY(focusField());
        typeText("abc");
        QTest::keyClick(m_window, Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Menu);
        QTRY_VERIFY_WITH_TIMEOUT(!commands().isEmpty(), patience);
        click(withText(m_window->contentItem(), u"Delete"_s));
        QTRY_COMPARE_WITH_TIMEOUT(state().singleURL(), QString(), patience);
    }

    void keysChooseTheMode()
    {
        const QList<std::pair<Qt::Key, AppMode>> keys{{Qt::Key_2, AppMode::multi},
                                                      {Qt::Key_3, AppMode::browse},
                                                      {Qt::Key_1, AppMode::single}};
        for (const auto &[key, mode] : keys) {
            QTest::keyClick(m_window, key, Qt::ControlModifier);
            QTRY_COMPARE_WITH_TIMEOUT(state().mode(), mode, patience);
        }
    }

    void aKeySelectsTheField()
    {
        state().singleURL = u"abc"_s;
        QTest::keyClick(m_window, Qt::Key_L, Qt::ControlModifier);
        QTRY_COMPARE_WITH_TIMEOUT(item("urlField")->property("selectedText").toString(), u"abc"_s,
                                  patience);
        QVERIFY(focusIsIn(item("urlField")));
    }

    void aKeyOpensAndClosesTheSettings()
    {
        QTest::keyClick(m_window, Qt::Key_Comma, Qt::ControlModifier);
        QTRY_VERIFY_WITH_TIMEOUT(state().showSettings(), patience);
        QTest::keyClick(m_window, Qt::Key_Comma, Qt::ControlModifier);
        QTRY_VERIFY_WITH_TIMEOUT(!state().showSettings(), patience);
    }

private:
    [[nodiscard]] bool showHistory(const QString &path = u"/nowhere/boat.mp4"_s)
    {
        const auto record = [](const QString &title, const QString &url, const QString &file) {
            return HistoryItem{.id = QUuid::createUuid(),
                               .title = title,
                               .thumbnailURL = QString(),
                               .url = url,
                               .format = u"mp4"_s,
                               .quality = u"Best"_s,
                               .savedPath = file,
                               .date = ReferenceDate::now()};
        };
        state().addToHistory(record(u"Car"_s, u"file:///etc/passwd"_s, u"/nowhere/car.mp4"_s));
        state().addToHistory(record(u"Boat"_s, u"https://x/boat"_s, path));
        return waitFor([&] { return item("history0") && item("history1"); });
    }

    void rightClick(const char *name)
    {
        m_window->grabWindow(); // so that everything is in its place
        const QQuickItem *const target = item(name);
        const QPointF centre = target->mapToScene({target->width() / 2, target->height() / 2});
        QTest::mouseClick(m_window, Qt::RightButton, {}, centre.toPoint());
    }

    /// Of the open menu.
    QStringList commands()
    {
        QStringList texts;
        collect(m_window->contentItem(), texts);
        return texts;
    }
    static void collect(const QQuickItem *parent, QStringList &texts)
    {
        const QList<QQuickItem *> children = parent->childItems();
        for (const QQuickItem *const child : children) {
            if (child->isVisible() && child->objectName() == u"menuCommand")
                texts.append(child->property("text").toString());
            collect(child, texts);
        }
    }

    [[nodiscard]] bool choose(const char *name, const QString &command)
    {
        rightClick(name);
        if (!waitFor([&] { return commands().contains(command); }))
            return false;
        click(withText(m_window->contentItem(), command));
        return true;
    }
};

QTEST_MAIN(ContextMenuTest)
#include "ContextMenuTest.moc"
