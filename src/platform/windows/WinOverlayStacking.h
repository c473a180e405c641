#pragma once

#include "platform/OverlayStacking.h"

// Topmost windows stay above ordinary ones by themselves, and nothing of the
// program can stand above the secure desktop where the lock screen runs, so
// the windows are only raised into their order when they are handed over.
class WinOverlayStacking final : public OverlayStacking
{
    Q_OBJECT

public:
    void setWindows(const QList<QWindow *> &bottomToTop) override;
    bool sessionLocked() const override { return false; }
};
