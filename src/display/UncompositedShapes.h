#pragma once

#include "platform/CompositorWatch.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRegion>

#include <memory>

class OverlayManager;
class QQuickWindow;
class QWindow;

// Without a compositing manager a transparent window shows black wherever it
// paints nothing, which would blank the presenter's screen. Then the drawing
// overlays are shaped to nothing, and the controls window to the places where
// its controls paint, renewed with each of its frames. Once a compositor runs
// every window is whole again.
class UncompositedShapes : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UncompositedShapes)

public:
    UncompositedShapes(OverlayManager *overlayManager, std::unique_ptr<CompositorWatch> watch,
                       QObject *parent = nullptr);

    bool compositing() const { return !m_watch || m_watch->isActive(); }
    void setWindows(const QList<QWindow *> &overlays, QQuickWindow *hud);

    // The bounding rectangle of what each top-level item of the window
    // paints, in window coordinates; hidden and fully transparent items and
    // items without content of their own count for nothing.
    static QRegion paintedArea(QQuickWindow *window);

signals:
    void compositingChanged();
    // A compositing manager took over after the windows were shown.
    void compositorStarted();

private:
    void apply();
    void shapeHud();

    OverlayManager *m_overlayManager;
    std::unique_ptr<CompositorWatch> m_watch;
    QList<QPointer<QWindow>> m_overlays;
    QPointer<QQuickWindow> m_hud;
    QMetaObject::Connection m_hudFrames;
};
