#pragma once

#include "display/UncompositedShapes.h"
#include "platform/CompositorWatch.h"
#include "platform/OverlayStacking.h"
#include "platform/OverlayWindowStyle.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <memory>

class AppController;
class DisplayManager;
class OverlayManager;
class QQmlEngine;
class QQuickWindow;
class QScreen;

// Owns the windows on the displays: the root document's window on the control
// display, one SecondaryOverlay per other enabled display and the HudWindow
// with the controls, and keeps them on their screens as displays come, go,
// move and change roles, and above the desktop's windows: the overlays, then
// the HUD on top, below a screen locker.
class OverlayWindowManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(OverlayWindowManager)

public:
    OverlayWindowManager(DisplayManager *displayManager, OverlayManager *overlayManager,
                         AppController *appController, QQmlEngine *engine, QQuickWindow *mainWindow,
                         std::unique_ptr<OverlayWindowStyle> style = OverlayWindowStyle::create(),
                         std::unique_ptr<OverlayStacking> stacking = OverlayStacking::create(),
                         std::unique_ptr<CompositorWatch> compositor = CompositorWatch::create(),
                         QObject *parent = nullptr);
    ~OverlayWindowManager() override;

    // Hides every window; the objects stay. For the way out.
    void hideAll();

    QQuickWindow *hudWindow() const { return m_hud; }
    QQuickWindow *secondary(const QString &displayId) const
    {
        return m_secondaries.value(displayId);
    }
    QStringList secondaryIds() const { return m_secondaries.keys(); }
    QString currentControlId() const { return m_currentControlId; }
    // A screen locker stands above the windows, or the desktop reports the
    // session locked; the windows are not restacked meanwhile.
    bool sessionLocked() const { return m_stacking && m_stacking->sessionLocked(); }
    // Whether a compositing manager shows the windows' transparency.
    bool compositing() const { return m_shapes.compositing(); }

    // The displays that get a secondary overlay: every enabled one but the
    // control display, plus the target of a toolbar move, enabled or not.
    static QStringList wantedSecondaryIds(const QVariantList &displays, const QString &controlId,
                                          bool toolbarInMotion, const QString &dragTargetId);

    void syncControlWindow();
    void syncSecondaries();

signals:
    void sessionLockedChanged();
    void compositingChanged();

private:
    QScreen *screenForDisplay(const QString &displayId) const;
    QString controlDisplayId() const;
    bool toolbarDragging() const;
    bool toolbarInMotion() const;
    void createSecondary(const QString &displayId, QScreen *screen);
    void destroySecondary(const QString &displayId);
    void createHud(QScreen *screen);
    void destroyHud();
    void setOverlaysVisible(bool visible);
    // Styles and places a document's window between its creation and its
    // completion, when the document would show it.
    void prepare(QQuickWindow *window, OverlayWindowStyle::Focus focus, QScreen *screen);
    void renewNativeWindows();
    // Hands the current windows to the stacking and the shapes.
    void updateWindowLists();

    DisplayManager *m_displayManager;
    OverlayManager *m_overlayManager;
    AppController *m_appController;
    QQmlEngine *m_engine;
    QPointer<QQuickWindow> m_mainWindow;
    std::unique_ptr<OverlayWindowStyle> m_style;
    std::unique_ptr<OverlayStacking> m_stacking;
    UncompositedShapes m_shapes;
    QQuickWindow *m_hud = nullptr;
    QString m_currentControlId;
    QMap<QString, QQuickWindow *> m_secondaries;
};
