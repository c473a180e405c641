// A plain X client standing in for the presenter's application: it maps a
// window at the geometry given on the command line, takes the input focus
// where no window manager gives it, and reports on stdout, one line each,
// what reaches it:
//   ready <window id>
//   press <button> <root x> <root y>
//   focus-in <mode> <detail>
//   focus-out <mode> <detail>
// Usage: x_click_probe <x> <y> <width> <height> [override]
// With "override" the window is override-redirect, as another program's
// menu or notification, and takes no focus.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

int main(int argc, char **argv)
{
    if (argc != 5 && !(argc == 6 && std::strcmp(argv[5], "override") == 0)) {
        std::fprintf(stderr, "usage: %s x y width height [override]\n", argv[0]);
        return 2;
    }
    const bool overrideRedirect = argc == 6;
    const auto x = static_cast<int16_t>(std::atoi(argv[1]));
    const auto y = static_cast<int16_t>(std::atoi(argv[2]));
    const auto width = static_cast<uint16_t>(std::atoi(argv[3]));
    const auto height = static_cast<uint16_t>(std::atoi(argv[4]));

    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        std::fprintf(stderr, "x_click_probe: cannot connect to the X server\n");
        return 1;
    }
    xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    // A window manager gives the focus itself and keeps its own account of
    // it, which a client taking the focus behind its back would confuse.
    const char checkName[] = "_NET_SUPPORTING_WM_CHECK";
    xcb_intern_atom_reply_t *check = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, sizeof checkName - 1, checkName), nullptr);
    xcb_get_property_reply_t *manager = check
        ? xcb_get_property_reply(
            connection,
            xcb_get_property(connection, 0, screen->root, check->atom, XCB_ATOM_WINDOW, 0, 1),
            nullptr)
        : nullptr;
    const bool managed = manager && xcb_get_property_value_length(manager) >= 4;
    std::free(manager);
    std::free(check);
    const xcb_window_t window = xcb_generate_id(connection);
    const uint32_t values[] = { 0x204060, overrideRedirect ? 1u : 0u,
                                XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE
                                    | XCB_EVENT_MASK_STRUCTURE_NOTIFY };
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, x, y, width, height,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    // Placed where asked: a window manager honours a position the user gave.
    const uint32_t USPosition = 1, USSize = 2;
    const uint32_t hints[18] = { USPosition | USSize, uint32_t(x), uint32_t(y), width, height };
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
    const char title[] = "x_click_probe";
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, sizeof title - 1, title);
    xcb_map_window(connection, window);
    xcb_flush(connection);

    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    while (xcb_generic_event_t *event = xcb_wait_for_event(connection)) {
        switch (event->response_type & 0x7f) {
        case XCB_MAP_NOTIFY:
            if (!overrideRedirect && !managed)
                xcb_set_input_focus(connection, XCB_INPUT_FOCUS_POINTER_ROOT, window,
                                    XCB_CURRENT_TIME);
            // The focus is ours once the server has answered a later request.
            std::free(
                xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
            std::printf("ready %u\n", window);
            break;
        case XCB_BUTTON_PRESS: {
            const auto *press = reinterpret_cast<xcb_button_press_event_t *>(event);
            std::printf("press %u %d %d\n", press->detail, press->root_x, press->root_y);
            break;
        }
        case XCB_FOCUS_IN:
        case XCB_FOCUS_OUT: {
            const auto *focus = reinterpret_cast<xcb_focus_in_event_t *>(event);
            std::printf("%s %u %u\n",
                        (event->response_type & 0x7f) == XCB_FOCUS_IN ? "focus-in" : "focus-out",
                        focus->mode, focus->detail);
            break;
        }
        default:
            break;
        }
        std::free(event);
    }
    xcb_disconnect(connection);
    return 0;
}
