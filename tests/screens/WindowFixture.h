// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Appearance.h"
#include "MainWindow.h"
#include "QuillonApp.h"
#include "StateFixture.h"
#include "SystemAppearance.h"
#include "ThumbnailProvider.h"

#include <QAccessible>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

/// The real window on a fake tool, driven by clicks and keys. A new one for each test.
class WindowFixture : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_fixture = std::make_unique<StateFixture>();
        m_fixture->state.reset(); // the program makes its own
        prepare(m_fixture->desktop);
        m_app = std::make_unique<QuillonApp>(m_fixture->parts());
        m_appearance = std::make_unique<Appearance>(*m_fixture->preferences, m_system);
        m_main = std::make_unique<MainWindow>(*m_app, *m_appearance, makeThumbnails(), extras());
        m_window = m_main->window();
        m_window->resize(960, 720); // also on a screen that is smaller
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
    }

    void cleanup()
    {
        m_main.reset();
        m_appearance.reset();
        m_app.reset();
        m_fixture.reset();
    }

protected:
    virtual void prepare(RecordingDesktop & /*desktop*/) { }
    virtual QQmlImageProviderBase *makeThumbnails() { return new ThumbnailProvider; }
    virtual MainWindow::Extras extras() { return {}; }

    /// Without a picture: one that cannot be had makes Qt warn.
    static VideoInfo video()
    {
        VideoInfo info = StateFixture::video(u"a"_s);
        info.thumbnailURL = QString();
        return info;
    }

    /// Entries "0", "1" ..., without pictures.
    static VideoInfo playlist(int count)
    {
        VideoInfo info;
        info.isPlaylist = true;
        info.title = u"Playlist (%1 videos)"_s.arg(count);
        for (int number = 0; number < count; ++number) {
            info.playlistEntries.append(StateFixture::video(QString::number(number)));
            info.playlistEntries.last().thumbnailURL = QString();
        }
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

    /// The button that is shown and reads so.
    static QQuickItem *withText(QQuickItem *parent, const QString &text)
    {
        const QList<QQuickItem *> children = parent->childItems();
        for (QQuickItem *const child : children) {
            if (child->isVisible() && child->inherits("QQuickAbstractButton")
                && child->property("text").toString() == text)
                return child;
            if (QQuickItem *const found = withText(child, text))
                return found;
        }
        return nullptr;
    }

    bool shown(const char *name)
    {
        const QQuickItem *const found = item(name);
        return found && found->isVisible();
    }

    /// Whether what enters with an animation is in its place.
    static bool hasEntered(const QQuickItem *place)
    {
        while (!place->property("presence").isValid())
            place = place->parentItem();
        return place->property("presence").toDouble() == 1;
    }

    /// All of its entries are chosen, as after a fetch.
    [[nodiscard]] bool showPlaylist(const VideoInfo &info)
    {
        AppState::EntrySelection all;
        for (const VideoInfo &entry : info.playlistEntries)
            all.insert(entry.id);
        state().selectedPlaylistItems = all;
        state().singleInfo = info;
        return waitFor([&] {
            return shown("playlistCount") && (info.playlistEntries.isEmpty() || shown("card0"))
                && shown("download");
        });
    }

    /// A single download that goes no further than 42 percent.
    [[nodiscard]] bool startSingle()
    {
        m_fixture->tool.respond("print [download]  42.0% of 1MiB at 2MiB/s ETA 00:42\n"
                                "wait go");
        state().singleInfo = video();
        if (!waitFor([&] { return shown("download"); }))
            return false;
        click("download");
        return waitFor([&] { return state().downloadProgress() > 0.4; });
    }

    static SearchResult result(int number)
    {
        SearchResult result = StateFixture::searchResult(QString::number(number));
        result.uploader = u"Harbour"_s;
        result.duration = 61;
        return result;
    }

    /// What a screen reader knows of it.
    QAccessibleInterface *accessible(const char *name)
    {
        return QAccessible::queryAccessibleInterface(item(name));
    }

    QString textOf(const char *name) { return item(name)->property("text").toString(); }

    /// How many items there are whose names begin so and go on with a number.
    int numbered(const char *place, const QString &name)
    {
        return countIn(item(place), QRegularExpression(u'^' + name + u"\\d+$"_s));
    }

    static int countIn(const QQuickItem *parent, const QRegularExpression &pattern)
    {
        int count = 0;
        const QList<QQuickItem *> children = parent->childItems();
        for (const QQuickItem *const child : children)
            count +=
                countIn(child, pattern) + (pattern.match(child->objectName()).hasMatch() ? 1 : 0);
        return count;
    }

    /// Where an item begins, from the window's top.
    double sceneY(const char *name) { return item(name)->mapToScene({0, 0}).y(); }

    /// Turns the wheel over the middle of the page, by notches towards its end.
    void turnWheel(int notches)
    {
        const QPointF place(m_window->width() / 2.0, m_window->height() - 60.0);
        QWheelEvent event(place, m_window->mapToGlobal(place), {}, {0, -120 * notches},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        event.setTimestamp(static_cast<quint64>(QDateTime::currentMSecsSinceEpoch()));
        QCoreApplication::sendEvent(m_window, &event);
    }

    /// One event of a touchpad, a frame after the one before.
    void turnTouchpad(Qt::ScrollPhase phase, int pixels)
    {
        const QPointF place(m_window->width() / 2.0, m_window->height() - 60.0);
        QWheelEvent event(place, m_window->mapToGlobal(place), {0, -pixels}, {0, -pixels},
                          Qt::NoButton, Qt::NoModifier, phase, false,
                          Qt::MouseEventSynthesizedBySystem);
        event.setTimestamp(m_touchpadTime += 16);
        QCoreApplication::sendEvent(m_window, &event);
    }

    void click(const char *name)
    {
        QQuickItem *const target = item(name);
        QVERIFY2(target, name);
        click(target);
    }

    void click(QQuickItem *target)
    {
        m_window->grabWindow(); // so that everything is in its place
        if (target->mapToScene({0, target->height()}).y() > m_window->height()) {
            target->forceActiveFocus(Qt::OtherFocusReason); // the page follows
            m_window->grabWindow();
        }
        const QPointF centre = target->mapToScene({target->width() / 2, target->height() / 2});
        QTest::mouseClick(m_window, Qt::LeftButton, {}, centre.toPoint());
    }

    /// Lets the pointer rest there.
    void hover(const QQuickItem *target)
    {
        m_window->grabWindow(); // so that everything is in its place
        const QPointF centre = target->mapToScene({target->width() / 2, target->height() / 2});
        QTest::mouseMove(m_window, {1, m_window->height() - 1});
        QTest::mouseMove(m_window, centre.toPoint());
    }

    /// What the open tooltip says; empty without one.
    QString tip()
    {
        const QObject *const open = tipIn(m_window->contentItem());
        return open ? open->property("text").toString() : QString();
    }

    /// Rows are nobody's children but their view's.
    static const QObject *tipIn(const QQuickItem *parent)
    {
        const auto *const tip = parent->findChild<QObject *>(u"tip"_s, Qt::FindDirectChildrenOnly);
        if (tip && tip->property("opened").toBool())
            return tip;
        const QList<QQuickItem *> children = parent->childItems();
        for (const QQuickItem *const child : children) {
            if (const QObject *const found = tipIn(child))
                return found;
        }
        return nullptr;
    }

    /// As Tab does, so that a ring is shown.
    [[nodiscard]] bool focusByTab(const char *name)
    {
        item(name)->forceActiveFocus(Qt::TabFocusReason);
        return waitFor([&] { return m_window->activeFocusItem() && focusIsIn(item(name)); });
    }

    bool focusIsIn(const QQuickItem *place) const
    {
        const QQuickItem *each = m_window->activeFocusItem();
        while (each && each != place)
            each = each->parentItem();
        return each;
    }

    [[nodiscard]] bool focusField()
    {
        item("urlField")->forceActiveFocus();
        return waitFor([&] { return m_window->activeFocusItem() == item("urlField"); });
    }

    void press(int key) { QTest::keyClick(m_window, Qt::Key(key)); }

    void typeText(const char *text)
    {
        for (const char *letter = text; *letter; ++letter)
            QTest::keyClick(m_window, *letter);
    }

    std::unique_ptr<StateFixture> m_fixture;
    SystemAppearance m_system;
    std::unique_ptr<QuillonApp> m_app;
    std::unique_ptr<Appearance> m_appearance;
    std::unique_ptr<MainWindow> m_main;
    QQuickWindow *m_window = nullptr;
    quint64 m_touchpadTime = static_cast<quint64>(QDateTime::currentMSecsSinceEpoch());
};
