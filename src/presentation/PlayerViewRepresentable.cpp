// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerViewRepresentable.h"

#include <QQuickWindow>
#include <QSGImageNode>

PlayerViewRepresentable::PlayerViewRepresentable(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void PlayerViewRepresentable::setPlayer(MediaPlayer *player)
{
    if (m_player == player)
        return;
    if (m_player)
        m_player->disconnect(this);
    m_player = player;
    if (m_player)
        connect(m_player, &MediaPlayer::pictureChanged, this,
                &PlayerViewRepresentable::showPicture);
    askForSize();
    showPicture();
    Q_EMIT playerChanged();
}

QSGNode *PlayerViewRepresentable::updatePaintNode(QSGNode *node, UpdatePaintNodeData * /*data*/)
{
    if (!m_player || m_player->picture().isNull() || width() < 1 || height() < 1) {
        delete node;
        return nullptr;
    }
    auto *image = static_cast<QSGImageNode *>(node);
    if (!image) {
        image = window()->createImageNode();
        image->setOwnsTexture(true);
        image->setFiltering(QSGTexture::Linear);
        m_hasNewPicture = true;
    }
    const QImage &picture = m_player->picture();
    if (m_hasNewPicture) {
        image->setTexture(window()->createTextureFromImage(picture, QQuickWindow::TextureIsOpaque));
        m_hasNewPicture = false;
    }
    // While the size changes, the last picture is fitted in.
    const QSizeF size = QSizeF(picture.size()).scaled(this->size(), Qt::KeepAspectRatio);
    image->setRect(
        QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size));
    return image;
}

void PlayerViewRepresentable::geometryChange(const QRectF &geometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(geometry, oldGeometry);
    askForSize();
    update();
}

void PlayerViewRepresentable::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged || change == ItemSceneChange
        || change == ItemDevicePixelRatioHasChanged)
        askForSize();
}

void PlayerViewRepresentable::askForSize()
{
    if (m_player && window() && isVisible())
        m_player->setPictureSize((size() * window()->effectiveDevicePixelRatio()).toSize());
}

void PlayerViewRepresentable::showPicture()
{
    m_hasNewPicture = true;
    update();
}
