// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Clip.h"
#include "MpvEngine.h"
#include "Patience.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

using namespace Qt::StringLiterals;

/// The real engine on streams of a server in this process.
class MpvFixture : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    void initTestCase()
    {
        qunsetenv("PULSE_SERVER");
        m_clip = madeClip(3);
        m_longClip = madeClip(8);
        QVERIFY(m_clip.size() > 10000);
        QVERIFY(m_server.listen(QHostAddress::LocalHost));
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *const socket = m_server.nextPendingConnection();
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
        });
    }

    void init()
    {
        m_pictures.clear();
        m_memory.clear();
        m_failures.clear();
        m_expiries.clear();
        m_ends = 0;
        m_status = {};
        m_statuses.clear();
        make();
    }
    void cleanup() { m_engine.reset(); }

protected:
    void make(const std::vector<MpvOption> &options = {})
    {
        QString error;
        m_engine = MpvEngine::create(
            {.statusChanged =
                 [this](const PlayerStatus &status) { m_statuses.append(m_status = status); },
             .pictureChanged =
                 [this](const QImage &picture, const QSize &proportions) {
                     m_memory.insert(picture.constBits());
                     m_pictures.append(picture.copy()); // or its memory is not used again
                     m_proportions = proportions;
                 },
             .ended = [this] { ++m_ends; },
             .failed = [this](const QString &message) { m_failures.append(message); },
             .expired = [this](const QString &message) { m_expiries.append(message); }},
            error, options);
        QVERIFY2(m_engine, qPrintable(error));
        m_engine->setWish({.size = {321, 181}});
    }

    void load(const QByteArray &path, double start = 0)
    {
        m_engine->load(
            QUrl(u"http://127.0.0.1:%1/"_s.arg(m_server.serverPort()) + QString::fromLatin1(path)),
            start);
    }

    void answer(QTcpSocket *socket)
    {
        const QByteArray request = socket->readAll();
        const QByteArray path = request.split(' ').value(1);
        m_requests.append(path);
        if (path == "/hang")
            return;
        if (path == "/missing")
            socket->write("HTTP/1.0 404 Not Found\r\nContent-Length: 0\r\n\r\n");
        else if (path == "/to-a-file")
            socket->write("HTTP/1.0 302 Found\r\nLocation: file:///etc/hostname\r\n\r\n");
        else if (path == "/text")
            send(socket, request, "Only words, and no stream at all.\n");
        else if (path == "/list.m3u")
            send(socket, request, "#EXTM3U\n#EXTINF:3,one\nclip.mp4\n");
        else if (path == "/empty")
            send(socket, request, "");
        else if (path == "/long.mp4")
            send(socket, request, m_longClip);
        else if (path == "/growing.ts")
            send(socket, request,
                 madeStream(u"testsrc=size=320x180:duration=1"_s)
                     + madeStream(u"color=red:size=8000x5100:rate=1:duration=1"_s));
        else if (path == "/huge.mp4")
            send(socket, request, madeClip(1, {8000, 5100}, u"mjpeg"_s, 1));
        else if (path == "/long-sound.mp4")
            send(socket, request, madeClip(1.4, {320, 180}, u"libx264"_s, 25, 2));
        else if (path == "/slides.mp4")
            send(socket, request, madeClip(3, {320, 180}, u"libx264"_s, 1));
        else if (path == "/short.mp4")
            socket->write(halfOf(m_clip));
        else if (path == "/half.mp4")
            socket->write(halfOf(m_longClip));
        else if (path == "/expiring.mp4" && m_requests.count(path) == 1)
            socket->write("HTTP/1.1 200 OK\r\nAccept-Ranges: bytes\r\nContent-Length: "
                          + QByteArray::number(m_longClip.size()) + "\r\n\r\n"
                          + m_longClip.left(m_longClip.size() / 2));
        else if (path == "/expiring.mp4")
            socket->write("HTTP/1.0 403 Forbidden\r\nContent-Length: 0\r\n\r\n");
        else if (path == "/stalling.mp4") {
            socket->write(halfOf(m_longClip));
            m_stalled = socket;
            return;
        } else
            send(socket, request, m_clip);
        socket->disconnectFromHost();
    }

    /// All that a server says that breaks off in the middle.
    static QByteArray halfOf(const QByteArray &clip)
    {
        return "HTTP/1.0 200 OK\r\nContent-Length: " + QByteArray::number(clip.size()) + "\r\n\r\n"
            + clip.left(clip.size() / 2);
    }

    static void send(QTcpSocket *socket, const QByteArray &request, const QByteArray &content)
    {
        const qsizetype header = request.indexOf("Range: bytes=");
        const qsizetype first =
            header < 0 ? 0 : request.mid(header + 13).split('-').first().toLongLong();
        const QByteArray size = QByteArray::number(content.size());
        socket->write("HTTP/1.1 206 Partial Content\r\nContent-Range: bytes "
                      + QByteArray::number(first) + "-" + QByteArray::number(content.size() - 1)
                      + "/" + size
                      + "\r\nContent-Length: " + QByteArray::number(content.size() - first)
                      + "\r\nConnection: close\r\n\r\n" + content.mid(first));
    }

    static bool isBlack(const QImage &picture)
    {
        for (int x = 0; x < picture.width(); x += 7) {
            if (qGray(picture.pixel(x, picture.height() / 2)) > 30)
                return false;
        }
        return true;
    }

    /// But for how colours are rounded.
    static bool areSimilar(const QImage &one, const QImage &other)
    {
        for (int x = 0; x < one.width(); x += 7) {
            const QColor here = one.pixelColor(x, one.height() / 3);
            const QColor there = other.pixelColor(x, other.height() / 3);
            if (std::abs(here.red() - there.red()) > 8 || std::abs(here.blue() - there.blue()) > 8)
                return false;
        }
        return one.size() == other.size();
    }

    std::unique_ptr<MpvEngine> m_engine;
    QTcpServer m_server;
    QByteArray m_clip;
    QByteArray m_longClip;
    QList<QByteArray> m_requests;
    QList<QImage> m_pictures;
    QSize m_proportions;
    QSet<const uchar *> m_memory;
    QList<PlayerStatus> m_statuses;
    QStringList m_failures;
    QStringList m_expiries;
    QPointer<QTcpSocket> m_stalled;
    PlayerStatus m_status;
    int m_ends = 0;
};
