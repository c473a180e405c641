#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>

class DrawingModel;

// The model's committed strokes for one display, painted by the export
// variant into a transparent image of `size` times `scale` pixels. Strokes
// stay in logical coordinates. An empty displayId takes every stroke; a null
// model gives the transparent image alone.
QImage renderStrokesToImage(const DrawingModel *model, QSizeF size, qreal scale,
                            const QString &displayId = QString());
