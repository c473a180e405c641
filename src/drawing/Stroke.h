#pragma once

#include <QColor>
#include <QList>
#include <QPointF>
#include <QString>
#include <QVariantMap>

// One annotation stroke as drawn: points are in the local coordinates of the
// overlay item it was drawn in. Copies are cheap, the strings and the point
// list are implicitly shared.
struct Stroke
{
    QString tool;
    int width = 6;
    QString color;
    QString displayId;
    int smoothing = 2;
    QList<QPointF> points;

    // A stroke without a display id belongs to every display.
    bool showsOn(const QString &itemDisplayId) const
    {
        return displayId.isEmpty() || displayId == itemDisplayId;
    }

    // The map form QML sees: "tool", "width", "color", "displayId",
    // "smoothing" and "points" (maps of "x" and "y").
    QVariantMap toMap() const;

    // Reads the map form; a missing key takes the given default, a missing
    // coordinate reads as 0.
    static Stroke fromMap(const QVariantMap &map, int defaultWidth, const QColor &defaultColor,
                          int defaultSmoothing);

    friend bool operator==(const Stroke &, const Stroke &) = default;
};
