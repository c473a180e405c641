#include "platform/WinAcrylic.h"

#include <QWindow>

#include <dwmapi.h>
#include <windows.h>

namespace {

// Attribute numbers as the desktop window manager takes them; older SDK
// headers lack the names.
constexpr DWORD useImmersiveDarkMode = 20;
constexpr DWORD windowCornerPreference = 33;
constexpr DWORD systemBackdropType = 38;
// The main-window material as systems before the backdrop attribute know it.
constexpr DWORD legacyMicaEffect = 1029;
constexpr int roundCorners = 2;
constexpr int mainWindowBackdrop = 2;
constexpr int transientWindowBackdrop = 3;

HWND handleOf(QObject *object)
{
    auto *window = qobject_cast<QWindow *>(object);
    return window ? reinterpret_cast<HWND>(window->winId()) : nullptr;
}

// Every attribute used here takes a 32-bit value.
HRESULT setAttribute(HWND hwnd, DWORD attribute, int value)
{
    const qint32 data = value;
    return DwmSetWindowAttribute(hwnd, attribute, &data, sizeof data);
}

// Results are ignored: a refused material leaves the system's look.
void applyBackdrop(HWND hwnd, int type)
{
    setAttribute(hwnd, useImmersiveDarkMode, TRUE);
    const MARGINS wholeClientArea { -1, -1, -1, -1 };
    DwmExtendFrameIntoClientArea(hwnd, &wholeClientArea);
    // Only the main-window material has an older form to fall back on.
    if (FAILED(setAttribute(hwnd, systemBackdropType, type)) && type == mainWindowBackdrop)
        setAttribute(hwnd, legacyMicaEffect, TRUE);
    setAttribute(hwnd, windowCornerPreference, roundCorners);
}

} // namespace

void WinAcrylic::applyMica(QObject *window)
{
    if (HWND hwnd = handleOf(window))
        applyBackdrop(hwnd, mainWindowBackdrop);
}

void WinAcrylic::applyAcrylic(QObject *window)
{
    if (HWND hwnd = handleOf(window))
        applyBackdrop(hwnd, transientWindowBackdrop);
}

void WinAcrylic::applyDarkTitleBar(QObject *window)
{
    if (HWND hwnd = handleOf(window))
        setAttribute(hwnd, useImmersiveDarkMode, TRUE);
}
