#include "display/UncompositedShapes.h"

#include "display/OverlayManager.h"

#include <QQuickItem>
#include <QQuickWindow>

namespace {

void addPainted(QQuickItem *item, const QRectF &clip, QRectF &bounds)
{
    if (!item->isVisible() || item->opacity() <= 0.01)
        return;
    const QRectF scene = item->mapRectToScene(item->boundingRect());
    if (item->flags().testFlag(QQuickItem::ItemHasContents))
        bounds |= scene & clip;
    const QRectF childClip = item->clip() ? clip & scene : clip;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children)
        addPainted(child, childClip, bounds);
}

} // namespace

UncompositedShapes::UncompositedShapes(OverlayManager *overlayManager,
                                       std::unique_ptr<CompositorWatch> watch, QObject *parent)
    : QObject(parent)
    , m_overlayManager(overlayManager)
    , m_watch(std::move(watch))
{
    if (!m_watch)
        return;
    connect(m_watch.get(), &CompositorWatch::activeChanged, this, [this] {
        apply();
        emit compositingChanged();
    });
    connect(m_watch.get(), &CompositorWatch::started, this, &UncompositedShapes::compositorStarted);
}

void UncompositedShapes::setWindows(const QList<QWindow *> &overlays, QQuickWindow *hud)
{
    m_overlays.clear();
    for (QWindow *window : overlays)
        m_overlays.append(window);
    if (hud != m_hud) {
        disconnect(m_hudFrames);
        m_hud = hud;
    }
    apply();
}

QRegion UncompositedShapes::paintedArea(QQuickWindow *window)
{
    QRegion area;
    const QRectF whole(QPointF(0, 0), window->size());
    const QList<QQuickItem *> items = window->contentItem()->childItems();
    for (QQuickItem *item : items) {
        QRectF bounds;
        addPainted(item, whole, bounds);
        area += bounds.toAlignedRect();
    }
    return area;
}

void UncompositedShapes::apply()
{
    if (!m_overlayManager)
        return;
    const std::optional<QRegion> overlayArea =
        compositing() ? std::nullopt : std::optional<QRegion>(QRegion());
    for (const QPointer<QWindow> &window : std::as_const(m_overlays)) {
        if (window)
            m_overlayManager->setVisibleArea(window, overlayArea);
    }
    if (!m_hud)
        return;
    if (compositing()) {
        disconnect(m_hudFrames);
        m_overlayManager->setVisibleArea(m_hud, std::nullopt);
        return;
    }
    // Each frame may move, show or hide a control.
    if (!m_hudFrames)
        m_hudFrames =
            connect(m_hud, &QQuickWindow::afterAnimating, this, &UncompositedShapes::shapeHud);
    shapeHud();
}

void UncompositedShapes::shapeHud()
{
    if (m_hud)
        m_overlayManager->setVisibleArea(m_hud, paintedArea(m_hud));
}
