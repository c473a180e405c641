#include "platform/linux/XcbWindowPassThrough.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPlatformSurfaceEvent>
#include <QWindow>

#include <vector>
#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace {
Q_LOGGING_CATEGORY(lcPassThrough, "glimmora.platform")
}

std::unique_ptr<WindowPassThrough> WindowPassThrough::create()
{
    return std::make_unique<XcbWindowPassThrough>();
}

XcbWindowPassThrough::XcbWindowPassThrough(QObject *parent)
    : QObject(parent)
{
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    m_connection = x11 ? x11->connection() : nullptr;
    if (!m_connection)
        return;
    const xcb_query_extension_reply_t *shape = xcb_get_extension_data(m_connection, &xcb_shape_id);
    m_shapeAvailable = shape && shape->present;
    if (!m_shapeAvailable)
        qCWarning(lcPassThrough) << "XcbWindowPassThrough: the X server has no SHAPE extension;"
                                 << "overlay windows will take every click";
}

void XcbWindowPassThrough::setPassThrough(QWindow *window, bool passThrough)
{
    want(window, Input { !passThrough, {} });
}

bool XcbWindowPassThrough::setInputArea(QWindow *window, const QRegion &area)
{
    if (!m_shapeAvailable)
        return false;
    want(window, Input { false, area });
    return true;
}

void XcbWindowPassThrough::want(QWindow *window, const Input &input)
{
    if (!window || !m_shapeAvailable)
        return;
    track(window);
    WindowState &state = m_windows[window];
    state.wanted = input;
    apply(window, state);
}

void XcbWindowPassThrough::setVisibleArea(QWindow *window, const std::optional<QRegion> &area)
{
    if (!window || !m_shapeAvailable)
        return;
    track(window);
    WindowState &state = m_windows[window];
    if (state.visibleArea == area)
        return;
    state.visibleArea = area;
    state.visibleAreaApplied = false;
    apply(window, state);
}

void XcbWindowPassThrough::excludeFromCapture(QWindow *window)
{
    Q_UNUSED(window)
    if (m_captureLimitLogged)
        return;
    m_captureLimitLogged = true;
    qCInfo(lcPassThrough)
        << "XcbWindowPassThrough: X11 cannot exclude windows from capture;"
        << "the controls window steps aside for screenshots and shows in recordings";
}

bool XcbWindowPassThrough::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PlatformSurface) {
        auto *window = static_cast<QWindow *>(watched);
        auto it = m_windows.find(window);
        if (it != m_windows.end()) {
            const auto surfaceEvent =
                static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType();
            if (surfaceEvent == QPlatformSurfaceEvent::SurfaceCreated) {
                // A new native window starts with no input region: it takes the mouse.
                it->nativeWindow = static_cast<uint32_t>(window->winId());
                it->applied = Input {};
                it->visibleAreaApplied = !it->visibleArea;
                apply(window, *it);
            } else {
                it->nativeWindow = 0;
                it->applied.reset();
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

void XcbWindowPassThrough::track(QWindow *window)
{
    if (m_windows.contains(window))
        return;
    WindowState state;
    if (window->handle())
        state.nativeWindow = static_cast<uint32_t>(window->winId());
    m_windows.insert(window, state);
    window->installEventFilter(this);
    connect(window, &QObject::destroyed, this, [this, window] { m_windows.remove(window); });
}

void XcbWindowPassThrough::apply(QWindow *window, WindowState &state)
{
    // Without a native window the state waits for SurfaceCreated.
    if (!window->handle() || state.nativeWindow == 0)
        return;
    if (!state.visibleAreaApplied) {
        writeVisibleArea(window, state);
        state.visibleAreaApplied = true;
    }
    if (state.applied == state.wanted)
        return;
    writeRegion(state.nativeWindow, state.wanted, window->devicePixelRatio());
    state.applied = state.wanted;
}

void XcbWindowPassThrough::writeVisibleArea(QWindow *window, const WindowState &state)
{
    if (!state.visibleArea) {
        xcb_shape_mask(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, state.nativeWindow, 0,
                       0, XCB_NONE);
    } else {
        // The region is in the window's own units; the server counts pixels.
        const qreal ratio = window->devicePixelRatio();
        std::vector<xcb_rectangle_t> rectangles;
        for (const QRect &rect : *state.visibleArea) {
            const QRect pixels =
                QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio)
                    .toAlignedRect();
            rectangles.push_back({ int16_t(pixels.x()), int16_t(pixels.y()),
                                   uint16_t(pixels.width()), uint16_t(pixels.height()) });
        }
        xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                             XCB_CLIP_ORDERING_UNSORTED, state.nativeWindow, 0, 0,
                             uint32_t(rectangles.size()), rectangles.data());
    }
    xcb_flush(m_connection);
}

void XcbWindowPassThrough::writeRegion(uint32_t nativeWindow, const Input &input, qreal ratio)
{
    if (input.whole) {
        xcb_shape_mask(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, nativeWindow, 0, 0,
                       XCB_NONE);
    } else {
        // The server counts in device pixels.
        std::vector<xcb_rectangle_t> rectangles;
        for (const QRect &rect : input.area) {
            const QRect device =
                QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio)
                    .toAlignedRect();
            rectangles.push_back({ int16_t(device.x()), int16_t(device.y()),
                                   uint16_t(device.width()), uint16_t(device.height()) });
        }
        xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                             XCB_CLIP_ORDERING_UNSORTED, nativeWindow, 0, 0,
                             uint32_t(rectangles.size()), rectangles.data());
    }
    // The poll decides in one event-loop turn; the server should see it now.
    xcb_flush(m_connection);
}
