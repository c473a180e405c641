#include "platform/windows/WinOverlayWindowStyle.h"

std::unique_ptr<OverlayWindowStyle> OverlayWindowStyle::create()
{
    return std::make_unique<WinOverlayWindowStyle>();
}

void WinOverlayWindowStyle::apply(QWindow * /*window*/, Focus /*focus*/) { }
