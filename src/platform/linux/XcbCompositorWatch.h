#pragma once

#include "platform/CompositorWatch.h"

#include <memory>
#include <xcb/xcb.h>

class QSocketNotifier;

// A compositing manager owns the selection _NET_WM_CM_S<screen>; XFixes
// reports each change of owner, so one started or stopped later is seen at
// once. The X connection is our own, so its events need no sorting out from
// the toolkit's.
class XcbCompositorWatch final : public CompositorWatch
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(XcbCompositorWatch)

public:
    XcbCompositorWatch();
    ~XcbCompositorWatch() override;

    bool isActive() const override { return m_active; }

private:
    void readEvents();

    xcb_connection_t *m_connection = nullptr;
    std::unique_ptr<QSocketNotifier> m_notifier;
    uint8_t m_selectionNotify = 0;
    xcb_window_t m_owner = XCB_NONE;
    // Until it can be asked, a compositor is assumed, as on most desktops.
    bool m_active = true;
};
