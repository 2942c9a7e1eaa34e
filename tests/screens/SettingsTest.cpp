// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

/// The panel under the header.
class SettingsTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void typedTextTakesEffectButIsNotStored()
    {
        QVERIFY(open());
        item("downloadDir")->forceActiveFocus();
        typeText("~/Music");
        QCOMPARE(state().downloadDir(), u"~/Music"_s);
        QVERIFY(state().resolvedDownloadDir().endsWith(u"/Music"));
        QVERIFY(!m_fixture->preferences->string(u"quillon.downloadDir"_s));
    }

    void theNextDownloadUsesAnUnsavedFolder()
    {
        QVERIFY(open());
        item("downloadDir")->forceActiveFocus();
        typeText("~/Music");
        state().singleInfo = video();
        state().startSingleDownload();
        QTRY_VERIFY_WITH_TIMEOUT(!state().isDownloading(), patience);
        QVERIFY(m_fixture->tool.calls().last().contains(QDir::homePath()
                                                        + u"/Music/%(title)s.%(ext)s"_s));
    }

    void unlimitedReadsBackAs50()
    {
        QVERIFY(open());
        state().historyLimit = 0;
        QCOMPARE(item("historyLimit")->property("displayText").toString(), u"Unlimited"_s);
        click("saveSettings");
        m_fixture->preferences->flush();
        state().loadSettings(); // as at a start
        QCOMPARE(item("historyLimit")->property("displayText").toString(), u"50"_s);
    }

    void aScreenReaderChoosesFromAMenu()
    {
        QVERIFY(open());
        const auto press = QAccessibleActionInterface::pressAction();
        accessible("speedLimit")->actionInterface()->doAction(press);
        auto *const popup = item("speedLimit")->property("popup").value<QObject *>();
        QTRY_VERIFY_WITH_TIMEOUT(popup->property("opened").toBool(), patience);
        QVERIFY(isInsideTheWindow(popup));
        accessible("menuEntry2")->actionInterface()->doAction(press);
        QTRY_VERIFY_WITH_TIMEOUT(!popup->property("visible").toBool(), patience);
        QCOMPARE(state().speedLimit(), u"5M"_s);
        QCOMPARE(accessible("speedLimit")->text(QAccessible::Description), u"5 MB/s"_s);
        state().speedLimit = u"0"_s;
    }

    void theLastMenuStaysInsideTheWindow()
    {
        QVERIFY(open());
        click("cookiesBrowser");
        auto *const popup = item("cookiesBrowser")->property("popup").value<QObject *>();
        QTRY_VERIFY_WITH_TIMEOUT(popup->property("opened").toBool(), patience);
        QVERIFY(isInsideTheWindow(popup));
        press(Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(!popup->property("visible").toBool(), patience);
    }

    void aMenuIsChosenFromByKeyboard()
    {
        QVERIFY(open());
        QVERIFY(focusByTab("speedLimit"));
        press(Qt::Key_Space);
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        QCOMPARE(state().speedLimit(), u"5M"_s);
        QCOMPARE(item("speedLimit")->property("displayText").toString(), u"5 MB/s"_s);
        press(Qt::Key_Up);
        QCOMPARE(state().speedLimit(), u"10M"_s);
        state().speedLimit = u"0"_s;
    }

    void everyChoiceFitsInEveryFont()
    {
        QVERIFY(open());
        for (const char *const name : {"historyLimit", "speedLimit", "cookiesBrowser"}) {
            QQuickItem *const choice = find(item(name), u"choice"_s);
            const QString before = choice->property("text").toString();
            const QVariant font = choice->property("font");
            const QStringList choices = item(name)->property("model").toStringList();
            for (const char *const family : {"Inter", "DejaVu Sans", "Noto Sans"}) {
                QFont other = font.value<QFont>();
                other.setFamily(QString::fromLatin1(family));
                choice->setProperty("font", other);
                for (const QString &each : choices) {
                    choice->setProperty("text", each);
                    m_window->grabWindow();
                    QVERIFY2(!choice->property("truncated").toBool(), qPrintable(each));
                }
            }
            choice->setProperty("font", font);
            choice->setProperty("text", before);
        }
        state().showSettings = false; // made anew by the next test
        QTRY_VERIFY_WITH_TIMEOUT(!item("historyLimit"), patience);
    }

    void aMenuIsChosenFromByMouse()
    {
        QVERIFY(open());
        click("historyLimit");
        auto *const popup = item("historyLimit")->property("popup").value<QObject *>();
        QTRY_VERIFY_WITH_TIMEOUT(popup->property("opened").toBool(), patience);
        auto *const entry = find(m_window->contentItem(), u"menuEntry4"_s);
        QVERIFY(entry);
        QTest::mouseClick(m_window, Qt::LeftButton, {},
                          entry->mapToScene({20, entry->height() / 2}).toPoint());
        QCOMPARE(state().historyLimit(), 0);
        QCOMPARE(item("historyLimit")->property("displayText").toString(), u"Unlimited"_s);
        state().historyLimit = 50;
        QCOMPARE(item("historyLimit")->property("displayText").toString(), u"50"_s);
    }

    void aValueInNoTableShowsNoSelection()
    {
        state().speedLimit = u"3M"_s;
        QVERIFY(open());
        QCOMPARE(item("speedLimit")->property("displayText").toString(), QString());
        QCOMPARE(state().speedLimit(), u"3M"_s);
        state().speedLimit = u"0"_s;
        QCOMPARE(item("speedLimit")->property("displayText").toString(), u"Full Speed"_s);
    }

    void theSwitchWorksForMouseKeysAndReader()
    {
        QVERIFY(open());
        click("notifications");
        QVERIFY(!state().notificationsEnabled());
        QVERIFY(focusByTab("notifications"));
        press(Qt::Key_Space);
        QVERIFY(state().notificationsEnabled());
        press(Qt::Key_Return);
        QVERIFY(!state().notificationsEnabled());
        accessible("notifications")
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(state().notificationsEnabled());
        QVERIFY(item("notifications")->property("checked").toBool());
        QCOMPARE(accessible("notifications")->text(QAccessible::Name), u"Notifications"_s);
        QCOMPARE(accessible("notifications")->role(), QAccessible::CheckBox);
        QVERIFY(accessible("notifications")->state().checked);
        state().notificationsEnabled = false;
        QVERIFY(!item("notifications")->property("checked").toBool());
        state().notificationsEnabled = true;
    }

    void saveIsConfirmedAndReturnsToSave()
    {
        QVERIFY(open());
        state().downloadDir = m_fixture->folder.path();
        QCOMPARE(textOf("saveSettings"), u"Save"_s);
        click("saveSettings");
        QCOMPARE(textOf("saveSettings"), u"Saved!"_s);
        click("saveSettings");
        QCOMPARE(textOf("saveSettings"), u"Saved!"_s);
        QCOMPARE(m_fixture->preferences->string(u"quillon.downloadDir"_s),
                 m_fixture->folder.path());
        QTRY_COMPARE_WITH_TIMEOUT(textOf("saveSettings"), u"Save"_s, patience);
    }

    void aReopenedPanelShowsNoConfirmation()
    {
        QVERIFY(open());
        click("saveSettings");
        state().showSettings = false;
        QTRY_VERIFY_WITH_TIMEOUT(!item("saveSettings"), patience);
        QVERIFY(open());
        QCOMPARE(textOf("saveSettings"), u"Save"_s);
    }

    void tabReachesEveryControlInOrder()
    {
        QVERIFY(open());
        QVERIFY(focusByTab("downloadDir"));
        QStringList reached;
        for (int step = 0; step < 7; ++step) {
            press(Qt::Key_Tab);
            reached.append(m_window->activeFocusItem()->objectName());
        }
        QCOMPARE(
            reached,
            QStringList({u"browseFolder"_s, u"saveSettings"_s, u"historyLimit"_s, u"speedLimit"_s,
                         u"notifications"_s, u"cookiesBrowser"_s, u"modeSingle"_s}));
    }

    void everyControlIsNamed()
    {
        QVERIFY(open());
        for (const auto &[control, name] : {std::pair{"downloadDir", u"Save Folder"_s},
                                            {"browseFolder", u"Browse"_s},
                                            {"saveSettings", u"Save"_s},
                                            {"historyLimit", u"History"_s},
                                            {"speedLimit", u"Speed"_s},
                                            {"cookiesBrowser", u"Cookies"_s}})
            QCOMPARE(accessible(control)->text(QAccessible::Name), name);
        QVERIFY(accessible("speedLimit")->role() == QAccessible::ComboBox);
        QCOMPARE(item("cookiesBrowser")->property("help").toString(),
                 u"Browser whose cookies yt-dlp uses to authenticate with YouTube"_s);
        QCOMPARE(item("downloadDir")->property("placeholderText").toString(),
                 u"~/Downloads  (leave empty for default)"_s);
    }

    void theChooserCancelledKeepsTheText()
    {
        QVERIFY(open());
        state().downloadDir = u"~/Music"_s;
        QObject *const chooser = browse();
        QVERIFY(chooser);
        const QQuickItem *const select = confirmation();
        QVERIFY(select);
        QVERIFY(QTest::qWaitForWindowExposed(select->window()));
        QTest::keyClick(select->window(), Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(!chooser->property("visible").toBool(), patience);
        QCOMPARE(state().downloadDir(), u"~/Music"_s);
    }

    void confirmingTheChooserSetsButStoresNothing()
    {
        QVERIFY(QDir(m_fixture->folder.path()).mkpath(u"videos/new"_s));
        const QString videos = m_fixture->folder.filePath(u"videos"_s);
        state().downloadDir = videos;
        m_fixture->preferences->setString(u"quillon.downloadDir"_s, u"before"_s);
        QVERIFY(open());
        QObject *const chooser = browse();
        QVERIFY(chooser);
        QCOMPARE(chooser->property("title").toString(), u"Choose Download Folder"_s);
        state().downloadDir = QString();
        const QQuickItem *const select = confirmation();
        QVERIFY(select);
        select->window()->grabWindow();
        QTest::mouseClick(select->window(), Qt::LeftButton, {},
                          select->mapToScene({20, 10}).toPoint());
        QTRY_VERIFY_WITH_TIMEOUT(!chooser->property("visible").toBool(), patience);
        QCOMPARE(state().downloadDir(), videos + u"/new"_s);
        QCOMPARE(m_fixture->preferences->string(u"quillon.downloadDir"_s), u"before"_s);
    }

private:
    [[nodiscard]] bool open()
    {
        state().showSettings = true;
        return waitFor([&] { return shown("saveSettings"); });
    }

    bool isInsideTheWindow(QObject *popup)
    {
        const auto *const content = popup->property("contentItem").value<QQuickItem *>();
        const QRectF place = content->mapRectToScene(content->boundingRect());
        return QRectF(0, 0, m_window->width(), m_window->height()).contains(place);
    }

    QObject *browse()
    {
        click("browseFolder");
        QObject *chooser = nullptr;
        const auto isOpen = [&] {
            chooser = item("browseFolder")->parentItem()->findChild<QObject *>(u"folderChooser"_s);
            return chooser && chooser->property("visible").toBool();
        };
        return QTest::qWaitFor(isOpen, 30000) ? chooser : nullptr;
    }

    /// The chooser's button; it is in this window or, from Qt 6.8 on, in one of its own.
    static QQuickItem *confirmation()
    {
        QQuickItem *button = nullptr;
        const auto isShown = [&] {
            const QWindowList windows = QGuiApplication::topLevelWindows();
            for (QWindow *const window : windows) {
                const auto *const quick = qobject_cast<QQuickWindow *>(window);
                if (quick && quick->isVisible() && !button)
                    button = withText(quick->contentItem(), u"Select Folder"_s);
            }
            return button != nullptr;
        };
        return QTest::qWaitFor(isShown, 30000) ? button : nullptr;
    }
};

QTEST_MAIN(SettingsTest)
#include "SettingsTest.moc"
