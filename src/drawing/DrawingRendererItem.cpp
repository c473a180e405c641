#include "drawing/DrawingRendererItem.h"

#include "drawing/StrokePainter.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>

DrawingRendererItem::DrawingRendererItem(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    // The texture lands pixel for pixel, so nearest sampling gives the same
    // picture, at a fraction of the cost on a software renderer.
    setSmooth(false);
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
        m_modelConnections << connect(model, &DrawingModel::strokesChanged, this,
                                      &DrawingRendererItem::strokesMayHaveChanged)
                           << connect(model, &QObject::destroyed, this,
                                      &DrawingRendererItem::onModelDestroyed);
    }
    strokesMayHaveChanged();
    emit drawingModelChanged();
}

void DrawingRendererItem::onModelDestroyed()
{
    m_modelConnections.clear();
    m_model = nullptr;
    strokesMayHaveChanged();
    emit drawingModelChanged();
}

void DrawingRendererItem::setStrokes(const QVariantList &strokes)
{
    if (m_strokes == strokes)
        return;
    m_strokes = strokes;
    strokesMayHaveChanged();
    emit strokesChanged();
}

void DrawingRendererItem::setDisplayId(const QString &displayId)
{
    if (m_displayId == displayId)
        return;
    m_displayId = displayId;
    invalidateLayer();
    strokesMayHaveChanged();
    emit displayIdChanged();
}

void DrawingRendererItem::setMirrorAnnotations(bool mirror)
{
    if (m_mirrorAnnotations == mirror)
        return;
    m_mirrorAnnotations = mirror;
    invalidateLayer();
    strokesMayHaveChanged();
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

void DrawingRendererItem::strokesMayHaveChanged()
{
    const QList<Stroke> strokes = sourceStrokes();
    const bool content = std::any_of(strokes.cbegin(), strokes.cend(), [this](const Stroke &s) {
        return m_mirrorAnnotations || s.showsOn(m_displayId);
    });
    update();
    if (content == m_hasContent)
        return;
    m_hasContent = content;
    emit hasContentChanged();
}

void DrawingRendererItem::invalidateLayer()
{
    m_layerValid = false;
}

bool DrawingRendererItem::layerStillShows(const QList<Stroke> &strokes, QSize pixels,
                                          QSizeF scale) const
{
    if (!m_layerValid || m_layer.size() != pixels || m_layerScale != scale)
        return false;
    // The painter's fallbacks matter only to strokes that lean on them.
    if (m_layerUsesDefaultColor && m_layerDefaultColor != m_defaultColor)
        return false;
    if (m_layerUsesDefaultWidth && m_layerDefaultWidth != m_defaultWidth)
        return false;
    // Records copied from one another share their points, so comparing the
    // old list with the start of the new one is mostly pointer comparisons.
    return strokes.size() >= m_layerStrokes.size()
        && std::equal(m_layerStrokes.cbegin(), m_layerStrokes.cend(), strokes.cbegin());
}

void DrawingRendererItem::paintOntoLayer(const QList<Stroke> &strokes, qsizetype from)
{
    QPainter painter(&m_layer);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(QTransform::fromScale(m_layerScale.width(), m_layerScale.height()));
    const StrokePainter strokePainter = StrokePainter::live(m_defaultColor, m_defaultWidth);
    for (qsizetype i = from; i < strokes.size(); ++i) {
        const Stroke &stroke = strokes[i];
        if (!m_mirrorAnnotations && !stroke.showsOn(m_displayId))
            continue;
        m_layerUsesDefaultColor = m_layerUsesDefaultColor || stroke.color.isEmpty();
        m_layerUsesDefaultWidth = m_layerUsesDefaultWidth || stroke.width < 1;
        strokePainter.paint(&painter, stroke);
    }
}

void DrawingRendererItem::paint(QPainter *painter)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QList<Stroke> strokes = sourceStrokes();
    const QTransform device = painter->deviceTransform();
    if (strokes.isEmpty() || device.type() > QTransform::TxScale) {
        // Nothing to keep, or a rotated painter that a pixel copy cannot serve.
        m_layer = QImage();
        invalidateLayer();
        const StrokePainter strokePainter = StrokePainter::live(m_defaultColor, m_defaultWidth);
        for (const Stroke &stroke : strokes) {
            if (m_mirrorAnnotations || stroke.showsOn(m_displayId))
                strokePainter.paint(painter, stroke);
        }
        return;
    }

    const QSizeF scale(device.m11(), device.m22());
    const QSize pixels(qCeil(width() * scale.width()), qCeil(height() * scale.height()));
    if (pixels.isEmpty())
        return;
    qsizetype from = m_layerStrokes.size();
    if (!layerStillShows(strokes, pixels, scale)) {
        m_layer = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        m_layer.fill(Qt::transparent);
        m_layerScale = scale;
        m_layerUsesDefaultColor = false;
        m_layerUsesDefaultWidth = false;
        from = 0;
    }
    m_layerDefaultColor = m_defaultColor;
    m_layerDefaultWidth = m_defaultWidth;
    paintOntoLayer(strokes, from);
    m_layerStrokes = strokes;
    m_layerValid = true;

    // Undo the scale so that the layer lands pixel for pixel.
    painter->save();
    painter->scale(1.0 / scale.width(), 1.0 / scale.height());
    painter->drawImage(QPointF(0, 0), m_layer);
    painter->restore();
}
