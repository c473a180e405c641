#include "drawing/StrokeGeometry.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace StrokeGeometry {

QList<QPointF> smoothPoints(const QList<QPointF> &points, int level)
{
    const qsizetype n = points.size();
    if (level < 2 || n < 4)
        return points;
    const qsizetype radius = level >= 3 ? 2 : 1;
    QList<QPointF> smoothed;
    smoothed.reserve(n);
    smoothed.append(points.first());
    for (qsizetype i = 1; i < n - 1; ++i) {
        const qsizetype from = std::max<qsizetype>(0, i - radius);
        const qsizetype to = std::min<qsizetype>(n - 1, i + radius);
        qreal sumX = 0;
        qreal sumY = 0;
        for (qsizetype j = from; j <= to; ++j) {
            sumX += points[j].x();
            sumY += points[j].y();
        }
        const qreal count = qreal(to - from + 1);
        smoothed.append(QPointF(sumX / count, sumY / count));
    }
    smoothed.append(points.last());
    return smoothed;
}

QPainterPath smoothedPath(const QList<QPointF> &points, bool curved)
{
    QPainterPath path;
    if (points.isEmpty())
        return path;
    path.moveTo(points.first());
    const qsizetype n = points.size();
    if (!curved || n < 3) {
        for (qsizetype i = 1; i < n; ++i)
            path.lineTo(points[i]);
        return path;
    }
    for (qsizetype i = 1; i < n - 1; ++i)
        path.quadTo(points[i], (points[i] + points[i + 1]) / 2.0);
    path.lineTo(points.last());
    return path;
}

std::pair<QPointF, QPointF> arrowWings(QPointF from, QPointF to, qreal headLength)
{
    const qreal angle = std::atan2(to.y() - from.y(), to.x() - from.x());
    const qreal spread = M_PI / 6.0;
    const QPointF first =
        to - headLength * QPointF(std::cos(angle - spread), std::sin(angle - spread));
    const QPointF second =
        to - headLength * QPointF(std::cos(angle + spread), std::sin(angle + spread));
    return { first, second };
}

namespace {

QPointF unitTowards(QPointF from, QPointF to)
{
    const QPointF delta = to - from;
    const qreal length = std::hypot(delta.x(), delta.y());
    return length > 1e-6 ? delta / length : QPointF();
}

} // namespace

QPainterPath roundedTriangle(QPointF a, QPointF b, QPointF c, qreal radius)
{
    const QPointF aStart = a + radius * unitTowards(a, c);
    const QPointF aEnd = a + radius * unitTowards(a, b);
    const QPointF bStart = b + radius * unitTowards(b, a);
    const QPointF bEnd = b + radius * unitTowards(b, c);
    const QPointF cStart = c + radius * unitTowards(c, b);
    const QPointF cEnd = c + radius * unitTowards(c, a);
    QPainterPath path;
    path.moveTo(aStart);
    path.quadTo(a, aEnd);
    path.lineTo(bStart);
    path.quadTo(b, bEnd);
    path.lineTo(cStart);
    path.quadTo(c, cEnd);
    path.closeSubpath();
    return path;
}

} // namespace StrokeGeometry
