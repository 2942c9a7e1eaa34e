// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerPlugin.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>

using namespace Qt::StringLiterals;

std::unique_ptr<PlayerEngine> loadPlayerPlugin(PlayerEngine::Events events, QString &error)
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString name = u"quillon-player.so"_s;
    QString path = folder + u'/' + name;
    if (!QFile::exists(path))
        path = folder + u"/../lib/quillon/"_s + name;
    QLibrary library(path);
    using Make = PlayerEngine *(*)(PlayerEngine::Events &, QString &);
    const auto make = reinterpret_cast<Make>(library.resolve("makePlayerEngine"));
    if (!make) {
        error = u"The player cannot be loaded: "_s + library.errorString();
        return nullptr;
    }
    return std::unique_ptr<PlayerEngine>(make(events, error));
}
