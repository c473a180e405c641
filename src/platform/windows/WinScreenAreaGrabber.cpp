#include "platform/windows/WinScreenAreaGrabber.h"

#include <QPixmap>
#include <QScreen>

std::unique_ptr<ScreenAreaGrabber> ScreenAreaGrabber::create()
{
    return std::make_unique<WinScreenAreaGrabber>();
}

QImage WinScreenAreaGrabber::grab(QScreen *screen, const QRect &area, QWindow *)
{
    if (!screen || area.isEmpty())
        return {};
    const QRect local = area.translated(-screen->geometry().topLeft());
    return screen->grabWindow(0, local.x(), local.y(), local.width(), local.height()).toImage();
}
