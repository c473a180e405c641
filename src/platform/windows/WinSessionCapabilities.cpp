#include "platform/windows/WinSessionCapabilities.h"

std::unique_ptr<SessionCapabilities> SessionCapabilities::create()
{
    return std::make_unique<WinSessionCapabilities>();
}
