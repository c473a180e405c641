#include "platform/linux/XcbCompositeGrabber.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <cstdlib>
#include <cstring>
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

xcb_atom_t internAtom(xcb_connection_t *connection, const QByteArray &name)
{
    Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, uint16_t(name.size()), name.constData()),
        nullptr));
    return reply ? reply->atom : XCB_NONE;
}

// A window may vanish between listing and drawing; its errors mean nothing
// then, and must not reach the toolkit's error log.
void discard(xcb_connection_t *connection, xcb_void_cookie_t cookie)
{
    xcb_discard_reply(connection, cookie.sequence);
}

QImage imageOf(const xcb_get_image_reply_t *reply, const QSize &size, QImage::Format format)
{
    if (!reply || xcb_get_image_data_length(reply) < size.width() * size.height() * 4)
        return {};
    return QImage(xcb_get_image_data(reply), size.width(), size.height(), size.width() * 4, format)
        .copy();
}

} // namespace

// The pictures of the windows one grab reads, made on first use.
class XcbCompositeGrabber::Pictures
{
public:
    explicit Pictures(xcb_connection_t *connection)
        : m_connection(connection)
    {
    }
    Pictures(const Pictures &) = delete;
    Pictures &operator=(const Pictures &) = delete;

    ~Pictures()
    {
        for (xcb_render_picture_t picture : std::as_const(m_pictures))
            discard(m_connection, xcb_render_free_picture_checked(m_connection, picture));
        for (xcb_pixmap_t pixmap : std::as_const(m_pixmaps))
            discard(m_connection, xcb_free_pixmap_checked(m_connection, pixmap));
    }

    // The off-screen pixmap the compositing manager keeps of the window: its
    // children and its border included.
    xcb_render_picture_t of(const TopLevel &window)
    {
        auto it = m_pictures.constFind(window.id);
        if (it != m_pictures.constEnd())
            return *it;
        const xcb_pixmap_t pixmap = xcb_generate_id(m_connection);
        discard(m_connection,
                xcb_composite_name_window_pixmap_checked(m_connection, window.id, pixmap));
        const xcb_render_picture_t picture = xcb_generate_id(m_connection);
        discard(m_connection,
                xcb_render_create_picture_checked(m_connection, picture, pixmap, window.format, 0,
                                                  nullptr));
        m_pixmaps.append(pixmap);
        m_pictures.insert(window.id, picture);
        return picture;
    }

private:
    xcb_connection_t *m_connection;
    QHash<xcb_window_t, xcb_render_picture_t> m_pictures;
    QList<xcb_pixmap_t> m_pixmaps;
};

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
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    m_root = screen->root;
    for (const xcb_extension_t *extension : { &xcb_composite_id, &xcb_render_id }) {
        const xcb_query_extension_reply_t *present =
            xcb_get_extension_data(m_connection, const_cast<xcb_extension_t *>(extension));
        if (!present || !present->present) {
            qCInfo(lcGrabber) << "XcbCompositeGrabber: the X server lacks"
                              << (extension == &xcb_render_id ? "RENDER" : "Composite");
            return;
        }
    }
    m_managerSelection = internAtom(m_connection, QByteArrayLiteral("_NET_WM_CM_S0"));
    m_rootPixmapAtom = internAtom(m_connection, QByteArrayLiteral("_XROOTPMAP_ID"));
    m_frameExtentsAtom = internAtom(m_connection, QByteArrayLiteral("_NET_FRAME_EXTENTS"));
    m_ready = readFormats() && m_managerSelection != XCB_NONE;
    m_rootFormat = m_formatOfVisual.value(screen->root_visual);
}

bool XcbCompositeGrabber::readFormats()
{
    Reply<xcb_render_query_pict_formats_reply_t> formats(xcb_render_query_pict_formats_reply(
        m_connection, xcb_render_query_pict_formats(m_connection), nullptr));
    if (!formats)
        return false;
    for (auto it = xcb_render_query_pict_formats_formats_iterator(formats.get()); it.rem;
         xcb_render_pictforminfo_next(&it)) {
        const xcb_render_pictforminfo_t &info = *it.data;
        const bool alpha = info.direct.alpha_mask != 0;
        m_formatHasAlpha.insert(info.id, alpha);
        const xcb_render_directformat_t &d = info.direct;
        if (info.type == XCB_RENDER_PICT_TYPE_DIRECT && info.depth == 32 && d.alpha_shift == 24
            && d.alpha_mask == 0xff && d.red_shift == 16 && d.red_mask == 0xff && d.green_shift == 8
            && d.blue_shift == 0)
            m_argbFormat = info.id;
    }
    for (auto screens = xcb_render_query_pict_formats_screens_iterator(formats.get()); screens.rem;
         xcb_render_pictscreen_next(&screens)) {
        for (auto depths = xcb_render_pictscreen_depths_iterator(screens.data); depths.rem;
             xcb_render_pictdepth_next(&depths)) {
            for (auto visuals = xcb_render_pictdepth_visuals_iterator(depths.data); visuals.rem;
                 xcb_render_pictvisual_next(&visuals))
                m_formatOfVisual.insert(visuals.data->visual, visuals.data->format);
        }
    }
    return m_argbFormat != 0;
}

