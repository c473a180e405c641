#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>

#include <cstdint>

struct xcb_connection_t;

// A second client on the test's X server that acts as the user: it moves the
// pointer and clicks through XTest and looks at windows the way any other
// client sees them.
class XTestSession
{
public:
    XTestSession();
    ~XTestSession();
    XTestSession(const XTestSession &) = delete;
    XTestSession &operator=(const XTestSession &) = delete;

    bool isValid() const { return m_connection != nullptr; }

    void moveTo(QPoint global);
    // Moves there, presses and releases; returns once the server has done it.
    void click(QPoint global, int button = 1);
    void press(int button);
    void release(int button);

    uint32_t inputFocus();
    QRect geometry(uint32_t window);
    bool isOverrideRedirect(uint32_t window);
    uint32_t cardinalProperty(uint32_t window, const char *name);
    QList<uint32_t> atomProperty(uint32_t window, const char *name);
    uint32_t atom(const char *name);
    // The window that owns a selection, 0 when nobody does.
    uint32_t selectionOwner(const char *selection);

    // The composited colour at a global point as 0xRRGGBB.
    uint32_t rootPixel(QPoint global);
    // The composited picture of a global area, opaque; null if it failed.
    QImage rootImage(const QRect &area);

    // Rectangles of the window's input region: none when it lets the mouse through.
    int inputRectangleCount(uint32_t window);
    // Whether the window's input region holds a global point.
    bool takesInputAt(uint32_t window, QPoint global);

    // The windows that take a click at a global point, from the top-level
    // window down to the innermost one.
    QList<uint32_t> windowsAt(QPoint global);

    // Mapped top-level windows whose _NET_WM_PID is pid, bottom to top.
    QList<uint32_t> mappedWindowsOf(qint64 pid);
    // The root's child that holds the window (a window manager's frame, or
    // the window itself), and the root's children bottom to top.
    uint32_t topLevelOf(uint32_t window);
    QList<uint32_t> stackingOrder();

    // Counts changes of the window's input region from here on.
    void watchInputShape(uint32_t window);
    // The input-region changes seen since the last call, after everything
    // sent before by `other` (the connection that changes it) has arrived.
    int takeInputShapeChanges(uint32_t window, xcb_connection_t *other);

    // Whether another client holds an active grab of the keyboard.
    bool keyboardGrabbed();

    // Waits until the server has processed every request sent so far.
    void sync();

private:
    void drainEvents();

    xcb_connection_t *m_connection = nullptr;
    uint32_t m_root = 0;
    uint8_t m_shapeEventBase = 0;
    QList<uint32_t> m_inputShapeEvents;
};
