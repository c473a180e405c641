#pragma once

#include "drawing/DrawingModel.h"
#include "drawing/DrawingRendererItem.h"

#include <QImage>
#include <QPainter>

// Helpers for tests that look at painted strokes pixel by pixel.

inline void commitStroke(DrawingModel &model, const QString &tool, const QList<QPointF> &points,
                         const QString &color = QStringLiteral("#ff0000"), int width = 6,
                         const QString &displayId = QString(), int smoothing = 0)
{
    model.beginStroke(points.first(), tool, width, color, displayId, smoothing);
    for (qsizetype i = 1; i < points.size(); ++i)
        model.appendPoint(points[i]);
    model.endStroke();
}

// Paints the item as the scene graph does: a transparent image, then paint()
// with the device scale applied.
inline QImage paintItem(DrawingRendererItem &item, QSize size, qreal scale = 1.0,
                        QImage::Format format = QImage::Format_ARGB32_Premultiplied)
{
    item.setSize(size);
    QImage image(size * scale, format);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    item.paint(&painter);
    return image;
}

inline int countPainted(const QImage &image, const QRect &area)
{
    int count = 0;
    const QRect clipped = area & image.rect();
    for (int y = clipped.top(); y <= clipped.bottom(); ++y) {
        for (int x = clipped.left(); x <= clipped.right(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                ++count;
        }
    }
    return count;
}

// Rows of column x whose alpha exceeds half the strongest alpha in it: the
// width of a horizontal band of paint with antialiased edges.
inline int bandThickness(const QImage &image, int x)
{
    int strongest = 0;
    for (int y = 0; y < image.height(); ++y)
        strongest = std::max(strongest, qAlpha(image.pixel(x, y)));
    int rows = 0;
    for (int y = 0; y < image.height(); ++y) {
        if (strongest > 0 && qAlpha(image.pixel(x, y)) * 2 > strongest)
            ++rows;
    }
    return rows;
}
