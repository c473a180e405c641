#include "platform/linux/XcbPointerActivity.h"

#include "platform/PointerButtons.h"

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <cstdlib>
#include <xcb/xinput.h>

Q_LOGGING_CATEGORY(lcPointerActivity, "glimmora.platform")

std::unique_ptr<PointerActivity> PointerActivity::create()
{
    return std::make_unique<XcbPointerActivity>();
}

XcbPointerActivity::XcbPointerActivity()
{
    int screenNumber = 0;
    m_connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(m_connection)) {
        qCInfo(lcPointerActivity)
            << "XcbPointerActivity: no X connection, the poll reads every tick";
        return;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < screenNumber && screens.rem; ++i)
        xcb_screen_next(&screens);

    // Raw events go to every client that selects them on the root window
    // only from XInput 2.2 on, even while another client grabs the pointer.
    xcb_input_xi_query_version_reply_t *version = xcb_input_xi_query_version_reply(
        m_connection, xcb_input_xi_query_version(m_connection, 2, 2), nullptr);
    const bool recent = version
        && (version->major_version > 2
            || (version->major_version == 2 && version->minor_version >= 2));
    std::free(version);
    const xcb_query_extension_reply_t *input = xcb_get_extension_data(m_connection, &xcb_input_id);
    if (!screens.data || !recent || !input) {
        qCInfo(lcPointerActivity)
            << "XcbPointerActivity: XInput 2.2 is missing, the poll reads every tick";
        return;
    }

    struct
    {
        xcb_input_event_mask_t head;
        uint32_t mask;
    } raw { { XCB_INPUT_DEVICE_ALL_MASTER, 1 },
            XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS
                | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE };
    xcb_input_xi_select_events(m_connection, screens.data->root, 1, &raw.head);
    xcb_flush(m_connection);
    m_inputOpcode = input->major_opcode;
    m_watching = true;
}

XcbPointerActivity::~XcbPointerActivity()
{
    m_wakeUp.reset();
    xcb_disconnect(m_connection);
}

bool XcbPointerActivity::takeActivity()
{
    m_pressed = 0;
    if (!m_watching || xcb_connection_has_error(m_connection))
        return true;
    if (m_wakeUp)
        m_wakeUp->setEnabled(false);
    // Only raw pointer events are selected, so any event means input.
    bool seen = false;
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
        seen = true;
        const auto *generic = reinterpret_cast<const xcb_ge_generic_event_t *>(event);
        if ((event->response_type & 0x7f) == XCB_GE_GENERIC && generic->extension == m_inputOpcode
            && generic->event_type == XCB_INPUT_RAW_BUTTON_PRESS) {
            const auto *press = reinterpret_cast<const xcb_input_raw_button_press_event_t *>(event);
            if (press->detail == 1)
                m_pressed |= PointerButtons::Left;
            else if (press->detail == 2)
                m_pressed |= PointerButtons::Middle;
            else if (press->detail == 3)
                m_pressed |= PointerButtons::Right;
        }
        std::free(event);
    }
    return seen;
}

bool XcbPointerActivity::wakeOnInput(std::function<void()> onInput)
{
    if (!m_watching || xcb_connection_has_error(m_connection))
        return false;
    m_onInput = std::move(onInput);
    if (!m_wakeUp) {
        m_wakeUp = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection),
                                                     QSocketNotifier::Read);
        QObject::connect(m_wakeUp.get(), &QSocketNotifier::activated, m_wakeUp.get(), [this] {
            // Once: the poll reads the events itself when it wakes.
            m_wakeUp->setEnabled(false);
            if (m_onInput)
                m_onInput();
        });
    }
    // Events that came since the last read make the socket readable at once.
    m_wakeUp->setEnabled(true);
    return true;
}
