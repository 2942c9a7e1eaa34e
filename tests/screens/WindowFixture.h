// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Appearance.h"
#include "QmlTypes.h"
#include "StateFixture.h"
#include "SystemAppearance.h"
#include "ThumbnailProvider.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

using namespace Qt::StringLiterals;

/// The real window on a fake tool, driven by clicks and keys. One engine for all
/// tests of a program, as in the real one.
class WindowFixture : public QObject
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
        // What leaves has left.
        WAIT_FOR(!item("download"));
    }

    void cleanupTestCase()
    {
        m_engine.reset();
        m_app.reset();
    }

protected:
    /// Without a picture: one that cannot be had makes Qt warn.
    static VideoInfo video()
    {
        VideoInfo info = StateFixture::video(u"a"_s);
        info.thumbnailURL = QString();
        return info;
    }

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
