#include "drawing/LayerTiles.h"

#include <algorithm>

void LayerTiles::reset(QSize pixels)
{
    m_pixels = pixels;
    m_columns = (pixels.width() + tileSize - 1) / tileSize;
    m_rows = (pixels.height() + tileSize - 1) / tileSize;
    m_marked.fill(false, qsizetype(std::max(0, m_columns * m_rows)));
}

void LayerTiles::mark(const QRect &pixelArea)
{
    const QRect area = pixelArea & QRect(QPoint(0, 0), m_pixels);
    if (area.isEmpty())
        return;
    for (int row = area.top() / tileSize; row <= area.bottom() / tileSize; ++row) {
        for (int column = area.left() / tileSize; column <= area.right() / tileSize; ++column)
            m_marked[row * m_columns + column] = true;
    }
}

QList<QRect> LayerTiles::runs() const
{
    QList<QRect> result;
    const QRect layer(QPoint(0, 0), m_pixels);
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            if (!m_marked[row * m_columns + column])
                continue;
            int end = column;
            while (end + 1 < m_columns && m_marked[row * m_columns + end + 1])
                ++end;
            result.append(
                QRect(column * tileSize, row * tileSize, (end - column + 1) * tileSize, tileSize)
                & layer);
            column = end;
        }
    }
    return result;
}
