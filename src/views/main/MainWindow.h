// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Presenters.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include <memory>

class Appearance;
class NoticePresenter;
class QQmlImageProviderBase;
class QuillonApp;
class ToolPresenter;

/// The window's size for a screen with this much room, in device-independent pixels.
QSize openingSize(const QSize &available);

/// The main window and its engine, with the application's quit under its control. Main
/// thread; the program and its appearance must outlive it.
class MainWindow
{
    Q_DISABLE_COPY_MOVE(MainWindow)

public:
    /// What the window shows besides the state, where there is any. Outlives the window.
    struct Extras
    {
        NoticePresenter *notices = nullptr;
        ToolPresenter *tool = nullptr;
    };

    /// The thumbnails become the engine's.
    MainWindow(QuillonApp &app, Appearance &appearance, QQmlImageProviderBase *thumbnails,
               Extras extras);
    ~MainWindow();

    /// Null if the program's files are incomplete; errors() says what is missing.
    [[nodiscard]] QQuickWindow *window() const;
    [[nodiscard]] QString errors() const { return m_component.errorString(); }
    [[nodiscard]] QQmlEngine &engine() { return m_engine; }

    /// Brings it to the front, restoring it if it is minimized. A token of the desktop makes
    /// sure that it may come.
    void bringForward(const QString &token = {}) const;

    /// Does what the program's icon offers; unknown names do nothing.
    void act(const QString &name);

private:
    void pasteAndFetch();

    QuillonApp &m_app;
    Presenters m_presenters;
    QQmlEngine m_engine;
    QQmlComponent m_component;
    std::unique_ptr<QObject> m_root;
};
