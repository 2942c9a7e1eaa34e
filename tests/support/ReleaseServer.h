// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

using namespace Qt::StringLiterals;

/// A server of releases, in this process, that does what a test says. It speaks plain
/// HTTP and closes each connection behind its answer.
class ReleaseServer : public QTcpServer
{
    Q_OBJECT

public:
    struct Answer
    {
        QByteArray body = {};
        int status = 200;
        QByteArray location = {}; ///< of a redirect
        qint64 told = -1;         ///< the length that is told; less than 0 for the true one
        bool isHeld = false;      ///< what is left of it never comes
        bool isEndless = false;   ///< no length is told, and it never stops
        bool isSilent = false;    ///< nothing comes at all
    };

    ReleaseServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { take(socket); });
        });
    }

    [[nodiscard]] QUrl url() const { return QUrl(u"http://127.0.0.1:%1/"_s.arg(serverPort())); }

    /// By the file's name. Answers that stand here one after another are given in turn;
    /// the last one stays.
    QMap<QString, QList<Answer>> answers;
    /// What was asked for, in order.
    QStringList requests;
    /// The first bytes of what was no request.
    QByteArray strange;

private:
    void take(QTcpSocket *socket)
    {
        const QByteArray head = socket->peek(4096);
        if (!head.startsWith("GET ")) {
            strange = socket->readAll();
            socket->abort();
            return;
        }
        if (!head.contains("\r\n\r\n"))
            return;
        socket->readAll();
        const QString path = QString::fromLatin1(head.split(' ')[1]);
        requests.append(path);
        QList<Answer> &those = answers[path.section(u'/', -1)];
        if (those.isEmpty())
            those.append({.body = "nothing", .status = 404});
        give(socket, those.size() > 1 ? those.takeFirst() : those.first());
    }

    static void give(QTcpSocket *socket, const Answer &answer)
    {
        if (answer.isSilent)
            return;
        if (answer.isEndless) {
            socket->write("HTTP/1.1 " + QByteArray::number(answer.status) + " So\r\n\r\n");
            const auto flood = [socket] {
                if (socket->bytesToWrite() < 1 << 20)
                    socket->write(QByteArray(1 << 18, 'x'));
            };
            connect(socket, &QTcpSocket::bytesWritten, socket, flood);
            flood();
            return;
        }
        const qint64 length = answer.told < 0 ? answer.body.size() : answer.told;
        QByteArray head = "HTTP/1.1 " + QByteArray::number(answer.status)
            + " So\r\nConnection: close\r\n" + "Content-Length: " + QByteArray::number(length)
            + "\r\n";
        if (!answer.location.isEmpty())
            head += "Location: " + answer.location + "\r\n";
        socket->write(head + "\r\n" + answer.body);
        if (!answer.isHeld)
            socket->disconnectFromHost();
    }
};
