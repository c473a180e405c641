#pragma once

#include "drawing/Stroke.h"

#include <QObject>
#include <QPointF>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

// The one store of annotation strokes for all displays: the committed list
// in paint order, the stroke being drawn, and whole-list snapshots for undo
// and redo. Snapshots share their records with the list through implicit
// sharing, so history costs a reference per step until the list changes.
class DrawingModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("DrawingModel is provided by the application as drawingModel")
    Q_PROPERTY(QVariantList strokes READ strokes NOTIFY strokesChanged FINAL)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY strokesChanged FINAL)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY strokesChanged FINAL)
    Q_PROPERTY(bool undoRedoEnabled READ undoRedoEnabled WRITE setUndoRedoEnabled NOTIFY
                   undoRedoEnabledChanged FINAL)

public:
    explicit DrawingModel(QObject *parent = nullptr);

    // Built afresh at each read; the renderer uses strokeList() instead.
    QVariantList strokes() const;
    const QList<Stroke> &strokeList() const { return m_strokes; }

    bool canUndo() const { return m_undoRedoEnabled && !m_undoStack.isEmpty(); }
    bool canRedo() const { return m_undoRedoEnabled && !m_redoStack.isEmpty(); }

    bool undoRedoEnabled() const { return m_undoRedoEnabled; }
    void setUndoRedoEnabled(bool enabled);

public slots:
    void beginStroke(QPointF point, const QString &tool, int width, const QString &color,
                     const QString &displayId = QString(), int smoothing = 2);
    void appendPoint(QPointF point);
    void endStroke();
    void cancelStroke();
    void undoLastStroke();
    void redoLastStroke();
    void clear();

signals:
    void strokesChanged();
    void undoRedoEnabledChanged();

private:
    Q_DISABLE_COPY_MOVE(DrawingModel)

    void resetCurrent();

    QList<Stroke> m_strokes;
    QList<QPointF> m_currentPoints;
    QList<QList<Stroke>> m_undoStack;
    QList<QList<Stroke>> m_redoStack;
    Stroke m_current;
    bool m_undoRedoEnabled = true;
    bool m_inProgress = false;
};
