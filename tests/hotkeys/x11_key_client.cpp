// A plain X client for the hotkey tests: maps a window, takes the keyboard
// focus and prints one line per key press it receives:
//   ready <window>
//   press <keysym name> <state>
#include <cstdio>
#include <cstdlib>
#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

int main()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        std::fprintf(stderr, "x11_key_client: no display\n");
        return 1;
    }
    const xcb_setup_t *setup = xcb_get_setup(connection);
    xcb_screen_t *screen = xcb_setup_roots_iterator(setup).data;
    const xcb_window_t window = xcb_generate_id(connection);
    const uint32_t values[] = { screen->white_pixel,
                                XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_EXPOSURE
                                    | XCB_EVENT_MASK_STRUCTURE_NOTIFY };
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 100, 100, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    xcb_map_window(connection, window);
    xcb_flush(connection);

    const int count = setup->max_keycode - setup->min_keycode + 1;
    xcb_get_keyboard_mapping_reply_t *mapping = xcb_get_keyboard_mapping_reply(
        connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count), nullptr);
    if (!mapping)
        return 1;
    const xcb_keysym_t *keysyms = xcb_get_keyboard_mapping_keysyms(mapping);

    while (xcb_generic_event_t *event = xcb_wait_for_event(connection)) {
        switch (event->response_type & 0x7f) {
        case XCB_MAP_NOTIFY:
            xcb_set_input_focus(connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
            std::free(
                xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
            std::printf("ready %u\n", window);
            std::fflush(stdout);
            break;
        case XCB_KEY_PRESS: {
            const auto *press = reinterpret_cast<xcb_key_press_event_t *>(event);
            const xcb_keysym_t keysym =
                keysyms[(press->detail - setup->min_keycode) * mapping->keysyms_per_keycode];
            char name[64] = {};
            xkb_keysym_get_name(keysym, name, sizeof name);
            std::printf("press %s %u\n", name, press->state);
            std::fflush(stdout);
            break;
        }
        default:
            break;
        }
        std::free(event);
    }
    std::free(mapping);
    xcb_disconnect(connection);
    return 0;
}
