// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

/// Places its visible children row by row at their implicit sizes, in order,
/// and starts a new row when one no longer fits.
class FlowLayout : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal spacing READ spacing WRITE setSpacing NOTIFY spacingChanged FINAL)

public:
    using Rows = QList<QList<qsizetype>>;

    [[nodiscard]] qreal spacing() const { return m_spacing; }
    void setSpacing(qreal spacing);

    /// The row of each child, for children of these widths. There is always at least one
    /// row. A child wider than a row gets its own; one that fills a row exactly stays on
    /// it.
    static Rows computeRows(const QList<qreal> &widths, qreal spacing, qreal availableWidth);

    /// The size for a width; without one (not finite), of a single row, whose
    /// width is then given as 0.
    static QSizeF sizeThatFits(const QList<QSizeF> &sizes, qreal spacing, qreal proposedWidth);

    /// The top left corner of each child within that width.
    static QList<QPointF> placements(const QList<QSizeF> &sizes, qreal spacing, qreal width);

Q_SIGNALS:
    void spacingChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void componentComplete() override;
    void updatePolish() override;

private:
    [[nodiscard]] QList<QQuickItem *> visibleChildren() const;
    void arrange();

    qreal m_spacing = 0;
};
