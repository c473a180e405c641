#pragma once

#include <QList>
#include <QPainterPath>
#include <QPointF>

#include <utility>

// The shapes of a stroke, apart from any painter, so that the preview in
// QML and the tests can follow the same arithmetic.
namespace StrokeGeometry {

// Moving average whose window is 3 points at level 2 and 5 from level 3,
// shrinking at the ends; first and last point are kept. Levels below 2 and
// strokes of fewer than four points come back unchanged.
QList<QPointF> smoothPoints(const QList<QPointF> &points, int level);

// A polyline, or, when curved and given three points or more, quadratic
// segments through the midpoints of neighbouring samples.
QPainterPath smoothedPath(const QList<QPointF> &points, bool curved);

// The two back corners of an arrow head of the given length whose tip is at
// `to`, 30 degrees either side of the shaft.
std::pair<QPointF, QPointF> arrowWings(QPointF from, QPointF to, qreal headLength);

// A closed triangle whose corners are rounded by quadratic curves that begin
// and end `radius` away from each corner along its two sides.
QPainterPath roundedTriangle(QPointF a, QPointF b, QPointF c, qreal radius);

} // namespace StrokeGeometry
