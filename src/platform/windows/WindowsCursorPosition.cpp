#include "platform/windows/WindowsCursorPosition.h"

#include <windows.h>

std::unique_ptr<CursorPosition> CursorPosition::create()
{
    return std::make_unique<WindowsCursorPosition>();
}

std::optional<QPoint> WindowsCursorPosition::position() const
{
    POINT point {};
    if (!GetCursorPos(&point))
        return std::nullopt;
    return QPoint(point.x, point.y);
}
