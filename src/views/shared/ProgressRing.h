// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

/// A circle that fills clockwise from the top. Painted, so that it is smooth with every
/// renderer.
class ProgressRing : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double progress READ progress WRITE setProgress NOTIFY progressChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY trackColorChanged FINAL)

public:
    explicit ProgressRing(QQuickItem *parent = nullptr);

    /// From 0 to 1.
    [[nodiscard]] double progress() const { return m_progress; }
    void setProgress(double progress);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);
    /// The part still to come.
    [[nodiscard]] QColor trackColor() const { return m_trackColor; }
    void setTrackColor(const QColor &color);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void progressChanged();
    void colorChanged();
    void trackColorChanged();

private:
    double m_progress = 0;
    QColor m_color;
    QColor m_trackColor;
};
