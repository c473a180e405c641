#include "drawing/RenderStrokesToImage.h"

#include "drawing/DrawingModel.h"
#include "drawing/StrokePainter.h"

#include <QPainter>

QImage renderStrokesToImage(const DrawingModel *model, QSizeF size, qreal scale,
                            const QString &displayId)
{
    const QSize pixels(qRound(size.width() * scale), qRound(size.height() * scale));
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (!model || image.isNull())
        return image;

    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    const StrokePainter strokePainter = StrokePainter::forExport();
    for (const Stroke &stroke : model->strokeList()) {
        if (displayId.isEmpty() || stroke.showsOn(displayId))
            strokePainter.paint(&painter, stroke);
    }
    return image;
}
