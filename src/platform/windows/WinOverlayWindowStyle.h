#pragma once

#include "platform/OverlayWindowStyle.h"

// Qt's frameless, stays-on-top tool window already is what the overlay needs
// here; the layered and topmost bits come with the pass-through style.
class WinOverlayWindowStyle : public OverlayWindowStyle
{
public:
    void apply(QWindow *window, Focus focus) override;
};
