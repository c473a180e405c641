// Hotkey latency and the cost of observing keys, on the real X server.
//
// Latency: from an XTest key press to the service's signal in a receiver,
// beside the same press reaching a plain focused X client (the floor the
// server sets). Cost: CPU time per raw key event through the observer path
// (backend filter, key handler, keystroke text, signal), beside Qt sending
// one key event to an object.
#include "XTestKeyboard.h"
#include "hotkeys/HotkeyActions.h"
#include "hotkeys/HotkeyManager.h"
#include "platform/linux/XcbHotkeyBackend.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <poll.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace {

constexpr int presses = 200;

struct Figures
{
    double median;
    double p99;
};

Figures figures(QList<double> samples)
{
    std::sort(samples.begin(), samples.end());
    return { samples.at(samples.size() / 2),
             samples.at(std::min<qsizetype>(samples.size() - 1, samples.size() * 99 / 100)) };
}

qint64 threadCpuNs()
{
    timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

// The next event of `type`, or none within two seconds.
bool waitForEvent(xcb_connection_t *connection, uint8_t type)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 2000) {
        while (xcb_generic_event_t *event = xcb_poll_for_event(connection)) {
            const bool match = (event->response_type & 0x7f) == type;
            std::free(event);
            if (match)
                return true;
        }
        pollfd fd { xcb_get_file_descriptor(connection), POLLIN, 0 };
        poll(&fd, 1, 10);
    }
    return false;
}

// Microseconds from a press to a focused plain client's KeyPress.
QList<double> plainClientLatency(XTestKeyboard &keyboard)
{
    xcb_connection_t *client = xcb_connect(nullptr, nullptr);
    xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(client)).data;
    const xcb_window_t window = xcb_generate_id(client);
    const uint32_t mask = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(client, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_EVENT_MASK, &mask);
    xcb_map_window(client, window);
    xcb_flush(client);
    QList<double> samples;
    if (!waitForEvent(client, XCB_MAP_NOTIFY)) {
        xcb_disconnect(client);
        return samples;
    }
    xcb_set_input_focus(client, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    std::free(xcb_get_input_focus_reply(client, xcb_get_input_focus(client), nullptr));

    const xcb_keycode_t key = keyboard.keycode(XKB_KEY_q);
    QElapsedTimer timer;
    for (int i = 0; i < presses; ++i) {
        timer.start();
        xcb_test_fake_input(keyboard.connection(), XCB_KEY_PRESS, key, XCB_CURRENT_TIME,
                            keyboard.root(), 0, 0, 0);
        xcb_flush(keyboard.connection());
        if (!waitForEvent(client, XCB_KEY_PRESS))
            break;
        samples << timer.nsecsElapsed() / 1000.0;
        xcb_test_fake_input(keyboard.connection(), XCB_KEY_RELEASE, key, XCB_CURRENT_TIME,
                            keyboard.root(), 0, 0, 0);
        keyboard.sync();
    }
    xcb_disconnect(client);
    return samples;
}

// Microseconds from a press of F5 to toggleOverlayRequested in a receiver.
QList<double> hotkeyLatency(XTestKeyboard &keyboard, HotkeyManager &manager)
{
    const xcb_keycode_t key = keyboard.keycode(XKB_KEY_F5);
    QList<double> samples;
    QElapsedTimer timer;
    QEventLoop loop;
    QObject receiver;
    QObject::connect(&manager, &HotkeyManager::toggleOverlayRequested, &receiver, [&] {
        samples << timer.nsecsElapsed() / 1000.0;
        loop.quit();
    });
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(&timeout, &QTimer::timeout, &loop, &QEventLoop::quit);
    for (int i = 0; i < presses; ++i) {
        timer.start();
        xcb_test_fake_input(keyboard.connection(), XCB_KEY_PRESS, key, XCB_CURRENT_TIME,
                            keyboard.root(), 0, 0, 0);
        xcb_flush(keyboard.connection());
        timeout.start(2000);
        loop.exec();
        if (!timeout.isActive())
            break;
        xcb_test_fake_input(keyboard.connection(), XCB_KEY_RELEASE, key, XCB_CURRENT_TIME,
                            keyboard.root(), 0, 0, 0);
        keyboard.sync();
        QCoreApplication::processEvents();
    }
    return samples;
}

