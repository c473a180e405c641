#pragma once

#include "platform/WindowPassThrough.h"

// Pass-through through the extended window style; capture exclusion through
// the display affinity.
class WinWindowPassThrough : public WindowPassThrough
{
public:
    void setPassThrough(QWindow *window, bool passThrough) override;
    void excludeFromCapture(QWindow *window) override;
};
