// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProgressRing.h"

#include <QPainter>

#include <algorithm>

ProgressRing::ProgressRing(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void ProgressRing::setProgress(double progress)
{
    if (m_progress == progress)
        return;
    m_progress = progress;
    update();
    Q_EMIT progressChanged();
}

void ProgressRing::setColor(const QColor &color)
{
    if (m_color == color)
        return;
    m_color = color;
    update();
    Q_EMIT colorChanged();
}

void ProgressRing::setTrackColor(const QColor &color)
{
    if (m_trackColor == color)
        return;
    m_trackColor = color;
    update();
    Q_EMIT trackColorChanged();
}

void ProgressRing::paint(QPainter *painter)
{
    constexpr double thickness = 2.5;
    constexpr int sixteenths = 16; // QPainter's unit, of a degree
    const double inset = thickness / 2;
    const QRectF circle = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setPen(QPen(m_trackColor, thickness));
    painter->drawEllipse(circle);
    painter->setPen(QPen(m_color, thickness, Qt::SolidLine, Qt::RoundCap));
    const double part = std::clamp(m_progress, 0.0, 1.0);
    if (part > 0)
        painter->drawArc(circle, 90 * sixteenths, -static_cast<int>(part * 360 * sixteenths));
}