// CPU nanoseconds per raw key event handed to the backend's event filter.
double observerCostNs(XcbHotkeyBackend &backend, xcb_keycode_t keycode, int events)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    const auto *xinput = xcb_get_extension_data(x11->connection(), &xcb_input_id);
    xcb_input_raw_key_press_event_t raw {};
    raw.response_type = XCB_GE_GENERIC;
    raw.extension = xinput->major_opcode;
    raw.detail = keycode;
    const QByteArray type("xcb_generic_event_t");
    const qint64 start = threadCpuNs();
    for (int i = 0; i < events; ++i) {
        raw.event_type = (i % 2) ? XCB_INPUT_RAW_KEY_RELEASE : XCB_INPUT_RAW_KEY_PRESS;
        backend.nativeEventFilter(type, &raw, nullptr);
    }
    return double(threadCpuNs() - start) / events;
}

class KeyReceiver : public QObject
{
public:
    int presses = 0;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
            presses += event->type() == QEvent::KeyPress;
            return true;
        }
        return QObject::event(event);
    }
};

double qtKeyEventCostNs(int events)
{
    KeyReceiver receiver;
    const qint64 start = threadCpuNs();
    for (int i = 0; i < events; ++i) {
        QKeyEvent event((i % 2) ? QEvent::KeyRelease : QEvent::KeyPress, Qt::Key_B, Qt::NoModifier,
                        QStringLiteral("b"));
        QCoreApplication::sendEvent(&receiver, &event);
    }
    return double(threadCpuNs() - start) / events;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (QGuiApplication::platformName() != u"xcb") {
        std::fprintf(stderr, "bench_hotkeys: needs the X server (platform %s)\n",
                     qPrintable(QGuiApplication::platformName()));
        return 1;
    }
    XTestKeyboard keyboard;
    auto backendOwner = std::make_unique<XcbHotkeyBackend>();
    XcbHotkeyBackend *backend = backendOwner.get();
    HotkeyManager manager(std::move(backendOwner));
    manager.setHotkeys(HotkeyActions::defaultMap());
    manager.start();
    // Letters on: every raw event below runs the whole text path.
    manager.setKeystrokeFilter(true, true, true, true, true);
    int texts = 0;
    QObject::connect(&manager, &HotkeyManager::keystrokeRequested, &app, [&] { ++texts; });

    const QList<double> plainSamples = plainClientLatency(keyboard);
    const QList<double> hotkeySamples = hotkeyLatency(keyboard, manager);
    if (plainSamples.size() != presses || hotkeySamples.size() != presses) {
        std::fprintf(stderr, "bench_hotkeys: %lld and %lld of %d presses arrived\n",
                     static_cast<long long>(plainSamples.size()),
                     static_cast<long long>(hotkeySamples.size()), presses);
        return 1;
    }
    const Figures plain = figures(plainSamples);
    const Figures hotkey = figures(hotkeySamples);

    constexpr int events = 200000;
    texts = 0;
    const double observer = observerCostNs(*backend, keyboard.keycode(XKB_KEY_b), events);
    const double qtKey = qtKeyEventCostNs(events);

    std::printf("hotkey press to signal (%d presses): median %.0f us, p99 %.0f us\n", presses,
                hotkey.median, hotkey.p99);
    std::printf("reference, press to a plain focused X client: median %.0f us, p99 %.0f us\n",
                plain.median, plain.p99);
    std::printf("ratio (median): %.2f\n", hotkey.median / plain.median);
    std::printf("observer path per raw key event: %.0f ns CPU (%d texts for %d events)\n", observer,
                texts, events);
    std::printf("reference, Qt sending one key event to an object: %.0f ns CPU\n", qtKey);
    std::printf("ratio: %.2f\n", observer / qtKey);
    return texts == events / 2 ? 0 : 1;
}
