#include "drawing/DrawingRendererItem.h"

#include "drawing/StrokePainter.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGGeometryNode>
#include <QSGTexture>
#include <QSGTextureMaterial>
#include <QtMath>

#include <algorithm>
#include <memory>

namespace {

// The layer's texture with the geometry of its drawn tiles.
class LayerNode : public QSGGeometryNode
{
public:
    LayerNode()
        : m_geometry(QSGGeometry::defaultAttributes_TexturedPoint2D(), 0)
    {
        m_geometry.setDrawingMode(QSGGeometry::DrawTriangles);
        setGeometry(&m_geometry);
        // The texture lands pixel for pixel, so nearest sampling gives the
        // same picture, at a fraction of the cost on a software renderer.
        m_material.setFiltering(QSGTexture::Nearest);
        setMaterial(&m_material);
    }

    bool hasTexture() const { return m_texture != nullptr; }

    void show(QSGTexture *texture, const QList<QRect> &areas, QSize pixels, qreal scale)
    {
        m_texture.reset(texture);
        m_material.setTexture(texture);
        m_geometry.allocate(int(areas.size() * 6));
        QSGGeometry::TexturedPoint2D *vertex = m_geometry.vertexDataAsTexturedPoint2D();
        for (const QRect &area : areas) {
            const float left = float(area.left() / scale);
            const float top = float(area.top() / scale);
            const float right = float((area.right() + 1) / scale);
            const float bottom = float((area.bottom() + 1) / scale);
            const float u0 = float(area.left()) / float(pixels.width());
            const float v0 = float(area.top()) / float(pixels.height());
            const float u1 = float(area.right() + 1) / float(pixels.width());
            const float v1 = float(area.bottom() + 1) / float(pixels.height());
            (vertex++)->set(left, top, u0, v0);
            (vertex++)->set(right, top, u1, v0);
            (vertex++)->set(left, bottom, u0, v1);
            (vertex++)->set(right, top, u1, v0);
            (vertex++)->set(right, bottom, u1, v1);
            (vertex++)->set(left, bottom, u0, v1);
        }
        markDirty(QSGNode::DirtyGeometry | QSGNode::DirtyMaterial);
    }

private:
    QSGGeometry m_geometry;
    QSGTextureMaterial m_material;
    std::unique_ptr<QSGTexture> m_texture;
};

} // namespace

DrawingRendererItem::DrawingRendererItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
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
    const QTransform toPixels = QTransform::fromScale(m_layerScale.width(), m_layerScale.height());
    painter.setTransform(toPixels);
    const StrokePainter strokePainter = StrokePainter::live(m_defaultColor, m_defaultWidth);
    for (qsizetype i = from; i < strokes.size(); ++i) {
        const Stroke &stroke = strokes[i];
        if (!m_mirrorAnnotations && !stroke.showsOn(m_displayId))
            continue;
        m_layerUsesDefaultColor = m_layerUsesDefaultColor || stroke.color.isEmpty();
        m_layerUsesDefaultWidth = m_layerUsesDefaultWidth || stroke.width < 1;
        strokePainter.paint(&painter, stroke);
        // An eraser only takes paint away: the tiles it crosses keep what
        // else they hold.
        if (stroke.tool != QLatin1String("eraser"))
            m_tiles.mark(toPixels.mapRect(strokePainter.reach(stroke)).toAlignedRect());
    }
}

bool DrawingRendererItem::updateLayer(const QList<Stroke> &strokes, QSize pixels, QSizeF scale)
{
    qsizetype from = m_layerStrokes.size();
    const bool fresh = !layerStillShows(strokes, pixels, scale);
    if (fresh) {
        m_layer = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        // Transparent, or an eraser would leave a hole in a fill colour.
        m_layer.fill(Qt::transparent);
        m_layerScale = scale;
        m_layerUsesDefaultColor = false;
        m_layerUsesDefaultWidth = false;
        m_tiles.reset(pixels);
        from = 0;
    }
    m_layerDefaultColor = m_defaultColor;
    m_layerDefaultWidth = m_defaultWidth;
    paintOntoLayer(strokes, from);
    m_layerStrokes = strokes;
    m_layerValid = true;
    return fresh || from < strokes.size();
}

void DrawingRendererItem::dropLayer()
{
    m_layer = QImage();
    m_layerStrokes.clear();
    m_tiles.reset({});
    invalidateLayer();
}

void DrawingRendererItem::paint(QPainter *painter)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QList<Stroke> strokes = sourceStrokes();
    const QTransform device = painter->deviceTransform();
    if (strokes.isEmpty() || device.type() > QTransform::TxScale) {
        // Nothing to keep, or a rotated painter that a pixel copy cannot serve.
        dropLayer();
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
    updateLayer(strokes, pixels, scale);

    // Undo the scale so that the layer lands pixel for pixel.
    painter->save();
    painter->scale(1.0 / scale.width(), 1.0 / scale.height());
    painter->drawImage(QPointF(0, 0), m_layer);
    painter->restore();
}

QSGNode *DrawingRendererItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data)
{
    Q_UNUSED(data)
    auto *node = static_cast<LayerNode *>(oldNode);
    const qreal scale = window() ? window()->effectiveDevicePixelRatio() : 1.0;
    const QSize pixels(qCeil(width() * scale), qCeil(height() * scale));
    if (!m_hasContent || !window() || pixels.isEmpty()) {
        // Nothing of this display to show: no layer, no texture.
        dropLayer();
        delete node;
        return nullptr;
    }
    const bool changed = updateLayer(sourceStrokes(), pixels, QSizeF(scale, scale));
    if (!node)
        node = new LayerNode;
    if (changed || !node->hasTexture())
        node->show(window()->createTextureFromImage(m_layer), m_tiles.runs(), pixels, scale);
    return node;
}
