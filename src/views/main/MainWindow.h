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

/// How large the window opens on a screen that has so much room for it, in pixels that do
/// not depend on its density.
QSize openingSize(const QSize &available);

/// The one window, with the engine behind it, which takes the application's quit from
/// the screens. Main thread; the program and its appearance must outlive it.
class MainWindow
{
    Q_DISABLE_COPY_MOVE(MainWindow)

public:
    /// What the window shows beside the state, if it is there. Outlives the window.
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

    /// As it is, but for one that is minimized.
    void bringForward() const;

private:
    Presenters m_presenters;
    QQmlEngine m_engine;
    QQmlComponent m_component;
    std::unique_ptr<QObject> m_root;
};
