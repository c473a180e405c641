#include "drawing/DrawingRendererItem.h"

#include "drawing/StrokePainter.h"

#include <QPainter>

DrawingRendererItem::DrawingRendererItem(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    // The background stays transparent, or an eraser would leave a hole
    // filled with the fill colour.
    setOpaquePainting(false);
}

void DrawingRendererItem::setDrawingModel(DrawingModel *model)
{
    if (m_model == model)
        return;
    for (const QMetaObject::Connection &connection : std::as_const(m_modelConnections))
        disconnect(connection);
    m_modelConnections.clear();
    m_model = model;
    if (model) {
        m_modelConnections << connect(model, &DrawingModel::strokesChanged, this, [this] {
            update();
        }) << connect(model, &QObject::destroyed, this, &DrawingRendererItem::onModelDestroyed);
    }
    update();
    emit drawingModelChanged();
}

void DrawingRendererItem::onModelDestroyed()
{
    m_modelConnections.clear();
    m_model = nullptr;
    update();
    emit drawingModelChanged();
}

void DrawingRendererItem::setStrokes(const QVariantList &strokes)
{
    if (m_strokes == strokes)
        return;
    m_strokes = strokes;
    update();
    emit strokesChanged();
}

void DrawingRendererItem::setDisplayId(const QString &displayId)
{
    if (m_displayId == displayId)
        return;
    m_displayId = displayId;
    update();
    emit displayIdChanged();
}

void DrawingRendererItem::setMirrorAnnotations(bool mirror)
{
    if (m_mirrorAnnotations == mirror)
        return;
    m_mirrorAnnotations = mirror;
    update();
    emit mirrorAnnotationsChanged();
}

void DrawingRendererItem::setDefaultColor(const QColor &color)
{
    if (m_defaultColor == color)
        return;
    m_defaultColor = color;
    update();
    emit defaultColorChanged();
}

void DrawingRendererItem::setDefaultWidth(int width)
{
    if (m_defaultWidth == width)
        return;
    m_defaultWidth = width;
    update();
    emit defaultWidthChanged();
}

void DrawingRendererItem::setDefaultSmoothing(int smoothing)
{
    if (m_defaultSmoothing == smoothing)
        return;
    m_defaultSmoothing = smoothing;
    update();
    emit defaultSmoothingChanged();
}

QList<Stroke> DrawingRendererItem::sourceStrokes() const
{
    if (m_model)
        return m_model->strokeList();
    QList<Stroke> parsed;
    parsed.reserve(m_strokes.size());
    for (const QVariant &value : m_strokes)
        parsed.append(
            Stroke::fromMap(value.toMap(), m_defaultWidth, m_defaultColor, m_defaultSmoothing));
    return parsed;
}

void DrawingRendererItem::paint(QPainter *painter)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    const StrokePainter strokePainter = StrokePainter::live(m_defaultColor, m_defaultWidth);
    const QList<Stroke> strokes = sourceStrokes();
    for (const Stroke &stroke : strokes) {
        if (m_mirrorAnnotations || stroke.showsOn(m_displayId))
            strokePainter.paint(painter, stroke);
    }
}
