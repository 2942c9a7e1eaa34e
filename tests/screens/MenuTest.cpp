// SPDX-License-Identifier: GPL-3.0-or-later
#include "WindowFixture.h"

/// The menu bar and its commands.
class MenuTest : public WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void aMenuShowsEachCommandOnce()
    {
        QQuickItem *const root = m_window->contentItem();
        for (const AppMode mode : {AppMode::multi, AppMode::single}) {
            click(withText(root, u"&Download"_s));
            QTRY_VERIFY_WITH_TIMEOUT(withText(root, u"Toggle Mode"_s), patience);
            QCOMPARE(countIn(root, QRegularExpression(u"^menuCommand$"_s)), 4);
            const QQuickItem *const start = withText(root, u"Start Download"_s);
            QVERIFY(start && !start->isEnabled());
            click(withText(root, u"Toggle Mode"_s));
            QTRY_VERIFY_WITH_TIMEOUT(state().mode() == mode && !withText(root, u"Toggle Mode"_s),
                                     patience);
        }
    }

    void theMenusHoldTheirCommandsInOrder()
    {
        QCOMPARE(entriesOf(u"&Quillon"_s), QStringList({u"About Quillon"_s, u"-"_s, u"Quit"_s}));
        QCOMPARE(entriesOf(u"&Download"_s),
                 QStringList({u"Fetch Info"_s, u"Start Download"_s, u"Pause Download"_s, u"-"_s,
                              u"Toggle Mode"_s}));
    }

    void aScreenReaderChoosesFromAMenu()
    {
        QQuickItem *const root = m_window->contentItem();
        const auto press = [root](const QString &text) {
            QAccessible::queryAccessibleInterface(withText(root, text))
                ->actionInterface()
                ->doAction(QAccessibleActionInterface::pressAction());
        };
        press(u"&Download"_s);
        QTRY_VERIFY_WITH_TIMEOUT(withText(root, u"Toggle Mode"_s), patience);
        press(u"Start Download"_s); // unavailable
        QVERIFY(withText(root, u"Toggle Mode"_s));
        press(u"Toggle Mode"_s);
        QTRY_VERIFY_WITH_TIMEOUT(
            state().mode() == AppMode::multi && !withText(root, u"Toggle Mode"_s), patience);
    }

    void theMenusCommandsHaveTheirKeys()
    {
        const auto press = [this](Qt::Key key) {
            QTest::keyClick(m_window, key, Qt::ControlModifier);
        };
        m_fixture->tool.respond(R"(print {"id":"i","title":"T"})");
        QVERIFY(focusField());
        typeText("https://x/watch?v=i");
        press(Qt::Key_F);
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoTitle") && !state().isFetching(), patience);
        m_fixture->tool.respond("print [Merger] x\n"
                                "wait go");
        press(Qt::Key_D);
        QTRY_VERIFY_WITH_TIMEOUT(state().isDownloading() && shown("processingBar"), patience);
        press(Qt::Key_P);
        QVERIFY(state().isPaused());
        press(Qt::Key_P);
        QVERIFY(!state().isPaused());
        m_fixture->tool.open("go");
        QTRY_VERIFY_WITH_TIMEOUT(!state().isDownloading(), patience);
        press(Qt::Key_M);
        QVERIFY(state().mode() == AppMode::multi);
    }

    void fetchInfoWorksFromTheMenuByMouse()
    {
        m_fixture->tool.respond(R"(print {"id":"i","title":"T"})");
        state().singleURL = u"https://x/watch?v=i"_s;
        QQuickItem *const root = m_window->contentItem();
        click(withText(root, u"&Download"_s));
        QTRY_VERIFY_WITH_TIMEOUT(withText(root, u"Fetch Info"_s), patience);
        // The submit button below reads so, too.
        const auto command = [this] {
            QQuickItem *const found = item("menuCommand");
            return found && found->isVisible() ? found : nullptr;
        };
        QTRY_VERIFY_WITH_TIMEOUT(command(), patience);
        QCOMPARE(command()->property("text").toString(), u"Fetch Info"_s);
        click(command());
        QTRY_VERIFY_WITH_TIMEOUT(shown("videoTitle"), patience);
    }

private:
    /// What the menu of this title shows from its top, a divider as "-".
    QStringList entriesOf(const QString &title)
    {
        click(withText(m_window->contentItem(), title));
        const auto menu = [&]() -> QObject * {
            const QList<QObject *> all = m_window->findChildren<QObject *>();
            for (QObject *const each : all) {
                if (each->inherits("QQuickMenu") && each->property("title") == title)
                    return each;
            }
            return nullptr;
        };
        if (!QTest::qWaitFor([&] { return menu() && menu()->property("opened").toBool(); }, 30000))
            return {};
        m_window->grabWindow();
        QMap<double, QString> entries; // by their place
        const auto collect = [&](const QQuickItem *parent, const auto &again) -> void {
            const QList<QQuickItem *> children = parent->childItems();
            for (const QQuickItem *const child : children) {
                if (child->inherits("QQuickMenuSeparator"))
                    entries[child->mapToScene({0, 0}).y()] = u"-"_s;
                else if (child->objectName() == u"menuCommand")
                    entries[child->mapToScene({0, 0}).y()] = child->property("text").toString();
                else
                    again(child, again);
            }
        };
        collect(menu()->property("contentItem").value<QQuickItem *>(), collect);
        QTest::keyClick(m_window, Qt::Key_Escape);
        const bool isClosed =
            QTest::qWaitFor([&] { return !menu()->property("visible").toBool(); }, 30000);
        return isClosed ? entries.values() : QStringList();
    }
};

QTEST_MAIN(MenuTest)
#include "MenuTest.moc"
