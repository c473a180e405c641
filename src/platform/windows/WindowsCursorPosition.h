#pragma once

#include "platform/CursorPosition.h"

// GetCursorPos, in physical desktop pixels.
class WindowsCursorPosition : public CursorPosition
{
public:
    std::optional<QPoint> position() const override;
};
