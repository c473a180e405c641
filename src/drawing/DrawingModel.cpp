#include "drawing/DrawingModel.h"

DrawingModel::DrawingModel(QObject *parent)
    : QObject(parent)
{
}

QVariantList DrawingModel::strokes() const
{
    QVariantList maps;
    maps.reserve(m_strokes.size());
    for (const Stroke &stroke : m_strokes)
        maps.append(stroke.toMap());
    return maps;
}

void DrawingModel::setUndoRedoEnabled(bool enabled)
{
    if (m_undoRedoEnabled == enabled)
        return;
    m_undoRedoEnabled = enabled;
    if (!enabled) {
        m_undoStack.clear();
        m_redoStack.clear();
    }
    emit undoRedoEnabledChanged();
    // canUndo and canRedo notify through strokesChanged only.
    emit strokesChanged();
}

void DrawingModel::beginStroke(QPointF point, const QString &tool, int width, const QString &color,
                               const QString &displayId, int smoothing)
{
    // A stroke still in progress is dropped without a trace.
    m_currentPoints.clear();
    m_current = Stroke { tool, width, color, displayId, smoothing, {} };
    m_inProgress = true;
    appendPoint(point);
}

void DrawingModel::appendPoint(QPointF point)
{
    if (m_inProgress)
        m_currentPoints.append(point);
}

void DrawingModel::endStroke()
{
    if (!m_inProgress)
        return;
    if (m_undoRedoEnabled) {
        m_undoStack.append(m_strokes);
        m_redoStack.clear();
    }
    m_current.points = m_currentPoints;
    m_strokes.append(m_current);
    resetCurrent();
    emit strokesChanged();
}

void DrawingModel::cancelStroke()
{
    if (m_inProgress)
        resetCurrent();
}

void DrawingModel::undoLastStroke()
{
    if (!m_undoRedoEnabled || m_undoStack.isEmpty())
        return;
    m_redoStack.append(m_strokes);
    m_strokes = m_undoStack.takeLast();
    emit strokesChanged();
}

void DrawingModel::redoLastStroke()
{
    if (!m_undoRedoEnabled || m_redoStack.isEmpty())
        return;
    m_undoStack.append(m_strokes);
    m_strokes = m_redoStack.takeLast();
    emit strokesChanged();
}

void DrawingModel::clear()
{
    // Nothing to clear: the redo stack survives and nobody is told.
    if (m_strokes.isEmpty())
        return;
    if (m_undoRedoEnabled) {
        m_undoStack.append(m_strokes);
        m_redoStack.clear();
    }
    m_strokes.clear();
    emit strokesChanged();
}

void DrawingModel::resetCurrent()
{
    m_currentPoints.clear();
    m_current = Stroke();
    m_inProgress = false;
}
