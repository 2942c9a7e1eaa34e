// SPDX-License-Identifier: GPL-3.0-or-later
#include "AccentColors.h"
#include "Appearance.h"
#include "QmlTypes.h"
#include "StateFixture.h"
#include "SystemAppearance.h"
#include "ThumbnailProvider.h"

#include <QQmlApplicationEngine>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Without a picture: one that cannot be had makes Qt warn.
VideoInfo video()
{
    VideoInfo info = StateFixture::video(u"a"_s);
    info.thumbnailURL = QString();
    return info;
}

} // namespace

/// The real window on a fake tool, driven by clicks and keys. One engine for all
/// tests, as in the program.
class WindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_fixture.state.reset();
        m_app = std::make_unique<QuillonApp>(m_fixture.parts());
        m_appearance = std::make_unique<Appearance>(*m_fixture.preferences, m_system);
        AppStateForQml::instance = &m_app->state();
        m_engine = std::make_unique<QQmlApplicationEngine>();
        m_engine->addImportPath(u"qrc:/qt/qml"_s);
        m_engine->addImageProvider(u"thumbnail"_s, new ThumbnailProvider);
        m_engine->setInitialProperties(
            {{u"app"_s, QVariant::fromValue(m_app.get())},
             {u"appearance"_s, QVariant::fromValue(m_appearance.get())}});
        m_engine->load(u"qrc:/qt/qml/Quillon/Main.qml"_s);
        m_window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().value(0));
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
    }

    void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

    void cleanup()
    {
        WAIT_FOR(!state().isDownloading() && !state().isFetching());
        state().singleURL = QString();
        state().singleInfo = AppState::Info();
        state().fetchError = AppState::Text();
        state().resetDownload();
        state().mode = AppMode::single;
        state().showSettings = false;
        m_fixture.tool.setScript("exit 0");
    }

    void cleanupTestCase()
    {
        m_engine.reset();
        m_app.reset();
    }

    void theContentHasItsMinimumBelowTheMenuBar()
    {
        QCOMPARE(m_window->minimumWidth(), 880);
        QVERIFY(m_window->minimumHeight() > 600);
        QCOMPARE(m_window->title(), u"Quillon"_s);
    }

    void anEmptyFieldDisablesTheButtonAndReturnDoesNothing()
    {
        focusField();
        QVERIFY(!item("submit")->isEnabled());
        QTest::keyClick(m_window, Qt::Key_Return);
        QVERIFY(!state().isFetching());
    }

    void typingFetchingAndDownloadingByMouse()
    {
        m_fixture.tool.setScript(R"(echo '{"id":"i","title":"T","duration":61}')");
        focusField();
        typeText("https://x/watch?v=i");
        QCOMPARE(state().singleURL(), u"https://x/watch?v=i"_s);
        QVERIFY(item("submit")->isEnabled());
        click("submit");
        WAIT_FOR(shown("videoTitle"));
        QCOMPARE(item("videoTitle")->property("text").toString(), u"T"_s);
        click("quality720p");
        QCOMPARE(state().selectedQuality().id, u"720p"_s);
        click("format1");
        QVERIFY(state().selectedFormat() == MediaFormat::mp3);
        WAIT_FOR(!shown("quality720p"));
        click("format0");
        m_fixture.tool.setScript("echo '[download]  42.5% of 1MiB at 2MiB/s ETA 00:42'\n"
                                 + m_fixture.tool.gate("a") + "echo '[Merger] x'\n"
                                 + m_fixture.tool.gate("b"));
        click("download");
        WAIT_FOR(shown("progressBar") && state().downloadProgress() > 0);
        QCOMPARE(item("percent")->property("text").toString(), u"42%"_s);
        QVERIFY(!item("download")->isEnabled());
        m_fixture.tool.open("a");
        WAIT_FOR(shown("processingBar") && !shown("progressBar"));
        m_fixture.tool.open("b");
        WAIT_FOR(shown("showInFinder"));
        QCOMPARE(item("statusChip")->property("text").toString(), u"Complete"_s);
        click("showInFinder");
        QCOMPARE(m_fixture.desktop.fileViewer->selected.last(), m_fixture.folder.path());
    }

    void pauseAndResumeByTheButton()
    {
        state().singleInfo = video();
        m_fixture.tool.setScript("echo '[Merger] x'\n" + m_fixture.tool.gate("c"));
        state().startSingleDownload();
        WAIT_FOR(shown("pause") && m_fixture.service->activeProcess());
        click("pause");
        WAIT_FOR(stateOf(m_fixture.tool.processIdentifiers().last()) == "T");
        QVERIFY(state().isPaused());
        click("pause");
        WAIT_FOR(stateOf(m_fixture.tool.processIdentifiers().last()) != "T");
        m_fixture.tool.open("c");
    }

    void aTitleWithMarkupIsShownAsItIs()
    {
        VideoInfo info = video();
        info.title = u"<b>bold</b> & more"_s;
        info.uploader = QString();
        info.duration.reset();
        state().singleInfo = info;
        WAIT_FOR(shown("videoTitle"));
        QCOMPARE(item("videoTitle")->property("textFormat").toInt(), int(Qt::PlainText));
    }

    void aPlaylistShowsItsTitle()
    {
        state().singleInfo = StateFixture::playlist({u"a"_s, u"b"_s});
        WAIT_FOR(shown("playlistTitle") && !shown("videoTitle"));
    }

    void theClearButtonIsThereWhileThereIsText()
    {
        focusField();
        WAIT_FOR(!shown("clearField"));
        typeText("abc");
        WAIT_FOR(shown("clearField"));
        click("clearField");
        QCOMPARE(state().singleURL(), QString());
        WAIT_FOR(!shown("clearField"));
    }

    void theMixedBarOffersItsChoice()
    {
        focusField();
        typeText("https://x/watch?v=a&list=b");
        WAIT_FOR(shown("fullPlaylist"));
        click("fullPlaylist");
        QVERIFY(state().fetchAsPlaylist());
        click("singleVideo");
        QVERIFY(!state().fetchAsPlaylist());
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
        m_fixture.tool.setScript(m_fixture.tool.gate("d"));
        state().startSingleDownload();
        click("settings");
        QVERIFY(state().showSettings() && state().isDownloading());
        click("settings");
        QVERIFY(!state().showSettings() && state().isDownloading());
        m_fixture.tool.open("d");
    }

    void theAppearanceButtonCyclesAndAnOddValueBecomesSystem()
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
        m_fixture.preferences->setString(u"quillon.colorScheme"_s, u"sepia"_s);
        QCOMPARE(m_appearance->themeIcon(), u"circle.lefthalf.filled"_s);
        QCOMPARE(m_appearance->isDark(), m_system.isDark());
        click("toggleTheme");
        QCOMPARE(m_appearance->colorSchemeRaw(), u"system"_s);
    }

    void everyTextOfTheThemeCanBeRead_data()
    {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }

    void everyTextOfTheThemeCanBeRead()
    {
        QFETCH(bool, dark);
        QQmlComponent component(m_engine.get());
        component.setData("import QtQml; import Quillon.Shared\n"
                          "QtObject { property QtObject theme: Theme }",
                          {});
        const std::unique_ptr<QObject> holder(component.create());
        QVERIFY2(holder, qPrintable(component.errorString()));
        auto *const theme = holder->property("theme").value<QObject *>();
        theme->setProperty("dark", dark);
        const auto color = [&](const char *name) { return theme->property(name).value<QColor>(); };
        const auto over = [](const QColor &top, const QColor &bottom, float opacity = 1) {
            const float alpha = top.alphaF() * opacity;
            const auto mix = [alpha](float a, float b) { return a * alpha + b * (1 - alpha); };
            return QColor::fromRgbF(mix(top.redF(), bottom.redF()),
                                    mix(top.greenF(), bottom.greenF()),
                                    mix(top.blueF(), bottom.blueF()));
        };
        const QColor white = color("overAccent");
        QVERIFY(contrastRatio(white, color("accentFill")) >= 4.5);
        for (const char *surfaceName : {"window", "card"}) {
            const QColor surface = color(surfaceName);
            for (const char *name : {"primary", "secondary", "accent", "red", "green", "orange"}) {
                const double contrast = contrastRatio(over(color(name), surface), surface);
                QVERIFY2(contrast >= 4.5,
                         qPrintable(
                             u"%1 on %2: %3"_s.arg(QLatin1String(name), QLatin1String(surfaceName))
                                 .arg(contrast)));
            }
            QVERIFY(contrastRatio(white, over(color("redFill"), surface, 0.88F)) >= 4.5);
            for (const char *name : {"accent", "red", "green", "orange"}) {
                const QColor chip = over(color(name), surface, 0.1F);
                QVERIFY2(contrastRatio(color(name), chip) >= 4.5, name);
            }
        }
        theme->setProperty("dark", m_appearance->isDark());
    }

    void anAddressThatIsNoneShowsThePhotoPlaceholder_data()
    {
        QTest::addColumn<QString>("url");
        QTest::newRow("no address") << u"not an address"_s;
        QTest::newRow("a file") << u"file:///etc/passwd"_s;
        QTest::newRow("nobody there") << u"http://127.0.0.1:1/a.png"_s;
    }

    void anAddressThatIsNoneShowsThePhotoPlaceholder()
    {
        QFETCH(QString, url);
        VideoInfo info = video();
        info.thumbnailURL = url;
        // That a picture cannot be had is nothing to warn of, but Qt does.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"QML QQuickImage"_s));
        state().singleInfo = info;
        WAIT_FOR(shown("videoThumbnail"));
        WAIT_FOR(item("videoThumbnail")->property("showsPlaceholder").toBool());
    }

    void tabReachesEveryControlInOrder()
    {
        state().singleInfo = video();
        WAIT_FOR(shown("download"));
        focusField();
        typeText("x");
        WAIT_FOR(shown("clearField"));
        QStringList reached;
        for (int step = 0; step < 20; ++step) {
            QTest::keyClick(m_window, Qt::Key_Tab);
            const QString name = m_window->activeFocusItem()->objectName();
            if (name == u"urlField")
                break;
            reached.append(name);
        }
        const QStringList expected{u"clearField"_s,   u"submit"_s,       u"format0"_s,
                                   u"format1"_s,      u"qualityBest"_s,  u"quality4K"_s,
                                   u"quality1440p"_s, u"quality1080p"_s, u"quality720p"_s,
                                   u"quality480p"_s,  u"quality360p"_s,  u"download"_s};
        QCOMPARE(reached.mid(0, expected.size()), expected);
    }

