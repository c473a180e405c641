#include "platform/linux/XcbCompositeGrabber.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <cstdlib>
#include <memory>
#include <vector>
#include <xcb/composite.h>

Q_LOGGING_CATEGORY(lcGrabber, "glimmora.magnifier")

namespace {

struct FreeReply
{
    void operator()(void *reply) const { std::free(reply); }
};

template<typename T>
using Reply = std::unique_ptr<T, FreeReply>;

QRect toNative(const QScreen *screen, const QRect &area)
{
    // Qt keeps a screen's origin in device pixels and scales only the offset
    // within it.
    const qreal ratio = screen->devicePixelRatio();
    const QPoint origin = screen->geometry().topLeft();
    const QPointF offset = QPointF(area.topLeft() - origin) * ratio;
    return QRect(origin + offset.toPoint(), (QSizeF(area.size()) * ratio).toSize());
}

} // namespace

std::unique_ptr<ScreenAreaGrabber> ScreenAreaGrabber::create()
{
    return std::make_unique<XcbCompositeGrabber>();
}

XcbCompositeGrabber::XcbCompositeGrabber()
{
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    m_connection = x11 ? x11->connection() : nullptr;
    if (!m_connection)
        return;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const xcb_query_extension_reply_t *extension =
        xcb_get_extension_data(m_connection, &xcb_composite_id);
    if (!extension || !extension->present)
        return;
    Reply<xcb_composite_query_version_reply_t> version(xcb_composite_query_version_reply(
        m_connection, xcb_composite_query_version(m_connection, 0, 2), nullptr));
    // Naming window pixmaps needs Composite 0.2.
    m_compositeAvailable = version && (version->major_version > 0 || version->minor_version >= 2);
}

QImage XcbCompositeGrabber::grab(QScreen *screen, const QRect &area, QWindow *above)
{
    if (!screen || area.isEmpty())
        return {};
    if (m_compositeAvailable && above) {
        const xcb_window_t stopAt = topLevelOf(static_cast<xcb_window_t>(above->winId()));
        if (stopAt != XCB_NONE) {
            QImage composed = composeBelow(toNative(screen, area), stopAt);
            if (!composed.isNull())
                return composed;
        }
    }
    return plainGrab(screen, area);
}

QImage XcbCompositeGrabber::composeBelow(const QRect &nativeArea, xcb_window_t stopAt)
{
    Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    if (!tree)
        return {};
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());

    // Ask for every window's state at once; the replies come back in one go.
    std::vector<xcb_get_window_attributes_cookie_t> attributeCookies(count);
    std::vector<xcb_get_geometry_cookie_t> geometryCookies(count);
    for (int i = 0; i < count; ++i) {
        attributeCookies[i] = xcb_get_window_attributes(m_connection, children[i]);
        geometryCookies[i] = xcb_get_geometry(m_connection, children[i]);
    }

    QImage result(nativeArea.size(), QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::black);
    QPainter painter(&result);
    bool reachedStop = false;
    for (int i = 0; i < count; ++i) {
        Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(m_connection, attributeCookies[i], nullptr));
        Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(m_connection, geometryCookies[i], nullptr));
        if (reachedStop || children[i] == stopAt) {
            reachedStop = true;
            continue; // the remaining replies still have to be collected
        }
        if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE
            || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY)
            continue;
        const int border = geometry->border_width;
        const QRect windowRect(geometry->x, geometry->y, geometry->width + 2 * border,
                               geometry->height + 2 * border);
        const QRect part = windowRect & nativeArea;
        if (part.isEmpty())
            continue;

        const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
        xcb_generic_error_t *error = xcb_request_check(
            m_connection,
            xcb_composite_name_window_pixmap_checked(m_connection, children[i], pixmap));
        if (error) {
            // Not redirected: no compositing manager runs, and there is nothing below to read.
            std::free(error);
            return {};
        }
        const QPoint inWindow = part.topLeft() - windowRect.topLeft();
        Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(
            m_connection,
            xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, inWindow.x(),
                          inWindow.y(), part.width(), part.height(), ~0u),
            nullptr));
        xcb_free_pixmap(m_connection, pixmap);
        if (!image || xcb_get_image_data_length(image.get()) < part.width() * part.height() * 4)
            continue;
        const QImage piece(
            xcb_get_image_data(image.get()), part.width(), part.height(), part.width() * 4,
            image->depth == 32 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
        painter.drawImage(part.topLeft() - nativeArea.topLeft(), piece);
    }
    return reachedStop ? result : QImage();
}

xcb_window_t XcbCompositeGrabber::topLevelOf(xcb_window_t window) const
{
    // Walk up to the child of the root: a reparenting window manager puts a
    // frame between the two.
    while (window != XCB_NONE) {
        Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
        if (!tree)
            return XCB_NONE;
        if (tree->parent == m_root)
            return window;
        window = tree->parent;
    }
    return XCB_NONE;
}

QImage XcbCompositeGrabber::plainGrab(QScreen *screen, const QRect &area)
{
    if (!m_warnedPlainGrab) {
        m_warnedPlainGrab = true;
        qCInfo(lcGrabber) << "XcbCompositeGrabber: no compositing manager; the lens reads the "
                             "screen as shown and may contain itself";
    }
    const QRect local = area.translated(-screen->geometry().topLeft());
    return screen->grabWindow(0, local.x(), local.y(), local.width(), local.height()).toImage();
}
