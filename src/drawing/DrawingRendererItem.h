#pragma once

#include "drawing/DrawingModel.h"
#include "drawing/LayerTiles.h"

#include <QColor>
#include <QImage>
#include <QPointer>
#include <QQuickItem>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

// The committed strokes of one overlay window. Strokes of other displays are
// left out unless annotations are mirrored. Without a model it paints the
// `strokes` list in the model's map form.
//
// The strokes are kept painted in a retained layer at device resolution.
// When the list grew at its end (a commit or a redo), only the new strokes
// are painted onto it; any other change repaints the layer from nothing.
// Painting in list order onto the same pixels gives the same result either
// way, the eraser included. On screen the layer is one texture, of which only
// the tiles that strokes reach are drawn, so that a frame in which something
// else moves costs the area of the strokes, not the whole window.
class DrawingRendererItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(DrawingModel *drawingModel READ drawingModel WRITE setDrawingModel NOTIFY
                   drawingModelChanged FINAL)
    Q_PROPERTY(QVariantList strokes READ strokes WRITE setStrokes NOTIFY strokesChanged FINAL)
    Q_PROPERTY(QString displayId READ displayId WRITE setDisplayId NOTIFY displayIdChanged FINAL)
    Q_PROPERTY(bool mirrorAnnotations READ mirrorAnnotations WRITE setMirrorAnnotations NOTIFY
                   mirrorAnnotationsChanged FINAL)
    Q_PROPERTY(QColor defaultColor READ defaultColor WRITE setDefaultColor NOTIFY
                   defaultColorChanged FINAL)
    Q_PROPERTY(
        int defaultWidth READ defaultWidth WRITE setDefaultWidth NOTIFY defaultWidthChanged FINAL)
    Q_PROPERTY(int defaultSmoothing READ defaultSmoothing WRITE setDefaultSmoothing NOTIFY
                   defaultSmoothingChanged FINAL)
    // Whether any stroke shows in this window. Bound to `visible`: even an
    // empty painted layer costs a full-window texture pass in every frame.
    Q_PROPERTY(bool hasContent READ hasContent NOTIFY hasContentChanged FINAL)

public:
    explicit DrawingRendererItem(QQuickItem *parent = nullptr);

    DrawingModel *drawingModel() const { return m_model.data(); }
    void setDrawingModel(DrawingModel *model);

    QVariantList strokes() const { return m_strokes; }
    void setStrokes(const QVariantList &strokes);

    QString displayId() const { return m_displayId; }
    void setDisplayId(const QString &displayId);

    bool mirrorAnnotations() const { return m_mirrorAnnotations; }
    void setMirrorAnnotations(bool mirror);

    QColor defaultColor() const { return m_defaultColor; }
    void setDefaultColor(const QColor &color);

    int defaultWidth() const { return m_defaultWidth; }
    void setDefaultWidth(int width);

    int defaultSmoothing() const { return m_defaultSmoothing; }
    void setDefaultSmoothing(int smoothing);

    bool hasContent() const { return m_hasContent; }

    // Brings the layer up to date at the painter's device scale and paints
    // it; the window draws the same layer through the scene graph.
    void paint(QPainter *painter);
    // The areas of the layer that are drawn, in its device pixels.
    QList<QRect> drawnAreas() const { return m_tiles.runs(); }

signals:
    void drawingModelChanged();
    void strokesChanged();
    void displayIdChanged();
    void mirrorAnnotationsChanged();
    void defaultColorChanged();
    void defaultWidthChanged();
    void defaultSmoothingChanged();
    void hasContentChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    Q_DISABLE_COPY_MOVE(DrawingRendererItem)

    QList<Stroke> sourceStrokes() const;
    void onModelDestroyed();
    void strokesMayHaveChanged();
    void invalidateLayer();
    bool layerStillShows(const QList<Stroke> &strokes, QSize pixels, QSizeF scale) const;
    void paintOntoLayer(const QList<Stroke> &strokes, qsizetype from);
    // True when the layer's pixels changed.
    bool updateLayer(const QList<Stroke> &strokes, QSize pixels, QSizeF scale);
    void dropLayer();

    QPointer<DrawingModel> m_model;
    QList<QMetaObject::Connection> m_modelConnections;
    QVariantList m_strokes;
    QString m_displayId;
    bool m_mirrorAnnotations = false;
    QColor m_defaultColor { 0xF4, 0xC2, 0x4A };
    int m_defaultWidth = 6;
    int m_defaultSmoothing = 2;

    QImage m_layer;
    QSizeF m_layerScale;
    QList<Stroke> m_layerStrokes;
    QColor m_layerDefaultColor;
    int m_layerDefaultWidth = 0;
    bool m_layerUsesDefaultColor = false;
    bool m_layerUsesDefaultWidth = false;
    bool m_layerValid = false;
    LayerTiles m_tiles;
    bool m_hasContent = false;
};
