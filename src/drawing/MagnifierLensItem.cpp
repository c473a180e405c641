#include "drawing/MagnifierLensItem.h"

#include "platform/ScreenAreaGrabber.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QScreen>

#include <algorithm>
#include <cmath>

MagnifierLensItem::MagnifierLensItem(QQuickItem *parent)
    : QQuickPaintedItem(parent)
    , m_grabber(ScreenAreaGrabber::create())
{
    setAntialiasing(true);
    setOpaquePainting(false);
    m_timer.setInterval(33);
    connect(&m_timer, &QTimer::timeout, this, &MagnifierLensItem::captureFrame);
}

MagnifierLensItem::~MagnifierLensItem() = default;

void MagnifierLensItem::setGrabber(std::unique_ptr<ScreenAreaGrabber> grabber)
{
    m_grabber = std::move(grabber);
}

void MagnifierLensItem::setActive(bool active)
{
    if (m_active == active)
        return;
    m_active = active;
    if (m_active) {
        // The first picture must not wait for the timer.
        captureFrame();
        m_timer.start();
    } else {
        m_timer.stop();
        // No stale picture may flash up at the next start.
        m_frame = QImage();
        update();
    }
    emit activeChanged();
}

void MagnifierLensItem::setZoomFactor(double zoomFactor)
{
    const double bounded = std::clamp(zoomFactor, MinimumZoom, MaximumZoom);
    if (qFuzzyCompare(bounded, m_zoomFactor))
        return;
    m_zoomFactor = bounded;
    captureFrame();
    emit zoomFactorChanged();
}

QRect MagnifierLensItem::sourceSquare(const QPoint &pointer, const QSizeF &itemSize,
                                      double zoomFactor)
{
    const int lensSide =
        std::max(1, int(std::lround(std::max(itemSize.width(), itemSize.height()))));
    const int grabSide = std::max(MinimumGrabSide, int(std::lround(lensSide / zoomFactor)));
    return QRect(pointer.x() - grabSide / 2, pointer.y() - grabSide / 2, grabSide, grabSide);
}

void MagnifierLensItem::captureFrame()
{
    if (!m_active || width() <= 1 || height() <= 1 || !m_grabber)
        return;
    const QPoint pointer = QCursor::pos();
    QScreen *screen = QGuiApplication::screenAt(pointer);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    // Cut at the screen's border, not padded: near an edge the smaller
    // picture is stretched over the whole lens.
    const QRect area = sourceSquare(pointer, size(), m_zoomFactor) & screen->geometry();
    if (area.isEmpty())
        return;
    QImage frame = m_grabber->grab(screen, area, window());
    if (frame.isNull())
        return; // keep the previous picture
    m_frame = std::move(frame);
    update();
}

void MagnifierLensItem::paint(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QRectF lens = boundingRect().adjusted(1, 1, -1, -1);
    QPainterPath clip;
    clip.addEllipse(lens);
    painter->setClipPath(clip);
    if (m_frame.isNull())
        painter->fillRect(lens, QColor(14, 16, 20, 220));
    else
        painter->drawImage(lens, m_frame);
}
