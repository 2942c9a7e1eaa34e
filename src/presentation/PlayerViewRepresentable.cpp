// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerViewRepresentable.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRendererInterface>

PlayerViewRepresentable::PlayerViewRepresentable(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

PlayerViewRepresentable::~PlayerViewRepresentable()
{
    if (m_player)
        m_player->setWish(this, {});
}

void PlayerViewRepresentable::setPlayer(MediaPlayer *player)
{
    if (m_player == player)
        return;
    if (m_player) {
        m_player->disconnect(this);
        m_player->setWish(this, {});
    }
    m_player = player;
    if (m_player)
        connect(m_player, &MediaPlayer::pictureChanged, this,
                &PlayerViewRepresentable::showPicture);
    makeWish();
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
    // On whole pixels of the screen, so that a picture of that size is only copied.
    const QSize room = sizeOnScreen();
    const QSize size = fittedPicture(m_player->pictureProportions(), room);
    const QPoint corner((room.width() - size.width()) / 2, (room.height() - size.height()) / 2);
    const qreal ratio = window()->effectiveDevicePixelRatio();
    image->setRect(QRectF(QPointF(corner) / ratio, QSizeF(size) / ratio));
    return image;
}

void PlayerViewRepresentable::geometryChange(const QRectF &geometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(geometry, oldGeometry);
    makeWish();
    update();
}

void PlayerViewRepresentable::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange)
        watch(data.window);
    if (change == ItemVisibleHasChanged || change == ItemSceneChange
        || change == ItemDevicePixelRatioHasChanged)
        makeWish();
}

bool PlayerViewRepresentable::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Expose || event->type() == QEvent::WindowStateChange)
        makeWish();
    return QQuickItem::eventFilter(object, event);
}

void PlayerViewRepresentable::watch(QQuickWindow *window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (m_window)
        m_window->installEventFilter(this);
}

bool PlayerViewRepresentable::isSeen() const
{
    return isVisible() && window() && window()->isExposed()
        && !window()->windowStates().testFlag(Qt::WindowMinimized);
}

QSize PlayerViewRepresentable::sizeOnScreen() const
{
    return (size() * window()->effectiveDevicePixelRatio()).toSize();
}

void PlayerViewRepresentable::makeWish()
{
    if (!m_player)
        return;
    PictureWish wish;
    if (isSeen()) {
        wish.size = sizeOnScreen();
        wish.isForGraphicsCard =
            window()->rendererInterface()->graphicsApi() != QSGRendererInterface::Software;
    }
    m_player->setWish(this, wish);
}

void PlayerViewRepresentable::showPicture()
{
    m_hasNewPicture = true;
    update();
}
