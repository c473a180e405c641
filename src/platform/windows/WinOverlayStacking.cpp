#include "platform/windows/WinOverlayStacking.h"

#include <QWindow>

std::unique_ptr<OverlayStacking> OverlayStacking::create()
{
    return std::make_unique<WinOverlayStacking>();
}

void WinOverlayStacking::setWindows(const QList<QWindow *> &bottomToTop)
{
    for (QWindow *window : bottomToTop)
        window->raise();
}
