// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MediaPlayer.h"

#include <QPointer>
#include <QQuickItem>

/// Shows the player's picture, whole and centred on black. There may be several; each
/// that is seen wants the picture in its own size.
class PlayerViewRepresentable : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(MediaPlayer *player READ player WRITE setPlayer NOTIFY playerChanged REQUIRED FINAL)

public:
    explicit PlayerViewRepresentable(QQuickItem *parent = nullptr);
    ~PlayerViewRepresentable() override;

    [[nodiscard]] MediaPlayer *player() const { return m_player; }
    void setPlayer(MediaPlayer *player);

Q_SIGNALS:
    void playerChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &geometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    /// Of its window.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void watch(QQuickWindow *window);
    [[nodiscard]] bool isSeen() const;
    [[nodiscard]] QSize sizeOnScreen() const;
    void makeWish();
    void showPicture();

    QPointer<MediaPlayer> m_player;
    QPointer<QQuickWindow> m_window;
    bool m_hasNewPicture = false;
};
