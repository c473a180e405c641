#include "platform/linux/XcbCompositorWatch.h"

#include <QByteArray>
#include <QLoggingCategory>
#include <QSocketNotifier>

#include <cstdlib>
#include <xcb/xfixes.h>

Q_LOGGING_CATEGORY(lcCompositor, "glimmora.platform")

std::unique_ptr<CompositorWatch> CompositorWatch::create()
{
    return std::make_unique<XcbCompositorWatch>();
}

namespace {

void logState(bool active, bool atStart)
{
    if (active && atStart)
        qCInfo(lcCompositor) << "XcbCompositorWatch: a compositing manager runs";
    else if (active)
        qCInfo(lcCompositor) << "XcbCompositorWatch: a compositing manager started;"
                             << "the overlays show whole again";
    else
        qCInfo(lcCompositor) << "XcbCompositorWatch: no compositing manager runs; transparent"
                             << "windows would show black, so the spotlight and the drawings"
                             << "stay hidden and only the controls show until one starts";
}

} // namespace

XcbCompositorWatch::XcbCompositorWatch()
{
    int screenNumber = 0;
    m_connection = xcb_connect(nullptr, &screenNumber);
    const xcb_query_extension_reply_t *xfixes = xcb_connection_has_error(m_connection)
        ? nullptr
        : xcb_get_extension_data(m_connection, &xcb_xfixes_id);
    if (!xfixes || !xfixes->present) {
        qCInfo(lcCompositor) << "XcbCompositorWatch: cannot watch the X server for a"
                             << "compositing manager; one is assumed";
        xcb_disconnect(m_connection);
        m_connection = nullptr;
        return;
    }
    std::free(xcb_xfixes_query_version_reply(
        m_connection, xcb_xfixes_query_version(m_connection, 5, 0), nullptr));
    m_selectionNotify = xfixes->first_event + XCB_XFIXES_SELECTION_NOTIFY;

    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < screenNumber && screens.rem; ++i)
        xcb_screen_next(&screens);
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(screenNumber);
    xcb_intern_atom_reply_t *atom = xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, uint16_t(name.size()), name.constData()),
        nullptr);
    const xcb_atom_t selection = atom ? atom->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(atom);
    xcb_xfixes_select_selection_input(m_connection, screens.data->root, selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    xcb_get_selection_owner_reply_t *owner = xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, selection), nullptr);
    m_owner = owner ? owner->owner : xcb_window_t(XCB_NONE);
    m_active = m_owner != XCB_NONE;
    std::free(owner);
    logState(m_active, true);

    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &XcbCompositorWatch::readEvents);
}

XcbCompositorWatch::~XcbCompositorWatch()
{
    m_notifier.reset();
    if (m_connection)
        xcb_disconnect(m_connection);
}

void XcbCompositorWatch::readEvents()
{
    const xcb_window_t previous = m_owner;
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        if ((event->response_type & 0x7f) == m_selectionNotify)
            m_owner = reinterpret_cast<xcb_xfixes_selection_notify_event_t *>(event)->owner;
        std::free(event);
    }
    if (xcb_connection_has_error(m_connection))
        m_notifier->setEnabled(false);
    if (m_owner == previous)
        return;
    const bool active = m_owner != XCB_NONE;
    if (active != m_active) {
        m_active = active;
        logState(m_active, false);
        emit activeChanged();
    }
    if (active)
        emit started();
}
