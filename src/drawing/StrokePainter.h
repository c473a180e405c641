#pragma once

#include "drawing/Stroke.h"

#include <QColor>
#include <QRectF>

class QPainter;

// Paints one stroke. The live variant serves the overlay; the export variant
// serves still capture and differs on purpose: fixed fallbacks (red, width 6),
// a thinner highlighter and an open chevron for an arrow head.
class StrokePainter
{
public:
    enum class Variant { Live, Export };

    static StrokePainter live(const QColor &defaultColor, int defaultWidth);
    static StrokePainter forExport();

    // Leaves the painter's state as it found it. Strokes of fewer than two
    // points paint nothing.
    void paint(QPainter *painter, const Stroke &stroke) const;

    // Holds every pixel paint() may touch for the stroke: its points' bounds
    // grown by what its tool's pen, caps, joins or arrow head add.
    QRectF reach(const Stroke &stroke) const;

    int highlighterWidth(int strokeWidth) const;
    static qreal liveArrowHeadLength(qreal penWidth);

private:
    StrokePainter(Variant variant, const QColor &defaultColor, int defaultWidth);

    void paintArrow(QPainter *painter, const QList<QPointF> &points) const;

    Variant m_variant;
    QColor m_defaultColor;
    int m_defaultWidth;
};
