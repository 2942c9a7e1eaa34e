// SPDX-License-Identifier: GPL-3.0-or-later
#include "MainWindow.h"

#include "Appearance.h"
#include "NoticePresenter.h"
#include "QuillonApp.h"
#include "StartupSequence.h"
#include "ToolPresenter.h"

#include <QGuiApplication>
#include <QScreen>

using namespace Qt::StringLiterals;

QSize openingSize(const QSize &available)
{
    constexpr QSize standard(960, 720);
    constexpr QSize smallest(880, 600);
    constexpr QSize frame(0, 40); // about what window managers draw around it
    return standard.boundedTo(available - frame).expandedTo(smallest);
}

MainWindow::MainWindow(QuillonApp &app, Appearance &appearance, QQmlImageProviderBase *thumbnails,
                       Extras extras)
    : m_app(app)
    , m_presenters(app.state())
    , m_component(&m_engine)
{
    m_presenters.offerTo(m_engine);
    m_engine.addImportPath(u"qrc:/qt/qml"_s);
    m_engine.addImageProvider(u"thumbnail"_s, thumbnails);
    QObject::connect(&m_engine, &QQmlEngine::quit, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    m_component.loadUrl(u"qrc:/qt/qml/Quillon/Main.qml"_s);
    const QSize size = openingSize(QGuiApplication::primaryScreen()->availableSize());
    m_root.reset(m_component.createWithInitialProperties(
        {{u"width"_s, size.width()},
         {u"height"_s, size.height()},
         {u"app"_s, QVariant::fromValue(&app)},
         {u"appearance"_s, QVariant::fromValue(&appearance)},
         {u"notices"_s, QVariant::fromValue(extras.notices)},
         {u"tool"_s, QVariant::fromValue(extras.tool)}}));
    // Lets incubation happen between frames.
    if (window())
        m_engine.setIncubationController(window()->incubationController());
}

MainWindow::~MainWindow()
{
    // What QML still holds must not outlive the engine: a component that is being loaded
    // would reach for its loader.
    m_root.reset();
    m_engine.collectGarbage();
}

QQuickWindow *MainWindow::window() const
{
    return qobject_cast<QQuickWindow *>(m_root.get());
}

void MainWindow::bringForward(const QString &token) const
{
    // Where Qt's plug-in for Wayland looks for it.
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    // show() would also undo that it is maximized.
    if (window()->windowStates() & Qt::WindowMinimized)
        window()->setWindowStates(window()->windowStates() & ~Qt::WindowMinimized);
    window()->raise();
    completeStartup(*window(), token);
    window()->requestActivate();
    qunsetenv("XDG_ACTIVATION_TOKEN"); // no program that is started from here shall have it
    // Window managers may refuse, for example for a window on another workspace.
    if (!window()->isActive())
        window()->alert(0);
}

void MainWindow::act(const QString &name)
{
    if (name == u"browse") {
        m_app.state().mode = AppMode::browse;
    } else if (name == u"paste-and-fetch") {
        // Compositors give the clipboard to the active window alone.
        if (window()->isActive()) {
            pasteAndFetch();
        } else {
            QObject::connect(
                window(), &QWindow::activeChanged, window(), [this] { pasteAndFetch(); },
                Qt::SingleShotConnection);
        }
    }
}

void MainWindow::pasteAndFetch()
{
    m_app.state().mode = AppMode::single;
    m_presenters.urlInput()->pasteAndSubmit();
}
