#pragma once

#include "platform/OverlayWindowStyle.h"

#include <QHash>
#include <QObject>

#include <cstdint>

struct xcb_connection_t;

// Override-redirect windows: the window manager neither stacks, focuses nor
// lists them, so the program stacks them itself. Qt's bypass flag makes them
// override-redirect; it must be in place before the first map, since a
// window manager takes over a window mapped as an ordinary one and does not
// let go cleanly. The properties for taskbar, pager and compositor are
// written on every native window Qt creates for them.
class XcbOverlayWindowStyle : public QObject, public OverlayWindowStyle
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(XcbOverlayWindowStyle)

public:
    explicit XcbOverlayWindowStyle(QObject *parent = nullptr);

    void apply(QWindow *window, Focus focus) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void withStyle(QWindow *window);
    void writeProperties(uint32_t nativeWindow);
    void addStates(uint32_t nativeWindow);
    uint32_t internAtom(const char *name) const;

    xcb_connection_t *m_connection = nullptr;
    uint32_t m_bypassCompositor = 0;
    uint32_t m_state = 0;
    uint32_t m_skipTaskbar = 0;
    uint32_t m_skipPager = 0;
    // The flags each styled window must carry.
    QHash<QWindow *, Qt::WindowFlags> m_windows;
};
