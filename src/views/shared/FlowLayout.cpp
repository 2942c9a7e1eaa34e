// SPDX-License-Identifier: GPL-3.0-or-later
#include "FlowLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

QList<qreal> widthsOf(const QList<QSizeF> &sizes)
{
    QList<qreal> widths;
    for (const QSizeF &size : sizes)
        widths.append(size.width());
    return widths;
}

qreal heightOf(const QList<qsizetype> &row, const QList<QSizeF> &sizes)
{
    qreal height = 0;
    for (const qsizetype child : row)
        height = std::max(height, sizes[child].height());
    return height;
}

QList<QSizeF> idealSizes(const QList<QQuickItem *> &items)
{
    QList<QSizeF> sizes;
    for (const QQuickItem *const item : items)
        sizes.append({item->implicitWidth(), item->implicitHeight()});
    return sizes;
}

} // namespace

void FlowLayout::setSpacing(qreal spacing)
{
    if (m_spacing == spacing)
        return;
    m_spacing = spacing;
    Q_EMIT spacingChanged();
    arrange();
}

FlowLayout::Rows FlowLayout::computeRows(const QList<qreal> &widths, qreal spacing,
                                         qreal availableWidth)
{
    Rows rows{{}};
    qreal x = 0;
    for (qsizetype child = 0; child < widths.size(); ++child) {
        if (x + widths[child] > availableWidth && !rows.last().isEmpty()) {
            rows.append(QList<qsizetype>());
            x = 0;
        }
        rows.last().append(child);
        x += widths[child] + spacing;
    }
    return rows;
}

QSizeF FlowLayout::sizeThatFits(const QList<QSizeF> &sizes, qreal spacing, qreal proposedWidth)
{
    qreal height = -spacing;
    const Rows rows = computeRows(widthsOf(sizes), spacing, proposedWidth);
    for (const QList<qsizetype> &row : rows)
        height += heightOf(row, sizes) + spacing;
    return {std::isfinite(proposedWidth) ? proposedWidth : 0, std::max<qreal>(height, 0)};
}

QList<QPointF> FlowLayout::placements(const QList<QSizeF> &sizes, qreal spacing, qreal width)
{
    QList<QPointF> corners;
    qreal y = 0;
    const Rows rows = computeRows(widthsOf(sizes), spacing, width);
    for (const QList<qsizetype> &row : rows) {
        qreal x = 0;
        for (const qsizetype child : row) {
            corners.append({x, y});
            x += sizes[child].width() + spacing;
        }
        y += heightOf(row, sizes) + spacing;
    }
    return corners;
}

void FlowLayout::itemChange(ItemChange change, const ItemChangeData &value)
{
    if (change == ItemChildAddedChange) {
        connect(value.item, &QQuickItem::implicitWidthChanged, this, &FlowLayout::arrange);
        connect(value.item, &QQuickItem::implicitHeightChanged, this, &FlowLayout::arrange);
        connect(value.item, &QQuickItem::visibleChanged, this, &FlowLayout::arrange);
        arrange();
    } else if (change == ItemChildRemovedChange) {
        disconnect(value.item, nullptr, this, nullptr);
        arrange();
    }
    QQuickItem::itemChange(change, value);
}

void FlowLayout::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.width() != oldGeometry.width())
        arrange();
}

void FlowLayout::componentComplete()
{
    QQuickItem::componentComplete();
    arrange();
}

void FlowLayout::updatePolish()
{
    const QList<QQuickItem *> items = visibleChildren();
    const QList<QSizeF> sizes = idealSizes(items);
    const QList<QPointF> corners = placements(sizes, m_spacing, width());
    for (qsizetype child = 0; child < items.size(); ++child) {
        items[child]->setPosition(corners[child]);
        items[child]->setSize(sizes[child]);
    }
}

QList<QQuickItem *> FlowLayout::visibleChildren() const
{
    QList<QQuickItem *> items = childItems();
    // A Repeater is an item, too, but shows nothing.
    items.removeIf([](const QQuickItem *item) {
        return !item->isVisible() || item->inherits("QQuickRepeater");
    });
    return items;
}

void FlowLayout::arrange()
{
    if (!isComponentComplete())
        return;
    const qreal proposal = width() > 0 ? width() : std::numeric_limits<qreal>::infinity();
    setImplicitHeight(sizeThatFits(idealSizes(visibleChildren()), m_spacing, proposal).height());
    polish();
}
