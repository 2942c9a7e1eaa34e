// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFont>
#include <QGuiApplication>
#include <QQmlApplicationEngine>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    QFont font = QGuiApplication::font();
    font.setFamilies({u"Inter"_s, font.family()}); // as the program does
    QGuiApplication::setFont(font);
    QQmlApplicationEngine engine;
    engine.loadData("import QtQuick.Controls.Basic\n"
                    "ApplicationWindow {\n"
                    "    visible: true; width: 960; height: 720\n"
                    "    Label { anchors.centerIn: parent; text: \"A line of text\" }\n"
                    "}");
    return QGuiApplication::exec();
}
