#include "platform/PassThroughStyle.h"

namespace PassThroughStyle {

std::optional<uint32_t> styleToWrite(uint32_t current, bool passThrough)
{
    const bool transparent = (current & Transparent) != 0;
    const bool layeredTopmost = (current & (Layered | Topmost)) == (Layered | Topmost);
    if (transparent == passThrough && layeredTopmost)
        return std::nullopt;
    uint32_t style = current | Layered | Topmost;
    if (passThrough)
        style |= Transparent;
    else
        style &= ~Transparent;
    return style;
}

} // namespace PassThroughStyle
