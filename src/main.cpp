// SPDX-License-Identifier: GPL-3.0-or-later
#include "Appearance.h"
#include "MainWindow.h"
#include "MediaSession.h"
#include "Preferences.h"
#include "QuillonApp.h"
#include "SingleInstance.h"
#include "SystemAppearance.h"
#include "TerminationSignals.h"
#include "ThumbnailProvider.h"

#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <QThreadPool>

namespace {

// A desktop that names no font of its own gets one that is made for screens.
void chooseFont()
{
    QFont font = QGuiApplication::font();
    if (font.family().startsWith(u"Sans") || font.family().startsWith(u"DejaVu")) {
        font.setFamilies({QStringLiteral("Inter"), font.family()});
        QGuiApplication::setFont(font);
    }
}

// Reading the system's fonts is a good part of the start; it goes on beside the
// loading of the views.
void readFontsAhead()
{
    QThreadPool::globalInstance()->start([font = QGuiApplication::font()] {
        QFontMetricsF(font).horizontalAdvance(QGuiApplication::applicationDisplayName());
    });
}

// Drawing it in all the sizes that a desktop takes can wait until the window is seen.
void showIconAfterFirstFrame(const QQuickWindow &window)
{
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, qGuiApp,
        [] { QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillon.svg"))); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication::setApplicationName(QStringLiteral("quillon"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Quillon"));
    QGuiApplication::setDesktopFileName(QStringLiteral("quillon"));
    const QGuiApplication application(argc, argv);
    chooseFont();
    readFontsAhead();

    Preferences &preferences = Preferences::standard();
    SingleInstance instance(QFileInfo(preferences.path()).path());
    if (!instance.isFirst())
        return 0;

    const TerminationSignals terminationSignals;
    const SystemAppearance systemAppearance;
    Appearance appearance(preferences, systemAppearance);
    QuillonApp app;
    MediaControl mediaControl;
    SleepInhibitor sleepInhibitor;
    const MediaSession mediaSession(app.state(), mediaControl, sleepInhibitor);

    const MainWindow mainWindow(app, appearance, new ThumbnailProvider);
    if (!mainWindow.window()) {
        qCritical("Quillon's window could not be made; its files are incomplete.\n%s",
                  qUtf8Printable(mainWindow.errors()));
        return 1;
    }
    showIconAfterFirstFrame(*mainWindow.window());
    const auto come = [&mainWindow] { mainWindow.bringForward(); };
    QObject::connect(&instance, &SingleInstance::activationRequested, mainWindow.window(), come);
    QObject::connect(&mediaControl, &MediaControl::raiseRequested, mainWindow.window(), come);
    const int status = QGuiApplication::exec();
    instance.stopListening();
    return status;
}
