#include "capture/CaptureComposer.h"

#include <QPainter>

namespace CaptureComposer {

namespace {

QRect clippedRegion(const QImage &grab, const QRect &region)
{
    return region.normalized().intersected(grab.rect());
}

QImage withoutScale(QImage image)
{
    image.setDevicePixelRatio(1.0);
    return image;
}

} // namespace

QImage cropToRegion(const QImage &grab, const QRect &region)
{
    const QRect kept = clippedRegion(grab, region);
    if (kept.isEmpty())
        return {};
    return withoutScale(grab.copy(kept));
}

QImage cutAnnotations(const QImage &annotations, const QImage &grab, const QRect &region)
{
    if (annotations.isNull())
        return {};
    const QRect kept = clippedRegion(grab, region);
    if (kept.isEmpty())
        return {};
    return withoutScale(annotations.copy(kept));
}

QImage overlayAnnotations(const QImage &base, const QImage &annotations)
{
    if (annotations.isNull())
        return base;
    QImage canvas = withoutScale(base.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    const QImage layer = withoutScale(annotations);
    {
        QPainter painter(&canvas);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        if (layer.size() == canvas.size()) {
            painter.drawImage(QPoint(0, 0), layer);
        } else {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(canvas.rect(), layer);
        }
    }
    QImage result = canvas.convertToFormat(base.format());
    result.setDevicePixelRatio(base.devicePixelRatio());
    return result;
}

} // namespace CaptureComposer
