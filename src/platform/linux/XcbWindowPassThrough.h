#pragma once

#include "platform/WindowPassThrough.h"

#include <QHash>
#include <QObject>
#include <QRegion>

#include <cstdint>
#include <optional>

struct xcb_connection_t;

// Mouse pass-through through the window's XShape input region: an empty
// region lets every click fall to the window below, no region takes them all,
// and an area takes the clicks inside it only.
// The bounding region limits what is seen of a window where nothing
// composites it.
// Qt's own transparent-for-input flag resets the region to the window's size
// at the moment it is cleared, so a later resize would leave the new area
// click-through; the region is therefore written here directly.
class XcbWindowPassThrough : public QObject, public WindowPassThrough
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(XcbWindowPassThrough)

public:
    explicit XcbWindowPassThrough(QObject *parent = nullptr);

    void setPassThrough(QWindow *window, bool passThrough) override;
    bool setInputArea(QWindow *window, const QRegion &area) override;
    void excludeFromCapture(QWindow *window) override;
    void setVisibleArea(QWindow *window, const std::optional<QRegion> &area) override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Where the window takes the mouse: all of it, or the area (none when empty).
    struct Input
    {
        bool whole = true;
        QRegion area;
        bool operator==(const Input &) const = default;
    };

    struct WindowState
    {
        Input wanted;
        // Native window the region belongs to, and what it holds; unknown for
        // a window that existed before it was handed to us.
        uint32_t nativeWindow = 0;
        std::optional<Input> applied;
        // The bounding region: none is the whole window.
        std::optional<QRegion> visibleArea;
        bool visibleAreaApplied = true;
    };

    void want(QWindow *window, const Input &input);
    void track(QWindow *window);
    void apply(QWindow *window, WindowState &state);
    void writeRegion(uint32_t nativeWindow, const Input &input, qreal ratio);
    void writeVisibleArea(QWindow *window, const WindowState &state);

    xcb_connection_t *m_connection = nullptr;
    bool m_shapeAvailable = false;
    bool m_captureLimitLogged = false;
    QHash<QWindow *, WindowState> m_windows;
};