QImage XcbCompositeGrabber::grab(QScreen *screen, const QRect &area, QWindow *leftOut)
{
    if (!m_ready || !screen || area.isEmpty())
        return {};
    const std::optional<xcb_pixmap_t> wallpaper = desktopPicture();
    if (!wallpaper)
        return {};
    const QRect native = toNative(screen, area);
    const xcb_window_t skip =
        leftOut ? topLevelOf(static_cast<xcb_window_t>(leftOut->winId())) : XCB_NONE;
    const QList<TopLevel> windows = viewableTopLevels();
    Pictures pictures(m_connection);

    xcb_pixmap_t pixmap = XCB_NONE;
    const xcb_render_picture_t target = newTarget(native.size(), &pixmap);
    if (*wallpaper != XCB_NONE)
        composeRootPicture(target, native, *wallpaper);
    compose(target, native, QPoint(0, 0), windows, skip, pictures);
    std::optional<DesktopSamples> samples;
    if (*wallpaper == XCB_NONE)
        samples =
            askDesktopSamples(native, toNative(screen, screen->geometry()), windows, pictures);
    const auto cookie = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, 0, 0,
                                      uint16_t(native.width()), uint16_t(native.height()), ~0u);
    if (samples)
        takeDesktopSamples(*samples);
    Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(m_connection, cookie, nullptr));
    QImage result = imageOf(reply.get(), native.size(), QImage::Format_ARGB32_Premultiplied);
    xcb_render_free_picture(m_connection, target);
    xcb_free_pixmap(m_connection, pixmap);

    if (!result.isNull() && *wallpaper == XCB_NONE) {
        QPainter painter(&result);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
        painter.fillRect(result.rect(), QColor::fromRgb(m_desktopColour.value_or(qRgb(0, 0, 0))));
    }
    return result;
}

std::optional<xcb_pixmap_t> XcbCompositeGrabber::desktopPicture()
{
    const auto ownerCookie = xcb_get_selection_owner(m_connection, m_managerSelection);
    const auto pictureCookie =
        xcb_get_property(m_connection, 0, m_root, m_rootPixmapAtom, XCB_ATOM_PIXMAP, 0, 1);
    Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(m_connection, ownerCookie, nullptr));
    Reply<xcb_get_property_reply_t> picture(
        xcb_get_property_reply(m_connection, pictureCookie, nullptr));
    if (!owner || owner->owner == XCB_NONE) {
        // Unredirected windows keep no pixels of their own: below the lens
        // the screen holds the lens itself, and nothing else can be read.
        if (!m_warnedNoManager)
            qCInfo(lcGrabber) << "XcbCompositeGrabber: no compositing manager runs; the lens "
                                 "has nothing to show";
        m_warnedNoManager = true;
        return std::nullopt;
    }
    m_warnedNoManager = false;
    xcb_pixmap_t pixmap = XCB_NONE;
    if (picture && xcb_get_property_value_length(picture.get()) == 4)
        std::memcpy(&pixmap, xcb_get_property_value(picture.get()), 4);
    return pixmap;
}

XcbCompositeGrabber::DesktopSamples
XcbCompositeGrabber::askDesktopSamples(const QRect &area, const QRect &screen,
                                       const QList<TopLevel> &windows, Pictures &pictures)
{
    // Without a background picture, the desktop colour is read where the
    // screen shows nothing but the desktop: there a grab of the screen,
    // which holds everything, has no window's pixel either.
    DesktopSamples samples;
    const QList<QPoint> points = samplePoints(area, screen);
    if (points.isEmpty())
        return samples;
    samples.target = newTarget(QSize(int(points.size()), 1), &samples.pixmap);
    for (int i = 0; i < points.size(); ++i)
        compose(samples.target, QRect(points.at(i), QSize(1, 1)), QPoint(i, 0), windows, XCB_NONE,
                pictures);
    samples.coverage = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, samples.pixmap, 0, 0,
                                     uint16_t(points.size()), 1, ~0u);
    for (const QPoint &point : points)
        samples.shown.push_back(xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root,
                                              int16_t(point.x()), int16_t(point.y()), 1, 1, ~0u));
    return samples;
}

