// SPDX-License-Identifier: GPL-3.0-or-later
#include "Appearance.h"
#include "MediaSession.h"
#include "Preferences.h"
#include "QmlTypes.h"
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
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QThreadPool>

#include <memory>

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

void bringForward(QQuickWindow &window)
{
    window.show();
    window.raise();
    window.requestActivate();
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication::setApplicationName(QStringLiteral("quillon"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Quillon"));
    QGuiApplication::setDesktopFileName(QStringLiteral("quillon"));
    const QGuiApplication application(argc, argv);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillon.svg")));
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
    AppStateForQml::instance = &app.state();
    MediaControl mediaControl;
    SleepInhibitor sleepInhibitor;
    const MediaSession mediaSession(app.state(), mediaControl, sleepInhibitor);

    QQmlEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("thumbnail"), new ThumbnailProvider);
    QObject::connect(&engine, &QQmlEngine::quit, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    QQmlComponent component(&engine, QStringLiteral("qrc:/qt/qml/Quillon/Main.qml"));
    const std::unique_ptr<QObject> root(component.createWithInitialProperties(
        {{QStringLiteral("app"), QVariant::fromValue(&app)},
         {QStringLiteral("appearance"), QVariant::fromValue(&appearance)}}));
    auto *const window = qobject_cast<QQuickWindow *>(root.get());
    if (!window) {
        qCritical("Quillon's window could not be made; its files are incomplete.\n%s",
                  qUtf8Printable(component.errorString()));
        return 1;
    }
    const auto come = [window] { bringForward(*window); };
    QObject::connect(&instance, &SingleInstance::activationRequested, window, come);
    QObject::connect(&mediaControl, &MediaControl::raiseRequested, window, come);
    const int status = QGuiApplication::exec();
    instance.stopListening();
    return status;
}
