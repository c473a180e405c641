#pragma once

#include "platform/KeyboardFocus.h"

#include <QPointer>
#include <QWindow>

// The foreground window before the dialog takes the keyboard comes back to
// the front after it.
class WinKeyboardFocus final : public KeyboardFocus
{
public:
    void lendTo(QWindow *window) override;
    void giveBack() override;

private:
    QPointer<QWindow> m_borrower;
    void *m_previous = nullptr;
};
