#pragma once

#include "platform/CursorPosition.h"

typedef struct xcb_connection_t xcb_connection_t;

// Pointer position through a connection of its own, so that the recording
// worker's thread never touches the GUI thread's display connection.
class XcbCursorPosition : public CursorPosition
{
public:
    XcbCursorPosition();
    ~XcbCursorPosition() override;
    XcbCursorPosition(const XcbCursorPosition &) = delete;
    XcbCursorPosition &operator=(const XcbCursorPosition &) = delete;

    std::optional<QPoint> position() const override;

private:
    xcb_connection_t *m_connection = nullptr;
    unsigned m_root = 0;
};