void XcbCompositeGrabber::takeDesktopSamples(const DesktopSamples &samples)
{
    if (samples.shown.empty())
        return;
    const int count = int(samples.shown.size());
    Reply<xcb_get_image_reply_t> covered(
        xcb_get_image_reply(m_connection, samples.coverage, nullptr));
    const QImage coverage =
        imageOf(covered.get(), QSize(count, 1), QImage::Format_ARGB32_Premultiplied);
    int red = 0, green = 0, blue = 0, uncovered = 0;
    for (int i = 0; i < count; ++i) {
        Reply<xcb_get_image_reply_t> shown(
            xcb_get_image_reply(m_connection, samples.shown[size_t(i)], nullptr));
        const QImage pixel = imageOf(shown.get(), QSize(1, 1), QImage::Format_RGB32);
        if (coverage.isNull() || pixel.isNull() || qAlpha(coverage.pixel(i, 0)) != 0)
            continue;
        const QRgb rgb = pixel.pixel(0, 0);
        red += qRed(rgb);
        green += qGreen(rgb);
        blue += qBlue(rgb);
        ++uncovered;
    }
    if (uncovered > 0)
        m_desktopColour = qRgb(red / uncovered, green / uncovered, blue / uncovered);
    xcb_render_free_picture(m_connection, samples.target);
    xcb_free_pixmap(m_connection, samples.pixmap);
}

QList<XcbCompositeGrabber::TopLevel> XcbCompositeGrabber::viewableTopLevels()
{
    Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    if (!tree)
        return {};
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());

    // Ask for every window's state at once; the replies come back in one go.
    std::vector<xcb_get_window_attributes_cookie_t> attributeCookies(static_cast<size_t>(count));
    std::vector<xcb_get_geometry_cookie_t> geometryCookies(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        attributeCookies[size_t(i)] = xcb_get_window_attributes(m_connection, children[i]);
        geometryCookies[size_t(i)] = xcb_get_geometry(m_connection, children[i]);
    }
    QList<TopLevel> windows;
    for (int i = 0; i < count; ++i) {
        Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(m_connection, attributeCookies[size_t(i)], nullptr));
        Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(m_connection, geometryCookies[size_t(i)], nullptr));
        if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE
            || attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT)
            continue;
        const auto format = m_formatOfVisual.constFind(attributes->visual);
        if (format == m_formatOfVisual.constEnd())
            continue;
        const int border = geometry->border_width;
        const QRect rect(geometry->x, geometry->y, geometry->width + 2 * border,
                         geometry->height + 2 * border);
        windows.append(
            { children[i], rect, rect, border, *format, m_formatHasAlpha.value(*format) });
    }
    clipToFrames(windows);
    return windows;
}

void XcbCompositeGrabber::clipToFrames(QList<TopLevel> &windows)
{
    // A window manager's frame may reach beyond what it draws (invisible
    // borders to grab for resizing); the compositing manager shows only the
    // client and the extents the client is told of. Frames rarely change
    // size, so each is looked at once per size.
    QList<qsizetype> unknown;
    std::vector<xcb_query_tree_cookie_t> treeCookies;
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const auto known = m_shownParts.constFind(windows.at(i).id);
        if (known == m_shownParts.constEnd() || known->first != windows.at(i).rect.size()) {
            unknown.append(i);
            treeCookies.push_back(xcb_query_tree(m_connection, windows.at(i).id));
        }
    }
    struct Client
    {
        qsizetype window;
        xcb_get_geometry_cookie_t geometry;
        xcb_get_property_cookie_t extents;
    };
    std::vector<Client> clients;
    for (size_t k = 0; k < treeCookies.size(); ++k) {
        TopLevel &window = windows[unknown.at(qsizetype(k))];
        m_shownParts.insert(window.id, { window.rect.size(), QRect(QPoint(), window.rect.size()) });
        Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(m_connection, treeCookies[k], nullptr));
        if (!tree || xcb_query_tree_children_length(tree.get()) != 1)
            continue;
        const xcb_window_t client = xcb_query_tree_children(tree.get())[0];
        clients.push_back({ unknown.at(qsizetype(k)), xcb_get_geometry(m_connection, client),
                            xcb_get_property(m_connection, 0, client, m_frameExtentsAtom,
                                             XCB_ATOM_CARDINAL, 0, 4) });
    }
    for (const Client &client : clients) {
        Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(m_connection, client.geometry, nullptr));
        Reply<xcb_get_property_reply_t> extents(
            xcb_get_property_reply(m_connection, client.extents, nullptr));
        if (!geometry || !extents || xcb_get_property_value_length(extents.get()) != 16)
            continue;
        const auto *e = static_cast<const uint32_t *>(xcb_get_property_value(extents.get()));
        const TopLevel &window = windows.at(client.window);
        // The client sits inside the frame's border.
        const QRect shown =
            QRect(window.border + geometry->x - int(e[0]), window.border + geometry->y - int(e[2]),
                  geometry->width + int(e[0] + e[1]), geometry->height + int(e[2] + e[3]))
            & QRect(QPoint(), window.rect.size());
        m_shownParts.insert(window.id, { window.rect.size(), shown });
    }
    for (TopLevel &window : windows)
        window.shown = m_shownParts.value(window.id).second.translated(window.rect.topLeft());
    // Windows that are gone take their entries with them.
    if (m_shownParts.size() > windows.size() * 2 + 64)
        m_shownParts.clear();
}

