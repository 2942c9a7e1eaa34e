// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerPlugin.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>

std::unique_ptr<PlayerEngine> loadPlayerPlugin(PlayerEngine::Events events, QString &error)
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString name = QStringLiteral("quillon-player.so");
    QString path = folder + u'/' + name;
    if (!QFile::exists(path))
        path = folder + QStringLiteral("/../lib/quillon/") + name;
    QLibrary library(path);
    using Make = PlayerEngine *(*)(PlayerEngine::Events &, QString &);
    const auto make = reinterpret_cast<Make>(library.resolve("makePlayerEngine"));
    if (!make) {
        error = QStringLiteral("The player cannot be loaded: ") + library.errorString();
        return nullptr;
    }
    return std::unique_ptr<PlayerEngine>(make(events, error));
}
