#pragma once

#include <QList>
#include <QRect>
#include <QSize>

// Which square tiles of a layer of pixels may hold paint. Only those are put
// on screen: a full-screen layer drawn whole would cost a software renderer
// a full-screen blend in every frame, even when all that moves is the
// spotlight below a few strokes.
class LayerTiles
{
public:
    static constexpr int tileSize = 32;

    // All tiles empty.
    void reset(QSize pixels);
    void mark(const QRect &pixelArea);

    QSize pixels() const { return m_pixels; }
    bool isEmpty() const { return !m_marked.contains(true); }
    // The marked tiles, one rectangle for each run of them along a row,
    // within the layer.
    QList<QRect> runs() const;

private:
    QSize m_pixels;
    int m_columns = 0;
    int m_rows = 0;
    QList<bool> m_marked;
};
