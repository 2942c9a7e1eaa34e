// SPDX-License-Identifier: GPL-3.0-or-later
#include "SymbolImage.h"

#include <QIcon>
#include <QPainter>
#include <QPixmapCache>
#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// In black, square.
QImage drawn(const QString &symbol, int size)
{
    const QString key = u"symbol/%1/%2"_s.arg(symbol).arg(size);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QIcon(u":/symbols/%1.svg"_s.arg(symbol)).pixmap({size, size}, 1);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap.toImage();
}

QImage tinted(const QImage &picture, const QColor &color)
{
    QImage image = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

} // namespace

SymbolImage::SymbolImage(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void SymbolImage::setSymbol(const QString &symbol)
{
    if (m_symbol == symbol)
        return;
    m_symbol = symbol;
    polish();
    Q_EMIT symbolChanged();
}

void SymbolImage::setColor(const QColor &color)
{
    if (m_color == color)
        return;
    m_color = color;
    polish();
    Q_EMIT colorChanged();
}

void SymbolImage::updatePolish()
{
    const int size = static_cast<int>(std::ceil(width() * window()->effectiveDevicePixelRatio()));
    const QImage picture = m_symbol.isEmpty() || size == 0 ? QImage() : drawn(m_symbol, size);
    m_image = picture.isNull() ? picture : tinted(picture, m_color);
    m_isNewImage = true;
    update();
}

QSGNode *SymbolImage::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData * /*data*/)
{
    std::unique_ptr<QSGImageNode> node(static_cast<QSGImageNode *>(oldNode));
    if (m_image.isNull())
        return nullptr;
    if (!node) {
        node.reset(window()->createImageNode());
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear); // it may stand between pixels, or turn
        m_isNewImage = true;
    }
    if (m_isNewImage)
        node->setTexture(
            window()->createTextureFromImage(m_image, QQuickWindow::TextureCanUseAtlas));
    m_isNewImage = false;
    node->setRect({{}, QSizeF(m_image.size()) / window()->effectiveDevicePixelRatio()});
    return node.release();
}

void SymbolImage::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void SymbolImage::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged)
        polish();
}
