#pragma once

#include "platform/KeyboardFocus.h"

#include <QPointer>
#include <QWindow>

#include <cstdint>

typedef struct xcb_connection_t xcb_connection_t;

// Our windows bypass the window manager, which therefore never hands the
// focus back when they are done with it: the window that had it is kept here.
class XcbKeyboardFocus final : public KeyboardFocus
{
public:
    XcbKeyboardFocus();

    void lendTo(QWindow *window) override;
    void giveBack() override;

private:
    uint32_t currentFocus() const;

    xcb_connection_t *m_connection = nullptr;
    QPointer<QWindow> m_borrower;
    uint32_t m_previous = 0;
};
