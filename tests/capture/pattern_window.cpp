// A plain X client that paints a known pattern at a known place, so that tests
// can find it in a grab of the root window. Usage:
//   pattern_window X Y W H quadrants      four colours, one per quarter
//   pattern_window X Y W H solid RRGGBB   one colour
// It prints "ready" once the window is mapped and painted, then runs until
// killed.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <xcb/xcb.h>

namespace {

struct Patch
{
    xcb_rectangle_t rect;
    uint32_t pixel;
};

std::vector<Patch> patchesFor(int width, int height, int argc, char **argv)
{
    const auto w = static_cast<uint16_t>(width);
    const auto h = static_cast<uint16_t>(height);
    if (argc > 6 && std::strcmp(argv[5], "solid") == 0)
        return { { { 0, 0, w, h }, static_cast<uint32_t>(std::strtoul(argv[6], nullptr, 16)) } };
    const auto hw = static_cast<int16_t>(width / 2);
    const auto hh = static_cast<int16_t>(height / 2);
    const auto rw = static_cast<uint16_t>(width - hw);
    const auto rh = static_cast<uint16_t>(height - hh);
    return { { { 0, 0, static_cast<uint16_t>(hw), static_cast<uint16_t>(hh) }, 0xC03020 },
             { { hw, 0, rw, static_cast<uint16_t>(hh) }, 0x20A040 },
             { { 0, hh, static_cast<uint16_t>(hw), rh }, 0x2040C0 },
             { { hw, hh, rw, rh }, 0xE0C020 } };
}

void paint(xcb_connection_t *connection, xcb_window_t window, xcb_gcontext_t gc,
           const std::vector<Patch> &patches)
{
    for (const Patch &patch : patches) {
        xcb_change_gc(connection, gc, XCB_GC_FOREGROUND, &patch.pixel);
        xcb_poly_fill_rectangle(connection, window, gc, 1, &patch.rect);
    }
    xcb_flush(connection);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 6) {
        std::fprintf(stderr, "usage: %s X Y W H quadrants|solid RRGGBB\n", argv[0]);
        return 2;
    }
    const int x = std::atoi(argv[1]);
    const int y = std::atoi(argv[2]);
    const int width = std::atoi(argv[3]);
    const int height = std::atoi(argv[4]);
    const std::vector<Patch> patches = patchesFor(width, height, argc, argv);

    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        std::fprintf(stderr, "pattern_window: cannot connect to the X server\n");
        return 1;
    }
    xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const xcb_window_t window = xcb_generate_id(connection);
    // Override-redirect: no window manager moves or decorates it.
    const uint32_t values[] = { 0x808080, 1, XCB_EVENT_MASK_EXPOSURE };
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root,
                      static_cast<int16_t>(x), static_cast<int16_t>(y),
                      static_cast<uint16_t>(width), static_cast<uint16_t>(height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    const xcb_gcontext_t gc = xcb_generate_id(connection);
    xcb_create_gc(connection, gc, window, 0, nullptr);
    xcb_map_window(connection, window);
    xcb_flush(connection);

    bool announced = false;
    while (xcb_generic_event_t *event = xcb_wait_for_event(connection)) {
        if ((event->response_type & 0x7f) == XCB_EXPOSE) {
            paint(connection, window, gc, patches);
            if (!announced) {
                std::printf("ready\n");
                std::fflush(stdout);
                announced = true;
            }
        }
        std::free(event);
    }
    xcb_disconnect(connection);
    return 0;
}
