#include "platform/linux/XcbOverlayStacking.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QSocketNotifier>
#include <QWindow>

#include <cstdlib>
#include <cstring>
#include <xcb/randr.h>

Q_LOGGING_CATEGORY(lcStacking, "glimmora.platform")

std::unique_ptr<OverlayStacking> OverlayStacking::create()
{
    return std::make_unique<XcbOverlayStacking>();
}

namespace {

struct Free
{
    void operator()(void *pointer) const { std::free(pointer); }
};
template<typename T>
using Reply = std::unique_ptr<T, Free>;

// A window raised over and over by another client is followed at most once
// per pointer-poll tick.
constexpr qint64 restackIntervalMs = 16;

} // namespace

XcbOverlayStacking::XcbOverlayStacking()
{
    m_checkTimer.setSingleShot(true);
    connect(&m_checkTimer, &QTimer::timeout, this, &XcbOverlayStacking::check);
    connect(&m_busLock, &DBusScreenLockWatch::lockedChanged, this, [this] {
        emit sessionLockedChanged();
        scheduleCheck();
    });

    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!x11 || !x11->connection())
        return;
    const xcb_setup_t *programSetup = xcb_get_setup(x11->connection());
    m_programIdBase = programSetup->resource_id_base;
    m_programIdMask = programSetup->resource_id_mask;

    // A connection of our own: the toolkit's would read every window's
    // notifications as its own root window's.
    int screenNumber = 0;
    m_connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(m_connection)) {
        qCWarning(lcStacking) << "XcbOverlayStacking: no second X connection;"
                              << "windows mapped later may cover the overlays";
        xcb_disconnect(m_connection);
        m_connection = nullptr;
        return;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < screenNumber && screens.rem; ++i)
        xcb_screen_next(&screens);
    m_root = screens.data->root;
    const auto atom = [this](const char *name) {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            m_connection, xcb_intern_atom(m_connection, 0, uint16_t(std::strlen(name)), name),
            nullptr));
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    };
    m_wmState = atom("WM_STATE");
    m_supportingWmCheck = atom("_NET_SUPPORTING_WM_CHECK");
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection);

    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &XcbOverlayStacking::readEvents);
}

XcbOverlayStacking::~XcbOverlayStacking()
{
    m_notifier.reset();
    if (m_connection)
        xcb_disconnect(m_connection);
}

void XcbOverlayStacking::setWindows(const QList<QWindow *> &bottomToTop)
{
    m_windows.clear();
    for (QWindow *window : bottomToTop)
        m_windows.append(window);
    scheduleCheck();
}

void XcbOverlayStacking::readEvents()
{
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        handleEvent(event);
        std::free(event);
    }
    if (xcb_connection_has_error(m_connection)) {
        qCWarning(lcStacking) << "XcbOverlayStacking: the X connection broke";
        m_notifier->setEnabled(false);
    }
}

void XcbOverlayStacking::handleEvent(const xcb_generic_event_t *event)
{
    // SubstructureNotify on the root tells of the root's children only,
    // which are all that stack against ours.
    switch (event->response_type & 0x7f) {
    case XCB_CREATE_NOTIFY: {
        const auto *create = reinterpret_cast<const xcb_create_notify_event_t *>(event);
        if (create->parent == m_root)
            m_attributes.insert(create->window, { false, bool(create->override_redirect) });
        break;
    }
    case XCB_MAP_NOTIFY: {
        const auto *map = reinterpret_cast<const xcb_map_notify_event_t *>(event);
        m_attributes.insert(map->window, { true, bool(map->override_redirect) });
        scheduleCheck();
        break;
    }
    case XCB_UNMAP_NOTIFY: {
        const uint32_t window = reinterpret_cast<const xcb_unmap_notify_event_t *>(event)->window;
        if (m_attributes.contains(window))
            m_attributes[window].viewable = false;
        forgetWindow(window);
        break;
    }
    case XCB_DESTROY_NOTIFY: {
        const uint32_t window = reinterpret_cast<const xcb_destroy_notify_event_t *>(event)->window;
        m_attributes.remove(window);
        m_frames.remove(window);
        forgetWindow(window);
        break;
    }
    case XCB_REPARENT_NOTIFY: {
        // Taken into a frame it leaves the root; given back it returns.
        const auto *reparent = reinterpret_cast<const xcb_reparent_notify_event_t *>(event);
        m_attributes.remove(reparent->window);
        scheduleCheck();
        break;
    }
    case XCB_CONFIGURE_NOTIFY: {
        // A move alone costs a look at the stack too; the look is cheap.
        const auto *configure = reinterpret_cast<const xcb_configure_notify_event_t *>(event);
        if (configure->event == m_root && !ourWindows().contains(configure->window))
            scheduleCheck();
        break;
    }
    case XCB_CIRCULATE_NOTIFY:
        scheduleCheck();
        break;
    default:
        break;
    }
}

