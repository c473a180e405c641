#include "platform/linux/XcbOverlayWindowStyle.h"

#include <QGuiApplication>
#include <QList>
#include <QLoggingCategory>
#include <QPlatformSurfaceEvent>
#include <QWindow>

#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

Q_LOGGING_CATEGORY(lcStyle, "glimmora.platform")

std::unique_ptr<OverlayWindowStyle> OverlayWindowStyle::create()
{
    return std::make_unique<XcbOverlayWindowStyle>();
}

XcbOverlayWindowStyle::XcbOverlayWindowStyle(QObject *parent)
    : QObject(parent)
{
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    m_connection = x11 ? x11->connection() : nullptr;
    if (!m_connection)
        return;
    m_bypassCompositor = internAtom("_NET_WM_BYPASS_COMPOSITOR");
    m_state = internAtom("_NET_WM_STATE");
    m_skipTaskbar = internAtom("_NET_WM_STATE_SKIP_TASKBAR");
    m_skipPager = internAtom("_NET_WM_STATE_SKIP_PAGER");
}

void XcbOverlayWindowStyle::apply(QWindow *window, Focus focus)
{
    if (!window)
        return;
    Qt::WindowFlags wanted = Qt::X11BypassWindowManagerHint;
    if (focus == Focus::Never)
        wanted |= Qt::WindowDoesNotAcceptFocus;
    if (!m_windows.contains(window)) {
        window->installEventFilter(this);
        connect(window, &QObject::destroyed, this, [this, window] { m_windows.remove(window); });
    }
    m_windows.insert(window, wanted);
    if (window->isVisible())
        qCWarning(lcStyle) << "XcbOverlayWindowStyle: styled after it was shown;"
                           << "a window manager may already hold it";
    withStyle(window);
}

bool XcbOverlayWindowStyle::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PlatformSurface
        && static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType()
            == QPlatformSurfaceEvent::SurfaceCreated) {
        // The native window exists and is not mapped yet: the last moment at
        // which override-redirect keeps the window manager out. A document's
        // own flags binding may have replaced ours since apply().
        withStyle(static_cast<QWindow *>(watched));
    }
    return QObject::eventFilter(watched, event);
}

void XcbOverlayWindowStyle::withStyle(QWindow *window)
{
    const Qt::WindowFlags wanted = m_windows.value(window);
    Qt::WindowFlags flags = window->flags() | wanted;
    flags.setFlag(Qt::WindowDoesNotAcceptFocus, wanted.testFlag(Qt::WindowDoesNotAcceptFocus));
    if (flags != window->flags())
        window->setFlags(flags);
    if (window->handle())
        writeProperties(static_cast<uint32_t>(window->winId()));
}

void XcbOverlayWindowStyle::writeProperties(uint32_t nativeWindow)
{
    if (!m_connection || nativeWindow == 0)
        return;
    // 2: keep compositing even when the window covers a whole monitor, so the
    // compositor does not unredirect a full-screen window below it.
    const uint32_t bypassCompositor = 2;
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, nativeWindow, m_bypassCompositor,
                        XCB_ATOM_CARDINAL, 32, 1, &bypassCompositor);
    addStates(nativeWindow);
    xcb_flush(m_connection);
}

void XcbOverlayWindowStyle::addStates(uint32_t nativeWindow)
{
    // Qt merges its own states into what it finds on the window before it
    // maps it, so these stay; only the missing ones are added.
    QList<uint32_t> states;
    xcb_get_property_reply_t *reply = xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, nativeWindow, m_state, XCB_ATOM_ATOM, 0, 1024), nullptr);
    if (reply && reply->format == 32 && reply->type == XCB_ATOM_ATOM) {
        const auto *atoms = static_cast<const uint32_t *>(xcb_get_property_value(reply));
        states = QList<uint32_t>(atoms, atoms + xcb_get_property_value_length(reply) / 4);
    }
    std::free(reply);
    const qsizetype before = states.size();
    for (uint32_t wanted : { m_skipTaskbar, m_skipPager }) {
        if (!states.contains(wanted))
            states.append(wanted);
    }
    if (states.size() == before)
        return;
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, nativeWindow, m_state, XCB_ATOM_ATOM,
                        32, static_cast<uint32_t>(states.size()), states.constData());
}

uint32_t XcbOverlayWindowStyle::internAtom(const char *name) const
{
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
        m_connection,
        xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr);
    if (!reply)
        return XCB_ATOM_NONE;
    const uint32_t result = reply->atom;
    std::free(reply);
    return result;
}
