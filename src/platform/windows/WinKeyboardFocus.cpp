#include "platform/windows/WinKeyboardFocus.h"

#include <windows.h>

std::unique_ptr<KeyboardFocus> KeyboardFocus::create()
{
    return std::make_unique<WinKeyboardFocus>();
}

void WinKeyboardFocus::lendTo(QWindow *window)
{
    if (!window)
        return;
    if (m_borrower != window) {
        const HWND foreground = GetForegroundWindow();
        if (foreground != reinterpret_cast<HWND>(window->winId()))
            m_previous = foreground;
    }
    m_borrower = window;
    window->requestActivate();
}

void WinKeyboardFocus::giveBack()
{
    QWindow *borrower = m_borrower;
    m_borrower = nullptr;
    const HWND previous = static_cast<HWND>(m_previous);
    m_previous = nullptr;
    if (!borrower || !previous || !IsWindow(previous)
        || GetForegroundWindow() != reinterpret_cast<HWND>(borrower->winId()))
        return;
    SetForegroundWindow(previous);
}