void XcbOverlayStacking::forgetWindow(uint32_t window)
{
    // A menu gone lets ours up again.
    if (m_later.remove(window))
        scheduleCheck();
    m_passedOver.remove(window);
    if (!m_lockers.remove(window))
        return;
    if (m_lockers.isEmpty()) {
        qCInfo(lcStacking) << "XcbOverlayStacking: the screen locker is gone";
        if (!m_busLock.locked())
            emit sessionLockedChanged();
        scheduleCheck();
    }
}

void XcbOverlayStacking::scheduleCheck()
{
    if (!m_connection || m_checkTimer.isActive())
        return;
    const qint64 since = m_sinceRestack.isValid() ? m_sinceRestack.elapsed() : restackIntervalMs;
    m_checkTimer.start(int(std::max<qint64>(0, restackIntervalMs - since)));
}

void XcbOverlayStacking::check()
{
    const QList<uint32_t> ours = ourWindows();
    if (ours.isEmpty())
        return;
    const QList<StackedWindow> stack = queryStack();
    classifyWindowsAbove(stack, ours);
    if (!sessionLocked()) {
        const QList<RestackStep> steps = StackingPolicy::restack(stack, ours, m_later.values());
        for (const RestackStep &step : steps) {
            const uint32_t values[] = {
                step.sibling, uint32_t(step.below ? XCB_STACK_MODE_BELOW : XCB_STACK_MODE_ABOVE)
            };
            xcb_configure_window(m_connection, step.window,
                                 XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values);
        }
        if (!steps.isEmpty()) {
            xcb_flush(m_connection);
            m_sinceRestack.start();
        }
    }
    // The replies above may have brought notifications along that the socket
    // will not announce again.
    while (xcb_generic_event_t *event = xcb_poll_for_queued_event(m_connection)) {
        handleEvent(event);
        std::free(event);
    }
}

QList<uint32_t> XcbOverlayStacking::ourWindows() const
{
    QList<uint32_t> ids;
    for (const QPointer<QWindow> &window : m_windows) {
        // winId() would create a native window that is not wanted yet.
        if (window && window->handle())
            ids.append(uint32_t(window->winId()));
    }
    return ids;
}

QList<StackedWindow> XcbOverlayStacking::queryStack()
{
    QList<StackedWindow> stack;
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_root), nullptr));
    if (!tree)
        return stack;
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());

    // Windows seen before the notifications began are asked once.
    QList<QPair<uint32_t, xcb_get_window_attributes_cookie_t>> unknown;
    for (int i = 0; i < count; ++i) {
        if (!m_attributes.contains(children[i]))
            unknown.append({ children[i], xcb_get_window_attributes(m_connection, children[i]) });
    }
    for (const auto &[window, cookie] : std::as_const(unknown)) {
        const Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(m_connection, cookie, nullptr));
        if (attributes)
            m_attributes.insert(window,
                                { attributes->map_state == XCB_MAP_STATE_VIEWABLE,
                                  bool(attributes->override_redirect) });
    }

    QList<uint32_t> unmanaged;
    for (int i = 0; i < count; ++i) {
        const auto known = m_attributes.constFind(children[i]);
        // A window destroyed meanwhile is left out.
        if (known == m_attributes.cend())
            continue;
        const StackedWindow window { children[i], known->viewable, known->overrideRedirect,
                                     fromThisProgram(children[i]) };
        if (window.viewable && window.overrideRedirect && !window.fromThisProgram)
            unmanaged.append(window.id);
        stack.append(window);
    }
    const QSet<uint32_t> frames = framesAmong(unmanaged);
    for (StackedWindow &window : stack)
        window.overrideRedirect = window.overrideRedirect && !frames.contains(window.id);
    return stack;
}

QSet<uint32_t> XcbOverlayStacking::framesAmong(const QList<uint32_t> &windows)
{
    QList<uint32_t> unknown;
    for (uint32_t window : windows) {
        if (!m_frames.contains(window))
            unknown.append(window);
    }
    QList<xcb_query_tree_cookie_t> trees;
    for (uint32_t window : std::as_const(unknown))
        trees.append(xcb_query_tree(m_connection, window));
    // The window and its children, each asked for WM_STATE at once.
    QList<QPair<uint32_t, xcb_get_property_cookie_t>> states;
    for (qsizetype i = 0; i < unknown.size(); ++i) {
        states.append(
            { unknown.at(i),
              xcb_get_property(m_connection, 0, unknown.at(i), m_wmState, XCB_ATOM_ANY, 0, 0) });
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(m_connection, trees.at(i), nullptr));
        if (!tree)
            continue;
        const xcb_window_t *children = xcb_query_tree_children(tree.get());
        for (int c = 0; c < xcb_query_tree_children_length(tree.get()); ++c)
            states.append(
                { unknown.at(i),
                  xcb_get_property(m_connection, 0, children[c], m_wmState, XCB_ATOM_ANY, 0, 0) });
    }
    for (const auto &[frame, cookie] : std::as_const(states)) {
        const Reply<xcb_get_property_reply_t> state(
            xcb_get_property_reply(m_connection, cookie, nullptr));
        if (state && state->type != XCB_ATOM_NONE)
            m_frames.insert(frame);
    }
    QSet<uint32_t> result;
    for (uint32_t window : windows) {
        if (m_frames.contains(window))
            result.insert(window);
    }
    return result;
}

