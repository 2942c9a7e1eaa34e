// SPDX-License-Identifier: GPL-3.0-or-later
#include "Program.h"

#include "Appearance.h"
#include "ApplicationId.h"
#include "ApplicationService.h"
#include "BusProbe.h"
#include "CommandLine.h"
#include "DownloadActivity.h"
#include "FailureNotice.h"
#include "InterruptedNotice.h"
#include "LauncherEntry.h"
#include "MainWindow.h"
#include "MediaSession.h"
#include "NoticePresenter.h"
#include "Preferences.h"
#include "QuillonApp.h"
#include "SeveralURLsNotice.h"
#include "SingleInstance.h"
#include "SystemAppearance.h"
#include "TerminationSignals.h"
#include "ThumbnailProvider.h"
#include "ToolKeeper.h"
#include "ToolNotice.h"
#include "ToolPresenter.h"
#include "UndoNotice.h"

#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <QThreadPool>
#include <QTimer>

#include <cstdio>

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds restAfterFirstFrame{500};
constexpr std::chrono::seconds busPatience{2};

// The C library gives every thread a heap of its own and returns none of it: in half an
// hour of work that added up to 160 MB (docs/reliability.md). Too little is allocated at
// a time for threads to wait for one shared heap.
void shareOneHeap()
{
#ifdef M_ARENA_MAX
    mallopt(M_ARENA_MAX, 1);
#endif
}

// A desktop that names no font of its own gets one made for screens.
void chooseFont()
{
    QFont font = QGuiApplication::font();
    if (font.family().startsWith(u"Sans") || font.family().startsWith(u"DejaVu")) {
        font.setFamilies({u"Inter"_s, font.family()});
        QGuiApplication::setFont(font);
    }
}

// Reading the system's fonts takes a good part of the start, so it runs while the views
// load.
void readFontsAhead()
{
    QThreadPool::globalInstance()->start([font = QGuiApplication::font()] {
        QFontMetricsF(font).horizontalAdvance(QGuiApplication::applicationDisplayName());
    });
}

// What can wait until the window is visible.
template<typename Action>
void afterFirstFrame(const QQuickWindow &window, QObject &context, Action action)
{
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &context, std::move(action),
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

// In every size that desktops ask for.
void drawIcon()
{
    QGuiApplication::setWindowIcon(QIcon(u":/icons/quillon.svg"_s));
}

// A bus that hangs would keep the window from opening.
void avoidHungBus()
{
    if (sessionBusAnswers(busPatience))
        return;
    std::fputs("The session's message bus does not answer; going on without it.\n", stderr);
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

/// The token that lets the program which was started show a window.
QString activationToken()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

/// Does what the desktop asks for while the program runs.
void obey(const ApplicationService &service, QuillonApp &app, MainWindow &mainWindow)
{
    QObject::connect(&service, &ApplicationService::activated, mainWindow.window(),
                     [&](const QString &token) { mainWindow.bringForward(token); });
    QObject::connect(&service, &ApplicationService::openRequested, mainWindow.window(),
                     [&](const QStringList &urls, const QString &token) {
                         app.open(urls);
                         mainWindow.bringForward(token);
                     });
    QObject::connect(&service, &ApplicationService::actionRequested, mainWindow.window(),
                     [&](const QString &name, const QString &token) {
                         mainWindow.bringForward(token);
                         mainWindow.act(name);
                     });
}

} // namespace

int runProgram(int argc, char *argv[], const ProgramSetup &setup)
{
    shareOneHeap();
    avoidHungBus();
    const QString token = activationToken();           // before Qt takes it
    QGuiApplication::setApplicationName(u"quillon"_s); // which screen readers speak
    qputenv("RESOURCE_NAME", applicationId.toUtf8());  // of the window's class, under X11
    QGuiApplication::setApplicationDisplayName(u"Quillon"_s);
    QGuiApplication::setDesktopFileName(applicationId);
    QGuiApplication application(argc, argv);
    const CommandLine line = parseCommandLine(QGuiApplication::arguments().mid(1));
    if (!line.error.isEmpty()) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(line.error));
        return 2;
    }
    chooseFont();

    // Before the preferences are read: an instance that is about to end may still write
    // them.
    SingleInstance instance(QFileInfo(Preferences::standardPath()).path());
    switch (instance.settle(line.urls, token)) {
    case SingleInstance::Start::first:
        break;
    case SingleInstance::Start::handedOver:
        return 0;
    case SingleInstance::Start::refused:
        std::fputs("Quillon is running already, and does not answer.\n", stderr);
        return 1;
    }
    ApplicationService service;
    readFontsAhead(); // not in an instance that ends at once: its fonts would be gone before this
                      // is done
    Preferences &preferences = Preferences::standard();

    const TerminationSignals terminationSignals;
    const SystemAppearance systemAppearance;
    Appearance appearance(preferences, systemAppearance);
    QuillonApp app(AppStateParts::standard());
    MediaControl mediaControl;
    Inhibitor screen(screenServices());
    const MediaSession mediaSession(app.state(), mediaControl, screen);
    LauncherEntry launcherEntry;
    Inhibitor suspend(suspendServices());
    const DownloadActivity downloadActivity(app.state(), launcherEntry, suspend);

    ToolKeeper::Parts toolParts = ToolKeeper::Parts::standard();
    toolParts.source = setup.releases;
    ToolKeeper toolKeeper(app.state(), preferences, toolParts);
    ToolPresenter toolPresenter(toolKeeper);
    ToolNotice toolNotice(toolKeeper);
    FailureNotice failureNotice(app.state(), toolKeeper.retry());
    SeveralURLsNotice severalURLsNotice(app.state());
    InterruptedNotice interruptedNotice(app.state());
    UndoNotice undoNotice(app.state());
    NoticePresenter notices(
        {&undoNotice, &toolNotice, &failureNotice, &severalURLsNotice, &interruptedNotice});

    MainWindow mainWindow(app, appearance, new ThumbnailProvider(setup.pictures),
                          {.notices = &notices, .tool = &toolPresenter});
    qunsetenv("RESOURCE_NAME"); // no program that is started from here shall have it
    if (!mainWindow.window()) {
        qCritical("Quillon's window could not be made; its files are incomplete.\n%s",
                  qUtf8Printable(mainWindow.errors()));
        return 1;
    }
    afterFirstFrame(*mainWindow.window(), application, drawIcon);
    // The first look at the tool keeps a core busy for a moment, so it waits until the
    // window is idle.
    afterFirstFrame(*mainWindow.window(), toolKeeper, [&toolKeeper] {
        QTimer::singleShot(restAfterFirstFrame, &toolKeeper, &ToolKeeper::begin);
    });
    obey(service, app, mainWindow);
    QObject::connect(&mediaControl, &MediaControl::raiseRequested, mainWindow.window(),
                     [&] { mainWindow.bringForward(); });
    app.open(line.urls);
    const int status = QGuiApplication::exec();
    service.close();
    return status;
}
