#include "platform/windows/WinCompositorWatch.h"

std::unique_ptr<CompositorWatch> CompositorWatch::create()
{
    return std::make_unique<WinCompositorWatch>();
}
