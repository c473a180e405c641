#include "recording/RecordingBackend.h"

#include <QScreen>

#include <algorithm>
#include <cmath>

QRect RecordingBackend::captureRectForScreen(QScreen *screen)
{
    if (!screen)
        return QRect();
    const QRect g = screen->geometry();
    const qreal dpr = screen->devicePixelRatio();
    const auto even = [](int v) {
        return std::max(v, 2) & ~1;
    };
    return QRect(int(std::lround(g.x() * dpr)), int(std::lround(g.y() * dpr)),
                 even(int(std::lround(g.width() * dpr))), even(int(std::lround(g.height() * dpr))));
}
