#pragma once

#include "platform/ScreenAreaGrabber.h"

#include <QHash>
#include <QList>
#include <QRgb>

#include <optional>
#include <vector>
#include <xcb/render.h>
#include <xcb/xcb.h>

// Rebuilds a screen area from the pictures that the compositing manager keeps
// of every top-level window, bottom to top, with one window left out: X11 has
// no way to keep a window out of a grab of the screen itself. The server
// blends them with the same operations a compositing manager uses. The
// desktop behind the windows is the root window's background picture, or,
// where the compositing manager paints one of its own, the colour a grab of
// the screen shows at free places near the area. What a compositing manager
// draws of its own accord, such as shadows, is not in the picture.
class XcbCompositeGrabber final : public ScreenAreaGrabber
{
public:
    XcbCompositeGrabber();

    QImage grab(QScreen *screen, const QRect &area, QWindow *leftOut) override;

private:
    struct TopLevel
    {
        xcb_window_t id;
        QRect rect; // border included, in root coordinates
        QRect shown; // the area the compositing manager draws
        int border;
        xcb_render_pictformat_t format;
        bool alpha;
    };
    class Pictures;
    // Requests in flight for the desktop's colour beside the area.
    struct DesktopSamples
    {
        xcb_pixmap_t pixmap = XCB_NONE;
        xcb_render_picture_t target = XCB_NONE;
        xcb_get_image_cookie_t coverage {};
        std::vector<xcb_get_image_cookie_t> shown;
    };

    bool readFormats();
    // The wallpaper's pixmap, none, or nullopt where no compositing manager runs.
    std::optional<xcb_pixmap_t> desktopPicture();
    DesktopSamples askDesktopSamples(const QRect &area, const QRect &screen,
                                     const QList<TopLevel> &windows, Pictures &pictures);
    void takeDesktopSamples(const DesktopSamples &samples);
    QList<TopLevel> viewableTopLevels();
    void clipToFrames(QList<TopLevel> &windows);
    xcb_window_t topLevelOf(xcb_window_t window);
    xcb_render_picture_t newTarget(const QSize &size, xcb_pixmap_t *pixmap);
    void compose(xcb_render_picture_t target, const QRect &source, const QPoint &at,
                 const QList<TopLevel> &windows, xcb_window_t leftOut, Pictures &pictures);
    void composeRootPicture(xcb_render_picture_t target, const QRect &source,
                            xcb_pixmap_t rootPixmap);
    static QList<QPoint> samplePoints(const QRect &area, const QRect &bounds);

    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_NONE;
    xcb_atom_t m_managerSelection = XCB_NONE;
    xcb_atom_t m_rootPixmapAtom = XCB_NONE;
    xcb_atom_t m_frameExtentsAtom = XCB_NONE;
    xcb_render_pictformat_t m_argbFormat = 0;
    xcb_render_pictformat_t m_rootFormat = 0;
    QHash<xcb_visualid_t, xcb_render_pictformat_t> m_formatOfVisual;
    QHash<xcb_render_pictformat_t, bool> m_formatHasAlpha;
    bool m_ready = false;
    bool m_warnedNoManager = false;
    xcb_window_t m_leftOutWindow = XCB_NONE;
    xcb_window_t m_leftOutTopLevel = XCB_NONE;
    std::optional<QRgb> m_desktopColour;
    // Per top-level window and size: the area its frame shows, in the
    // window's own coordinates.
    QHash<xcb_window_t, QPair<QSize, QRect>> m_shownParts;
};
