#include "XTestSession.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/shape.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace {
template<typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template<typename T>
Reply<T> wrap(T *reply)
{
    return Reply<T>(reply, &std::free);
}
} // namespace

XTestSession::XTestSession()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return;
    }
    m_connection = connection;
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const xcb_query_extension_reply_t *shape = xcb_get_extension_data(m_connection, &xcb_shape_id);
    if (shape && shape->present)
        m_shapeEventBase = shape->first_event;
}

XTestSession::~XTestSession()
{
    if (m_connection)
        xcb_disconnect(m_connection);
}

void XTestSession::moveTo(QPoint global)
{
    xcb_test_fake_input(m_connection, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, m_root,
                        static_cast<int16_t>(global.x()), static_cast<int16_t>(global.y()), 0);
    sync();
}

void XTestSession::click(QPoint global, int button)
{
    moveTo(global);
    press(button);
    release(button);
}

void XTestSession::press(int button)
{
    xcb_test_fake_input(m_connection, XCB_BUTTON_PRESS, static_cast<uint8_t>(button),
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    sync();
}

void XTestSession::release(int button)
{
    xcb_test_fake_input(m_connection, XCB_BUTTON_RELEASE, static_cast<uint8_t>(button),
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    sync();
}

uint32_t XTestSession::inputFocus()
{
    auto reply =
        wrap(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    return reply ? reply->focus : 0;
}

QRect XTestSession::geometry(uint32_t window)
{
    auto geometry =
        wrap(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    auto origin = wrap(xcb_translate_coordinates_reply(
        m_connection, xcb_translate_coordinates(m_connection, window, m_root, 0, 0), nullptr));
    if (!geometry || !origin)
        return {};
    return QRect(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
}

bool XTestSession::isOverrideRedirect(uint32_t window)
{
    auto attributes = wrap(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return attributes && attributes->override_redirect;
}

uint32_t XTestSession::atom(const char *name)
{
    auto reply = wrap(xcb_intern_atom_reply(
        m_connection,
        xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : 0;
}

uint32_t XTestSession::cardinalProperty(uint32_t window, const char *name)
{
    auto reply = wrap(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, window, atom(name), XCB_ATOM_CARDINAL, 0, 1), nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 4)
        return 0;
    return *static_cast<uint32_t *>(xcb_get_property_value(reply.get()));
}

QList<uint32_t> XTestSession::atomProperty(uint32_t window, const char *name)
{
    auto reply = wrap(xcb_get_property_reply(
        m_connection, xcb_get_property(m_connection, 0, window, atom(name), XCB_ATOM_ATOM, 0, 256),
        nullptr));
    QList<uint32_t> atoms;
    if (!reply || reply->format != 32)
        return atoms;
    const auto *values = static_cast<const uint32_t *>(xcb_get_property_value(reply.get()));
    atoms = QList<uint32_t>(values, values + xcb_get_property_value_length(reply.get()) / 4);
    return atoms;
}

uint32_t XTestSession::rootPixel(QPoint global)
{
    const auto reply =
        wrap(xcb_get_image_reply(m_connection,
                                 xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root,
                                               int16_t(global.x()), int16_t(global.y()), 1, 1, ~0u),
                                 nullptr));
    if (!reply || xcb_get_image_data_length(reply.get()) < 4)
        return 0;
    // Depth 24 in 32-bit little-endian pixels: blue, green, red, pad.
    const uint8_t *bytes = xcb_get_image_data(reply.get());
    return uint32_t(bytes[2]) << 16 | uint32_t(bytes[1]) << 8 | bytes[0];
}

QImage XTestSession::rootImage(const QRect &area)
{
    const auto reply = wrap(xcb_get_image_reply(
        m_connection,
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, int16_t(area.x()),
                      int16_t(area.y()), uint16_t(area.width()), uint16_t(area.height()), ~0u),
        nullptr));
    if (!reply || xcb_get_image_data_length(reply.get()) < area.width() * area.height() * 4)
        return {};
    QImage image(xcb_get_image_data(reply.get()), area.width(), area.height(), area.width() * 4,
                 QImage::Format_RGB32);
    image = image.copy();
    // The server leaves the pad byte as it likes; Qt reads it as alpha.
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] |= 0xff000000u;
    }
    return image;
}

int XTestSession::inputRectangleCount(uint32_t window)
{
    auto reply = wrap(xcb_shape_get_rectangles_reply(
        m_connection, xcb_shape_get_rectangles(m_connection, window, XCB_SHAPE_SK_INPUT), nullptr));
    return reply ? int(reply->rectangles_len) : -1;
}

bool XTestSession::takesInputAt(uint32_t window, QPoint global)
{
    auto reply = wrap(xcb_shape_get_rectangles_reply(
        m_connection, xcb_shape_get_rectangles(m_connection, window, XCB_SHAPE_SK_INPUT), nullptr));
    if (!reply)
        return false;
    const QPoint local = global - geometry(window).topLeft();
    const xcb_rectangle_t *rects = xcb_shape_get_rectangles_rectangles(reply.get());
    for (int i = 0; i < reply->rectangles_len; ++i) {
        if (QRect(rects[i].x, rects[i].y, rects[i].width, rects[i].height).contains(local))
            return true;
    }
    return false;
}

uint32_t XTestSession::selectionOwner(const char *selection)
{
    auto reply = wrap(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, atom(selection)), nullptr));
    return reply ? reply->owner : 0;
}

QList<uint32_t> XTestSession::windowsAt(QPoint global)
{
    QList<uint32_t> chain;
    xcb_window_t window = m_root;
    for (;;) {
        auto reply = wrap(xcb_translate_coordinates_reply(
            m_connection,
            xcb_translate_coordinates(m_connection, m_root, window,
                                      static_cast<int16_t>(global.x()),
                                      static_cast<int16_t>(global.y())),
            nullptr));
        if (!reply || reply->child == XCB_NONE)
            return chain;
        window = reply->child;
        chain.append(window);
    }
}

QList<uint32_t> XTestSession::mappedWindowsOf(qint64 pid)
{
    QList<uint32_t> result;
    auto tree =
        wrap(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    if (!tree)
        return result;
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());
    for (int i = 0; i < count; ++i) {
        auto attributes = wrap(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, children[i]), nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        if (cardinalProperty(children[i], "_NET_WM_PID") == static_cast<uint32_t>(pid))
            result.append(children[i]);
    }
    return result;
}

uint32_t XTestSession::topLevelOf(uint32_t window)
{
    for (;;) {
        auto tree =
            wrap(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
        if (!tree)
            return 0;
        if (tree->parent == m_root || tree->parent == XCB_NONE)
            return window;
        window = tree->parent;
    }
}

QList<uint32_t> XTestSession::stackingOrder()
{
    auto tree =
        wrap(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    if (!tree)
        return {};
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    return QList<uint32_t>(children, children + xcb_query_tree_children_length(tree.get()));
}

void XTestSession::watchInputShape(uint32_t window)
{
    xcb_shape_select_input(m_connection, window, 1);
    sync();
    drainEvents();
    m_inputShapeEvents.removeAll(window);
}

int XTestSession::takeInputShapeChanges(uint32_t window, xcb_connection_t *other)
{
    // A round trip on the other connection puts its requests behind us; one
    // on ours then brings in every event they caused.
    if (other)
        std::free(xcb_get_input_focus_reply(other, xcb_get_input_focus(other), nullptr));
    sync();
    drainEvents();
    const int count = static_cast<int>(m_inputShapeEvents.removeAll(window));
    return count;
}

bool XTestSession::keyboardGrabbed()
{
    auto reply =
        wrap(xcb_grab_keyboard_reply(m_connection,
                                     xcb_grab_keyboard(m_connection, 0, m_root, XCB_CURRENT_TIME,
                                                       XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                     nullptr));
    if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS) {
        xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
        sync();
        return false;
    }
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

void XTestSession::sync()
{
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

void XTestSession::drainEvents()
{
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        if (m_shapeEventBase != 0
            && (event->response_type & 0x7f) == m_shapeEventBase + XCB_SHAPE_NOTIFY) {
            const auto *notify = reinterpret_cast<xcb_shape_notify_event_t *>(event);
            if (notify->shape_kind == XCB_SHAPE_SK_INPUT)
                m_inputShapeEvents.append(notify->affected_window);
        }
        std::free(event);
    }
}