void XcbOverlayStacking::classifyWindowsAbove(const QList<StackedWindow> &stack,
                                              const QList<uint32_t> &ours)
{
    // Windows that vanished without a word to us no longer count.
    const bool wasLocked = sessionLocked();
    const auto gone = [&](uint32_t id) {
        return std::none_of(stack.cbegin(), stack.cend(),
                            [&](const StackedWindow &w) { return w.id == id && w.viewable; });
    };
    m_lockers.removeIf(gone);
    m_later.removeIf(gone);
    m_passedOver.removeIf(gone);

    QList<uint32_t> above = StackingPolicy::windowsAboveOurs(stack, ours);
    above.removeIf(
        [&](uint32_t window) { return m_later.contains(window) || m_passedOver.contains(window); });
    if (above.isEmpty()) {
        if (sessionLocked() != wasLocked)
            emit sessionLockedChanged();
        return;
    }
    QList<xcb_get_geometry_cookie_t> cookies;
    for (uint32_t window : std::as_const(above))
        cookies.append(xcb_get_geometry(m_connection, window));
    const uint32_t manager = windowManagerWindow();
    const QList<QRect> screens = monitors();
    for (qsizetype i = 0; i < above.size(); ++i) {
        const uint32_t window = above.at(i);
        const Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(m_connection, cookies.at(i), nullptr));
        const QRect rect =
            geometry ? QRect(geometry->x, geometry->y, geometry->width, geometry->height) : QRect();
        // The window manager's own windows (mutter keeps an override-redirect
        // guard window over the whole screen) and windows off every monitor
        // hold nothing down; a desktop whose window manager draws the lock
        // screen reports the lock on the bus.
        const bool fromManager =
            manager != XCB_NONE && (window & ~m_programIdMask) == (manager & ~m_programIdMask);
        const bool onScreen = std::any_of(screens.cbegin(), screens.cend(), [&](const QRect &m) {
            const QRect shared = m & rect;
            return shared.width() > 1 && shared.height() > 1;
        });
        if (fromManager || !onScreen) {
            m_passedOver.insert(window);
            continue;
        }
        m_later.insert(window);
        if (StackingPolicy::coversAMonitor(rect, screens)) {
            m_lockers.insert(window);
            qCInfo(lcStacking).nospace() << "XcbOverlayStacking: a screen locker covers the "
                                         << "overlays (window 0x" << Qt::hex << window << ")";
        }
    }
    if (sessionLocked() != wasLocked)
        emit sessionLockedChanged();
}

QList<QRect> XcbOverlayStacking::monitors()
{
    QList<QRect> result;
    // A request of a missing extension would close the connection.
    const xcb_query_extension_reply_t *randr = xcb_get_extension_data(m_connection, &xcb_randr_id);
    const Reply<xcb_randr_get_monitors_reply_t> reply(
        randr && randr->present ? xcb_randr_get_monitors_reply(
            m_connection, xcb_randr_get_monitors(m_connection, m_root, 1), nullptr)
                                : nullptr);
    if (reply) {
        for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem;
             xcb_randr_monitor_info_next(&it))
            result.append(QRect(it.data->x, it.data->y, it.data->width, it.data->height));
    }
    if (result.isEmpty()) {
        // Without RandR monitors the whole screen is the one monitor.
        const Reply<xcb_get_geometry_reply_t> root(
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, m_root), nullptr));
        if (root)
            result.append(QRect(0, 0, root->width, root->height));
    }
    return result;
}

uint32_t XcbOverlayStacking::windowManagerWindow()
{
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, m_root, m_supportingWmCheck, XCB_ATOM_WINDOW, 0, 1),
        nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 4)
        return XCB_NONE;
    return *static_cast<const uint32_t *>(xcb_get_property_value(reply.get()));
}

bool XcbOverlayStacking::fromThisProgram(uint32_t window) const
{
    return m_programIdMask != 0 && (window & ~m_programIdMask) == m_programIdBase;
}