private:
    AppState &state() { return m_app->state(); }

    QQuickItem *item(const char *name)
    {
        return find(m_window->contentItem(), QLatin1String(name));
    }

    static QQuickItem *find(QQuickItem *parent, const QString &name)
    {
        const QList<QQuickItem *> children = parent->childItems();
        for (QQuickItem *const child : children) {
            if (child->objectName() == name)
                return child;
            if (QQuickItem *const found = find(child, name))
                return found;
        }
        return nullptr;
    }

    bool shown(const char *name)
    {
        const QQuickItem *const found = item(name);
        return found && found->isVisible();
    }

    void click(const char *name)
    {
        QQuickItem *const target = item(name);
        QVERIFY2(target, name);
        m_window->grabWindow(); // so that everything is in its place
        const QPointF centre = target->mapToScene({target->width() / 2, target->height() / 2});
        QTest::mouseClick(m_window, Qt::LeftButton, {}, centre.toPoint());
    }

    void focusField()
    {
        item("urlField")->forceActiveFocus();
        WAIT_FOR(m_window->activeFocusItem() == item("urlField"));
    }

    void typeText(const char *text)
    {
        for (const char *letter = text; *letter; ++letter)
            QTest::keyClick(m_window, *letter);
    }

    StateFixture m_fixture;
    SystemAppearance m_system;
    std::unique_ptr<QuillonApp> m_app;
    std::unique_ptr<Appearance> m_appearance;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

QTEST_MAIN(WindowTest)
#include "WindowTest.moc"
