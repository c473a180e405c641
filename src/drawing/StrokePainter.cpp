#include "drawing/StrokePainter.h"

#include "drawing/StrokeGeometry.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

namespace {

constexpr qreal kHighlighterAlpha = 0.38;
constexpr qreal kExportArrowHeadLength = 15.0;

} // namespace

StrokePainter::StrokePainter(Variant variant, const QColor &defaultColor, int defaultWidth)
    : m_variant(variant)
    , m_defaultColor(defaultColor)
    , m_defaultWidth(defaultWidth)
{
}

StrokePainter StrokePainter::live(const QColor &defaultColor, int defaultWidth)
{
    return StrokePainter(Variant::Live, defaultColor, defaultWidth);
}

StrokePainter StrokePainter::forExport()
{
    return StrokePainter(Variant::Export, QColor(Qt::red), 6);
}

int StrokePainter::highlighterWidth(int strokeWidth) const
{
    const int factor = m_variant == Variant::Live ? 5 : 3;
    return std::max(14, strokeWidth * factor);
}

qreal StrokePainter::liveArrowHeadLength(qreal penWidth)
{
    return std::max(15.0, 4.0 * penWidth);
}

QRectF StrokePainter::reach(const Stroke &stroke) const
{
    if (stroke.points.isEmpty())
        return {};
    const qreal width = stroke.width < 1 ? m_defaultWidth : stroke.width;
    // Round caps and joins reach half the pen from the line; a highlighter's
    // miter join its whole width; an arrow's wings their head length from the
    // tip. Smoothing never leaves the points' hull. One more pixel for
    // antialiasing.
    qreal margin = width / 2;
    if (stroke.tool == QLatin1String("highlighter"))
        margin = highlighterWidth(int(width));
    else if (stroke.tool == QLatin1String("arrow"))
        margin = std::max(margin,
                          m_variant == Variant::Live ? liveArrowHeadLength(width)
                                                     : kExportArrowHeadLength + width);
    margin += 1.0;
    QPointF low = stroke.points.first();
    QPointF high = low;
    for (const QPointF &point : stroke.points) {
        low = QPointF(std::min(low.x(), point.x()), std::min(low.y(), point.y()));
        high = QPointF(std::max(high.x(), point.x()), std::max(high.y(), point.y()));
    }
    return QRectF(low, high).adjusted(-margin, -margin, margin, margin);
}

void StrokePainter::paint(QPainter *painter, const Stroke &stroke) const
{
    if (stroke.points.size() < 2)
        return;
    const QString tool = stroke.tool.isEmpty() ? QStringLiteral("pen") : stroke.tool;
    const QColor color = stroke.color.isEmpty() ? m_defaultColor : QColor(stroke.color);
    const int width = stroke.width < 1 ? m_defaultWidth : stroke.width;

    const QList<QPointF> points = StrokeGeometry::smoothPoints(stroke.points, stroke.smoothing);
    if (points.size() < 2)
        return;
    const bool curved = stroke.smoothing >= 1;

    painter->save();
    painter->setBrush(Qt::NoBrush);
    if (tool == QLatin1String("eraser")) {
        painter->setCompositionMode(QPainter::CompositionMode_Clear);
        painter->setPen(QPen(Qt::transparent, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(StrokeGeometry::smoothedPath(points, curved));
    } else if (tool == QLatin1String("highlighter")) {
        QColor translucent = color;
        translucent.setAlphaF(kHighlighterAlpha);
        painter->setPen(QPen(translucent, highlighterWidth(width), Qt::SolidLine, Qt::SquareCap,
                             Qt::MiterJoin));
        painter->drawPolyline(points.constData(), int(points.size()));
    } else {
        painter->setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        if (tool == QLatin1String("rectangle")) {
            painter->drawRect(QRectF(points.first(), points.last()));
        } else if (tool == QLatin1String("circle")) {
            painter->drawEllipse(QRectF(points.first(), points.last()).normalized());
        } else if (tool == QLatin1String("arrow")) {
            paintArrow(painter, points);
        } else {
            painter->drawPath(StrokeGeometry::smoothedPath(points, curved));
        }
    }
    painter->restore();
}

void StrokePainter::paintArrow(QPainter *painter, const QList<QPointF> &points) const
{
    const QPointF from = points.first();
    const QPointF tip = points.last();
    if (m_variant == Variant::Export) {
        const auto [first, second] = StrokeGeometry::arrowWings(from, tip, kExportArrowHeadLength);
        QPainterPath chevron(from);
        chevron.lineTo(tip);
        chevron.lineTo(first);
        chevron.moveTo(tip);
        chevron.lineTo(second);
        painter->drawPath(chevron);
        return;
    }
    const QPen pen = painter->pen();
    const qreal headLength = liveArrowHeadLength(pen.widthF());
    const auto [first, second] = StrokeGeometry::arrowWings(from, tip, headLength);
    // The shaft stops at the base of the head so that its blunt end does not
    // show past the tip.
    painter->drawLine(from, (first + second) / 2.0);
    painter->save();
    painter->setPen(Qt::NoPen);
    painter->setBrush(pen.color());
    painter->drawPath(StrokeGeometry::roundedTriangle(first, tip, second, 0.25 * headLength));
    painter->restore();
}
