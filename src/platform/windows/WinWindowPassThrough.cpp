#include "platform/windows/WinWindowPassThrough.h"

#include "platform/PassThroughStyle.h"

#include <QWindow>

#include <windows.h>

// The style rule is written and tested with its own copy of these bits.
static_assert(PassThroughStyle::Transparent == WS_EX_TRANSPARENT);
static_assert(PassThroughStyle::Layered == WS_EX_LAYERED);
static_assert(PassThroughStyle::Topmost == WS_EX_TOPMOST);

std::unique_ptr<WindowPassThrough> WindowPassThrough::create()
{
    return std::make_unique<WinWindowPassThrough>();
}

void WinWindowPassThrough::setPassThrough(QWindow *window, bool passThrough)
{
    if (!window)
        return;
    const auto hwnd = reinterpret_cast<HWND>(window->winId());
    if (!hwnd)
        return;
    const auto current = static_cast<uint32_t>(GetWindowLongPtrW(hwnd, GWL_EXSTYLE));
    // No z-order call goes with it: raising is left to QWindow::raise.
    if (const auto style = PassThroughStyle::styleToWrite(current, passThrough))
        SetWindowLongPtrW(hwnd, GWL_EXSTYLE, static_cast<LONG_PTR>(*style));
}

void WinWindowPassThrough::excludeFromCapture(QWindow *window)
{
    if (!window)
        return;
    if (const auto hwnd = reinterpret_cast<HWND>(window->winId()))
        SetWindowDisplayAffinity(hwnd, WDA_EXCLUDEFROMCAPTURE);
}