xcb_render_picture_t XcbCompositeGrabber::newTarget(const QSize &size, xcb_pixmap_t *pixmap)
{
    *pixmap = xcb_generate_id(m_connection);
    xcb_create_pixmap(m_connection, 32, *pixmap, m_root, uint16_t(size.width()),
                      uint16_t(size.height()));
    const xcb_render_picture_t picture = xcb_generate_id(m_connection);
    xcb_render_create_picture(m_connection, picture, *pixmap, m_argbFormat, 0, nullptr);
    const xcb_rectangle_t all { 0, 0, uint16_t(size.width()), uint16_t(size.height()) };
    xcb_render_fill_rectangles(m_connection, XCB_RENDER_PICT_OP_SRC, picture, { 0, 0, 0, 0 }, 1,
                               &all);
    return picture;
}

void XcbCompositeGrabber::compose(xcb_render_picture_t target, const QRect &source,
                                  const QPoint &at, const QList<TopLevel> &windows,
                                  xcb_window_t leftOut, Pictures &pictures)
{
    for (const TopLevel &window : windows) {
        const QRect part = window.shown & source;
        if (window.id == leftOut || part.isEmpty())
            continue;
        const QPoint from = part.topLeft() - window.rect.topLeft();
        const QPoint to = at + (part.topLeft() - source.topLeft());
        // An opaque window replaces what lies below, as the compositing manager draws it.
        discard(m_connection,
                xcb_render_composite_checked(
                    m_connection, window.alpha ? XCB_RENDER_PICT_OP_OVER : XCB_RENDER_PICT_OP_SRC,
                    pictures.of(window), XCB_NONE, target, int16_t(from.x()), int16_t(from.y()), 0,
                    0, int16_t(to.x()), int16_t(to.y()), uint16_t(part.width()),
                    uint16_t(part.height())));
    }
}

void XcbCompositeGrabber::composeRootPicture(xcb_render_picture_t target, const QRect &source,
                                             xcb_pixmap_t rootPixmap)
{
    // Wallpaper setters leave their picture here; it tiles from the root's origin.
    const xcb_render_picture_t picture = xcb_generate_id(m_connection);
    const uint32_t repeat = XCB_RENDER_REPEAT_NORMAL;
    discard(m_connection,
            xcb_render_create_picture_checked(m_connection, picture, rootPixmap, m_rootFormat,
                                              XCB_RENDER_CP_REPEAT, &repeat));
    discard(m_connection,
            xcb_render_composite_checked(m_connection, XCB_RENDER_PICT_OP_SRC, picture, XCB_NONE,
                                         target, int16_t(source.x()), int16_t(source.y()), 0, 0, 0,
                                         0, uint16_t(source.width()), uint16_t(source.height())));
    discard(m_connection, xcb_render_free_picture_checked(m_connection, picture));
}

QList<QPoint> XcbCompositeGrabber::samplePoints(const QRect &area, const QRect &bounds)
{
    // Two rings around the area: the lens covers at most twice its side from
    // the centre, and whatever covers a point (the lens too) rules it out.
    QList<QPoint> points;
    const QPoint centre = area.center();
    const int side = area.width();
    for (int ring : { side * 5 / 4, side * 5 / 2 }) {
        for (const QPoint &direction :
             { QPoint(1, 0), QPoint(1, 1), QPoint(0, 1), QPoint(-1, 1), QPoint(-1, 0),
               QPoint(-1, -1), QPoint(0, -1), QPoint(1, -1) }) {
            const QPoint point = centre + direction * ring;
            if (bounds.contains(point))
                points.append(point);
        }
    }
    return points;
}

xcb_window_t XcbCompositeGrabber::topLevelOf(xcb_window_t window)
{
    if (window == m_leftOutWindow)
        return m_leftOutTopLevel;
    // Walk up to the child of the root: a reparenting window manager puts a
    // frame between the two.
    xcb_window_t current = window;
    while (current != XCB_NONE) {
        Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, current), nullptr));
        if (!tree)
            return XCB_NONE;
        if (tree->parent == m_root)
            break;
        current = tree->parent;
    }
    m_leftOutWindow = window;
    m_leftOutTopLevel = current;
    return current;
}
