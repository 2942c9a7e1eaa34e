// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

/// One of the program's symbols, square, in one colour; nothing if there is none of that
/// name. An Image would make Qt load all of its picture formats at the start.
class SymbolImage : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol NOTIFY symbolChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)

public:
    explicit SymbolImage(QQuickItem *parent = nullptr);

    /// The system's name for it, such as "gearshape".
    [[nodiscard]] QString symbol() const { return m_symbol; }
    void setSymbol(const QString &symbol);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);

Q_SIGNALS:
    void symbolChanged();
    void colorChanged();

protected:
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    QString m_symbol;
    QColor m_color;
    QImage m_image;            // in as many pixels as the item covers on the screen
    bool m_isNewImage = false; // not seen by the renderer yet
};
