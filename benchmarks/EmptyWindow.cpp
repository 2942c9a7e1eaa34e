// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick.Controls.Basic\n"
                    "ApplicationWindow { visible: true; width: 960; height: 720 }");
    return QGuiApplication::exec();
}
