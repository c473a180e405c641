#pragma once

#include "platform/ScreenAreaGrabber.h"

// On Windows the HUD window is excluded from capture by its display
// affinity, so a plain grab already leaves the lens out.
class WinScreenAreaGrabber final : public ScreenAreaGrabber
{
public:
    QImage grab(QScreen *screen, const QRect &area, QWindow *above) override;
};
