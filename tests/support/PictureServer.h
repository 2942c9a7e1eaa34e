// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PictureSource.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

using namespace Qt::StringLiterals;

/// Says the same to everyone who asks, and counts them. Whoever is told more than
/// goes through the line gets it bit by bit.
class PictureServer : public QTcpServer
{
public:
    PictureServer()
    {
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                if (!socket->readAll().contains("\r\n\r\n"))
                    return;
                ++asked;
                socket->write(answer);
                if (!next.isEmpty())
                    answer = std::exchange(next, {});
                if (closes)
                    socket->disconnectFromHost();
                else if (floods)
                    flood(socket);
                else if (drips)
                    drip(socket);
            });
            connect(socket, &QTcpSocket::bytesWritten, this, [this, socket] {
                if (floods)
                    flood(socket);
            });
            connect(socket, &QTcpSocket::disconnected, this, [this] { ++left; });
        });
        listen(QHostAddress::LocalHost);
    }

    static void drip(QTcpSocket *socket)
    {
        auto *const timer = new QTimer(socket);
        connect(timer, &QTimer::timeout, socket, [socket] { socket->write("x"); });
        timer->start(20);
    }

    void flood(QTcpSocket *socket)
    {
        while (sent < 200 << 20 && socket->bytesToWrite() < 1 << 20) {
            socket->write(QByteArray(1 << 16, 'x'));
            sent += 1 << 16;
        }
    }

    void serve(const QByteArray &body, const QByteArray &type = "image/png")
    {
        answer = "HTTP/1.1 200 OK\r\nContent-Type: " + type
            + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
    }

    /// Lets pictures come from here.
    [[nodiscard]] PictureSource source(
        std::chrono::milliseconds patience = std::chrono::seconds(30)) const
    {
        return {.patience = patience, .exception = u"127.0.0.1:%1"_s.arg(serverPort())};
    }

    [[nodiscard]] QString url(const QString &path = u"a.png"_s) const
    {
        return u"http://127.0.0.1:%1/%2"_s.arg(serverPort()).arg(path);
    }

    QByteArray answer;
    QByteArray next; ///< is said from the second time on, if there is any
    bool closes = false;
    bool floods = false;
    bool drips = false;
    qint64 sent = 0;
    int asked = 0;
    int left = 0;
};
