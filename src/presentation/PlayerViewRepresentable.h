// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MediaPlayer.h"

#include <QPointer>
#include <QQuickItem>

/// Shows the player's picture, whole and centred on black. There may be several; each
/// requests the picture in its own size.
class PlayerViewRepresentable : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(MediaPlayer *player READ player WRITE setPlayer NOTIFY playerChanged REQUIRED FINAL)

public:
    explicit PlayerViewRepresentable(QQuickItem *parent = nullptr);

    [[nodiscard]] MediaPlayer *player() const { return m_player; }
    void setPlayer(MediaPlayer *player);

Q_SIGNALS:
    void playerChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &geometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void askForSize();
    void showPicture();

    QPointer<MediaPlayer> m_player;
    bool m_hasNewPicture = false;
};
