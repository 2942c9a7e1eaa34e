// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QNetworkReply>
#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

class QNetworkAccessManager;

/// One file from the network, within bounds: redirects only to https, a body of limited
/// length, and an end to long silences. Ends with this object. Everything on the thread
/// that makes it.
class Download : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        qint64 mostBytes;
        std::chrono::milliseconds longestSilence;
    };
    struct Handlers
    {
        /// A piece of the file, and the part that has arrived so far, from 0 to 1, or
        /// below 0 while that is unknown. Returns why it cannot be accepted, or nothing.
        std::function<QString(const QByteArray &bytes, double part)> onBytes;
        /// Called once, with a sentence's second half if it failed, else with nothing.
        /// Must not destroy this object at once.
        std::function<void(const QString &error)> onEnd;
    };

    Download(QNetworkAccessManager &network, const QUrl &url, Limits limits, Handlers handlers);
    ~Download() override;

private:
    void follow(const QUrl &target);
    void read();
    void finish();
    void end(const QString &error);
    [[nodiscard]] QString failure() const;

    const Limits m_limits;
    Handlers m_handlers;
    QNetworkReply *m_reply;
    qint64 m_bytes = 0;
};
