// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Appearance.h"
#include "MainWindow.h"
#include "Preferences.h"
#include "QuillonApp.h"
#include "StandIns.h"
#include "SystemAppearance.h"
#include "ThumbnailProvider.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;

inline double milliseconds(qint64 nanoseconds)
{
    return static_cast<double>(nanoseconds) / 1e6;
}

inline qint64 wallClock()
{
    return std::chrono::nanoseconds(std::chrono::system_clock::now().time_since_epoch()).count();
}

/// The value below which this part of the sample lies.
inline double quantile(QList<double> sample, double part)
{
    std::sort(sample.begin(), sample.end());
    const auto last = static_cast<double>(sample.size() - 1);
    return sample[static_cast<qsizetype>(part * last + 0.5)];
}

inline double median(const QList<double> &sample)
{
    return quantile(sample, 0.5);
}

template<typename Condition>
void waitFor(Condition condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

inline void waitMilliseconds(int time)
{
    bool isOver = false;
    QTimer::singleShot(time, [&] { isOver = true; });
    waitFor([&] { return isOver; });
}

/// Beats each millisecond and knows the longest time between two beats.
class Heartbeat
{
public:
    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_longest = std::max(m_longest, m_clock.nsecsElapsed()), m_clock.start();
        });
        m_timer.start(1);
        m_clock.start();
    }

    double longest() const { return milliseconds(m_longest); }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_longest = 0;
};

/// The real window, on a tool that prints what stands in a file.
class BenchWindow
{
    Q_DISABLE_COPY_MOVE(BenchWindow)

public:
    /// Without a tool of its own it runs the real one; without an engine it plays
    /// nothing.
    explicit BenchWindow(bool hasRealTool = false, const PlayerEngineFactory &engine = {})
        : m_service(hasRealTool ? YTDLPService::standardSearchPaths()
                                : QStringList{m_folder.filePath(u"yt-dlp"_s)})
    {
        m_desktop.realEngine = engine;
        m_desktop.folders->paths = {m_folder.path()};
        letToolPrint(QString());
        m_app.emplace(AppStateParts{.service = &m_service,
                                    .preferences = &m_preferences,
                                    .platform = m_desktop.services()});
        m_main.emplace(*m_app, m_appearance, new ThumbnailProvider(siteOfTheDesktop()),
                       MainWindow::Extras());
        m_window = m_main->window();
        QObject::connect(m_window, &QQuickWindow::frameSwapped, m_window,
                         [this] { m_lastFrame = wallClock(), ++m_frames; });
        waitFor([this] { return m_frames > 0; });
    }

protected:
    /// Where run.py's video site is, which may be asked for pictures although it is local.
    static PictureSource siteOfTheDesktop()
    {
        QFile file(QDir::homePath() + u"/.config/quillon-site"_s);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QUrl site(QString::fromUtf8(file.readAll().trimmed()));
        return {.exception = site.authority()};
    }

    AppState &state() { return m_app->state(); }

    void letToolPrint(const QString &file)
    {
        QFile script(m_folder.filePath(u"yt-dlp"_s));
        if (!script.open(QIODevice::WriteOnly))
            qFatal("No script");
        script.write("#!/bin/sh\ncat '" + file.toUtf8() + "'\ndate +%s%N > '"
                     + m_folder.filePath(u"end"_s).toUtf8() + "'\n");
        script.setPermissions(script.permissions() | QFile::ExeOwner);
    }

    static int lines(const QString &file)
    {
        QFile content(file);
        return content.open(QIODevice::ReadOnly) ? int(content.readAll().count('\n')) : 0;
    }

    void waitForFrame()
    {
        const int before = m_frames;
        m_window->update();
        waitFor([&] { return m_frames > before; });
    }

    QQuickItem *find(const QString &name) { return find(m_window->contentItem(), name); }

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

    /// Of the items whose names are this and a number below a limit.
    int liveItems(const QString &name, int limit)
    {
        int count = 0;
        for (int number = 0; number < limit; ++number)
            count += find(name + QString::number(number)) ? 1 : 0;
        return count;
    }

    QTemporaryDir m_folder;
    RecordingDesktop m_desktop;
    YTDLPService m_service;
    Preferences m_preferences{m_folder.filePath(u"preferences.json"_s)};
    SystemAppearance m_system;
    Appearance m_appearance{m_preferences, m_system};
    std::optional<QuillonApp> m_app;
    std::optional<MainWindow> m_main;
    QQuickWindow *m_window = nullptr;
    qint64 m_lastFrame = 0;
    int m_frames = 0;
};
