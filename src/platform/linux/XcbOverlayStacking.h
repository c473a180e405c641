#pragma once

#include "display/StackingPolicy.h"
#include "platform/OverlayStacking.h"
#include "platform/linux/DBusScreenLockWatch.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPointer>
#include <QSet>
#include <QTimer>

#include <memory>
#include <xcb/xcb.h>

class QSocketNotifier;

// Stacking on X11. Override-redirect windows are stacked by nobody but their
// owner, so the program watches the root window's children on a connection
// of its own (SubstructureNotify: maps, restacks, circulations) and restacks
// its windows in one go when another window comes above them. A viewable
// override-redirect window of another client that covers a whole monitor
// above ours is a screen locker: while one is up, or while the desktop
// reports the session locked, nothing is restacked.
class XcbOverlayStacking final : public OverlayStacking
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(XcbOverlayStacking)

public:
    XcbOverlayStacking();
    ~XcbOverlayStacking() override;

    void setWindows(const QList<QWindow *> &bottomToTop) override;
    bool sessionLocked() const override { return !m_lockers.isEmpty() || m_busLock.locked(); }

private:
    void readEvents();
    void handleEvent(const xcb_generic_event_t *event);
    void scheduleCheck();
    void check();
    QList<uint32_t> ourWindows() const;
    QList<StackedWindow> queryStack();
    // Which of these override-redirect windows are a window manager's frames
    // around an application (ICCCM's WM_STATE on the window or a child).
    QSet<uint32_t> framesAmong(const QList<uint32_t> &windows);
    QList<QRect> monitors();
    // Sorts other programs' override-redirect windows above ours into those
    // that hold ours down (and lockers among them) and those passed over.
    void classifyWindowsAbove(const QList<StackedWindow> &stack, const QList<uint32_t> &ours);
    void forgetWindow(uint32_t window);
    bool fromThisProgram(uint32_t window) const;
    // The window manager's check window, which its other windows share a
    // client with; none without a window manager.
    uint32_t windowManagerWindow();

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_NONE;
    // The resource ids of the toolkit's own connection: windows of this program.
    uint32_t m_programIdBase = 0;
    uint32_t m_programIdMask = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QList<QPointer<QWindow>> m_windows;
    // What the notifications told of each child of the root.
    struct Attributes
    {
        bool viewable = false;
        bool overrideRedirect = false;
    };
    QHash<uint32_t, Attributes> m_attributes;
    // Other programs' override-redirect windows that came above ours: ours
    // stay below them until they go. Lockers are among them.
    QSet<uint32_t> m_later;
    QSet<uint32_t> m_lockers;
    // The window manager's own, and windows off every monitor.
    QSet<uint32_t> m_passedOver;
    // Frames found once stay frames.
    QSet<uint32_t> m_frames;
    xcb_atom_t m_wmState = XCB_ATOM_NONE;
    xcb_atom_t m_supportingWmCheck = XCB_ATOM_NONE;
    DBusScreenLockWatch m_busLock;
    QTimer m_checkTimer;
    QElapsedTimer m_sinceRestack;
};
