// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QNetworkReply>
#include <QPointer>
#include <QQuickImageResponse>

class QNetworkAccessManager;

/// One thumbnail on its way. Loads on the main thread, decodes on a pool thread.
class ThumbnailResponse : public QQuickImageResponse
{
    Q_OBJECT

public:
    ThumbnailResponse(QSize size, double radius);
    ~ThumbnailResponse() override;

    void load(QNetworkAccessManager &network, const QUrl &url);

    [[nodiscard]] QQuickTextureFactory *textureFactory() const override;
    [[nodiscard]] QString errorString() const override { return m_error; }
    void cancel() override;

private:
    void handleFinished();
    void fail(const QString &error);

    const QSize m_size;
    const double m_radius;
    QPointer<QNetworkReply> m_reply;
    QImage m_image;
    QString m_error;
};
