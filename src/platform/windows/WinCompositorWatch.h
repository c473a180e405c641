#pragma once

#include "platform/CompositorWatch.h"

// The desktop window manager composes every window on the supported Windows
// versions and cannot be switched off.
class WinCompositorWatch final : public CompositorWatch
{
    Q_OBJECT

public:
    bool isActive() const override { return true; }
};
