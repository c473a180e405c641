#include "drawing/Stroke.h"

QVariantMap Stroke::toMap() const
{
    QVariantList pointMaps;
    pointMaps.reserve(points.size());
    for (const QPointF &point : points)
        pointMaps.append(
            QVariantMap { { QStringLiteral("x"), point.x() }, { QStringLiteral("y"), point.y() } });
    return QVariantMap {
        { QStringLiteral("tool"), tool },           { QStringLiteral("width"), width },
        { QStringLiteral("color"), color },         { QStringLiteral("displayId"), displayId },
        { QStringLiteral("smoothing"), smoothing }, { QStringLiteral("points"), pointMaps },
    };
}

Stroke Stroke::fromMap(const QVariantMap &map, int defaultWidth, const QColor &defaultColor,
                       int defaultSmoothing)
{
    Stroke stroke;
    stroke.tool = map.value(QStringLiteral("tool"), QStringLiteral("pen")).toString();
    stroke.width = map.value(QStringLiteral("width"), defaultWidth).toInt();
    stroke.color = map.contains(QStringLiteral("color"))
        ? map.value(QStringLiteral("color")).toString()
        : defaultColor.name(QColor::HexArgb);
    stroke.displayId = map.value(QStringLiteral("displayId")).toString();
    stroke.smoothing = map.value(QStringLiteral("smoothing"), defaultSmoothing).toInt();
    const QVariantList pointMaps = map.value(QStringLiteral("points")).toList();
    stroke.points.reserve(pointMaps.size());
    for (const QVariant &pointValue : pointMaps) {
        const QVariantMap point = pointValue.toMap();
        stroke.points.append(QPointF(point.value(QStringLiteral("x"), 0.0).toDouble(),
                                     point.value(QStringLiteral("y"), 0.0).toDouble()));
    }
    return stroke;
}
