#include "platform/windows/WinPointerActivity.h"

std::unique_ptr<PointerActivity> PointerActivity::create()
{
    return std::make_unique<WinPointerActivity>();
}
