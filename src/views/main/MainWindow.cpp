// SPDX-License-Identifier: GPL-3.0-or-later
#include "MainWindow.h"

#include "Appearance.h"
#include "QmlTypes.h"

#include <QGuiApplication>
#include <QScreen>

QSize openingSize(const QSize &available)
{
    constexpr QSize standard(960, 720);
    constexpr QSize smallest(880, 600);
    constexpr QSize frame(0, 40); // about what window managers draw around it
    return standard.boundedTo(available - frame).expandedTo(smallest);
}

MainWindow::MainWindow(QuillonApp &app, Appearance &appearance, QQmlImageProviderBase *thumbnails,
                       Extras extras)
    : m_component(&m_engine)
{
    AppStateForQml::instance = &app.state();
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine.addImageProvider(QStringLiteral("thumbnail"), thumbnails);
    QObject::connect(&m_engine, &QQmlEngine::quit, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    m_component.loadUrl(QStringLiteral("qrc:/qt/qml/Quillon/Main.qml"));
    const QSize size = openingSize(QGuiApplication::primaryScreen()->availableSize());
    m_root.reset(m_component.createWithInitialProperties(
        {{QStringLiteral("width"), size.width()},
         {QStringLiteral("height"), size.height()},
         {QStringLiteral("app"), QVariant::fromValue(&app)},
         {QStringLiteral("appearance"), QVariant::fromValue(&appearance)},
         {QStringLiteral("notices"), QVariant::fromValue(extras.notices)},
         {QStringLiteral("tool"), QVariant::fromValue(extras.tool)}}));
    // So that what is made ahead is made between frames.
    if (window())
        m_engine.setIncubationController(window()->incubationController());
}

MainWindow::~MainWindow() = default;

QQuickWindow *MainWindow::window() const
{
    return qobject_cast<QQuickWindow *>(m_root.get());
}

void MainWindow::bringForward() const
{
    // show() would also undo that it is maximized.
    if (window()->windowStates() & Qt::WindowMinimized)
        window()->setWindowStates(window()->windowStates() & ~Qt::WindowMinimized);
    window()->raise();
    window()->requestActivate();
    // Window managers may refuse it, for one on another workspace say.
    if (!window()->isActive())
        window()->alert(0);
}
