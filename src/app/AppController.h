#pragma once

#include "display/ClickThroughPolicy.h"
#include "platform/FolderRevealer.h"
#include "platform/PointerActivity.h"
#include "platform/PointerButtons.h"

#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <functional>
#include <memory>

class CaptureManager;
class DisplayManager;
class DrawingModel;
class OverlayManager;
class QImage;
class QScreen;
class RecordingManager;
class QTimer;
class SessionCapabilities;
class SettingsManager;

// The state every control surface talks to: tool, pause, pen colour, toolbar
// visibility and relocation, the settings flag, the quit flow, region capture,
// and the hit rectangles from which the pass-through of the overlay windows is
// recomputed while a 16 ms poll follows the pointer.
class AppController : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppController)

    // Tool, pause and magnifier change only through their slots.
    Q_PROPERTY(QString currentTool READ currentTool NOTIFY currentToolChanged FINAL)
    Q_PROPERTY(bool overlayEnabled READ overlayEnabled NOTIFY overlayEnabledChanged FINAL)
    Q_PROPERTY(bool magnifierEnabled READ magnifierEnabled NOTIFY magnifierEnabledChanged FINAL)
    Q_PROPERTY(bool settingsVisible READ settingsVisible NOTIFY settingsVisibleChanged FINAL)
    Q_PROPERTY(QPointF mousePosition READ mousePosition NOTIFY mousePositionChanged FINAL)
    Q_PROPERTY(
        QRectF toolbarRect READ toolbarRect WRITE setToolbarRect NOTIFY toolbarRectChanged FINAL)
    Q_PROPERTY(QRectF helpButtonRect READ helpButtonRect WRITE setHelpButtonRect NOTIFY
                   helpButtonRectChanged FINAL)
    Q_PROPERTY(QRectF shortcutCardRect READ shortcutCardRect WRITE setShortcutCardRect NOTIFY
                   shortcutCardRectChanged FINAL)
    Q_PROPERTY(QRectF statusBarRect READ statusBarRect WRITE setStatusBarRect NOTIFY
                   statusBarRectChanged FINAL)
    Q_PROPERTY(QRectF controlsRevealRect READ controlsRevealRect WRITE setControlsRevealRect NOTIFY
                   controlsRevealRectChanged FINAL)
    Q_PROPERTY(QRectF toastRect READ toastRect WRITE setToastRect NOTIFY toastRectChanged FINAL)
    Q_PROPERTY(QRectF modalRect READ modalRect WRITE setModalRect NOTIFY modalRectChanged FINAL)
    Q_PROPERTY(QString currentPenColor READ currentPenColor WRITE setCurrentPenColor NOTIFY
                   currentPenColorChanged FINAL)
    Q_PROPERTY(QString lastKeystroke READ lastKeystroke NOTIFY keystrokeChanged FINAL)
    Q_PROPERTY(bool toolbarVisible READ toolbarVisible WRITE setToolbarVisible NOTIFY
                   toolbarVisibleChanged FINAL)
    Q_PROPERTY(QString activeDisplayId READ activeDisplayId NOTIFY activeDisplayIdChanged FINAL)
    Q_PROPERTY(bool toolbarDragging READ toolbarDragging NOTIFY toolbarDraggingChanged FINAL)
    Q_PROPERTY(bool toolbarMoving READ toolbarMoving NOTIFY toolbarMovingChanged FINAL)
    Q_PROPERTY(QRectF toolbarMoveVisualRect READ toolbarMoveVisualRect NOTIFY
                   toolbarMoveVisualRectChanged FINAL)
    Q_PROPERTY(QString toolbarDragTargetDisplayId READ toolbarDragTargetDisplayId NOTIFY
                   toolbarDragTargetDisplayIdChanged FINAL)
    Q_PROPERTY(bool toolbarDragTargetEnabled READ toolbarDragTargetEnabled NOTIFY
                   toolbarDragTargetEnabledChanged FINAL)
    Q_PROPERTY(QPointF dragCursorPos READ dragCursorPos NOTIFY dragCursorPosChanged FINAL)
    Q_PROPERTY(QString linuxSessionType READ linuxSessionType CONSTANT FINAL)
    Q_PROPERTY(QString linuxWindowingBackend READ linuxWindowingBackend CONSTANT FINAL)
    Q_PROPERTY(QString linuxCapabilitySummary READ linuxCapabilitySummary NOTIFY
                   linuxCapabilitySummaryChanged FINAL)
    Q_PROPERTY(bool linuxUsesX11Backend READ linuxUsesX11Backend CONSTANT FINAL)
    Q_PROPERTY(bool linuxHotkeysAvailable READ linuxHotkeysAvailable CONSTANT FINAL)
    Q_PROPERTY(bool linuxClickThroughAvailable READ linuxClickThroughAvailable CONSTANT FINAL)
    Q_PROPERTY(
        bool linuxInputVisualizationAvailable READ linuxInputVisualizationAvailable CONSTANT FINAL)
    Q_PROPERTY(bool linuxPortalRequired READ linuxPortalRequired CONSTANT FINAL)
    // False where the lens cannot see the screen below itself; the toolbar
    // then offers no magnifier.
    Q_PROPERTY(bool magnifierAvailable READ magnifierAvailable CONSTANT FINAL)
    Q_PROPERTY(QString captureStatus READ captureStatus NOTIFY captureStatusChanged FINAL)
    Q_PROPERTY(QString captureLastPath READ captureLastPath NOTIFY captureStatusChanged FINAL)
    Q_PROPERTY(bool webpSupported READ webpSupported CONSTANT FINAL)
    Q_PROPERTY(bool recordingAvailable READ recordingAvailable CONSTANT FINAL)
    Q_PROPERTY(int recordingState READ recordingState NOTIFY recordingStateChanged FINAL)
    Q_PROPERTY(int recordingElapsed READ recordingElapsed NOTIFY recordingElapsedChanged FINAL)
    Q_PROPERTY(bool captureInProgress READ captureInProgress NOTIFY captureInProgressChanged FINAL)
    Q_PROPERTY(bool regionSelecting READ regionSelecting NOTIFY regionSelectingChanged FINAL)
    Q_PROPERTY(bool sessionLocked READ sessionLocked NOTIFY sessionLockedChanged FINAL)

public:
    // Every manager may be null; each use tests for it.
    explicit AppController(
        SettingsManager *settings, OverlayManager *overlayManager, DrawingModel *drawingModel,
        CaptureManager *captureManager, DisplayManager *displayManager,
        RecordingManager *recordingManager,
        std::unique_ptr<PointerButtons> pointerButtons = PointerButtons::create(),
        std::unique_ptr<PointerActivity> pointerActivity = PointerActivity::create(),
        std::unique_ptr<FolderRevealer> folderRevealer = FolderRevealer::create(),
        QObject *parent = nullptr);
    ~AppController() override;

    QString currentTool() const { return m_currentTool; }
    bool overlayEnabled() const { return m_overlayEnabled; }
    bool magnifierEnabled() const { return m_magnifierEnabled; }
    bool settingsVisible() const { return m_settingsVisible; }
    // A dialog or card of the HUD that takes every click (quit, first run).
    bool modalActive() const { return m_modalActive; }
    QPointF mousePosition() const { return m_mousePosition; }
    QRectF toolbarRect() const { return m_toolbarRect; }
    QRectF helpButtonRect() const { return m_helpButtonRect; }
    QRectF shortcutCardRect() const { return m_shortcutCardRect; }
    QRectF statusBarRect() const { return m_statusBarRect; }
    QRectF controlsRevealRect() const { return m_controlsRevealRect; }
    QRectF toastRect() const { return m_toastRect; }
    QRectF modalRect() const { return m_modalRect; }
    QString currentPenColor() const { return m_currentPenColor; }
    QString lastKeystroke() const { return m_lastKeystroke; }
    bool toolbarVisible() const { return m_toolbarVisible; }
    QString activeDisplayId() const { return m_activeDisplayId; }
    bool toolbarDragging() const { return m_toolbarDragging; }
    bool toolbarMoving() const { return m_toolbarMoving; }
    QRectF toolbarMoveVisualRect() const { return m_toolbarMoveVisualRect; }
    QString toolbarDragTargetDisplayId() const { return m_toolbarDragTargetDisplayId; }
    bool toolbarDragTargetEnabled() const { return m_toolbarDragTargetEnabled; }
    QPointF dragCursorPos() const { return m_dragCursorPos; }
    QString linuxSessionType() const;
    QString linuxWindowingBackend() const;
    QString linuxCapabilitySummary() const;
    bool linuxUsesX11Backend() const;
    bool linuxHotkeysAvailable() const;
    bool linuxClickThroughAvailable() const;
    bool linuxInputVisualizationAvailable() const;
    bool linuxPortalRequired() const;
    bool magnifierAvailable() const;
    QString captureStatus() const { return m_captureStatus; }
    QString captureLastPath() const { return m_captureLastPath; }
    bool webpSupported() const;
    // Read from the environment each time: the recording controls are a
    // channel switch, on only for GLIMMORA_ENABLE_RECORDING=1.
    bool recordingAvailable() const;
    int recordingState() const;
    int recordingElapsed() const;
    bool captureInProgress() const { return m_captureInProgress; }
    bool regionSelecting() const { return m_regionSelecting; }
    // A screen locker is up: no keystroke text is taken in meanwhile.
    bool sessionLocked() const { return m_sessionLocked; }

    void setToolbarRect(const QRectF &rect);
    void setHelpButtonRect(const QRectF &rect);
    void setShortcutCardRect(const QRectF &rect);
    void setStatusBarRect(const QRectF &rect);
    void setControlsRevealRect(const QRectF &rect);
    void setToastRect(const QRectF &rect);
    void setModalRect(const QRectF &rect);

    // The HUD's interactive value from the last refresh.
    bool hudInteractive() const { return m_lastHudInteractive; }

    // The screen of the control display, else the primary screen.
    QScreen *controlScreen() const;
    // The strokes of the control display for a capture, or a null image when
    // they are already on screen or not wanted.
    QImage annotationImage(QScreen *screen) const;

    // One tick of the pointer poll; the 16 ms timer calls it.
    void pollPointer();

    Q_INVOKABLE bool isPointInToolbarZone(const QPointF &p) const;

public slots:
    void setTool(const QString &tool);
    void toggleOverlay();
    void toggleMagnifier();
    void setOverlayEnabled(bool enabled);
    void clearDrawing();
    void setMagnifierEnabled(bool enabled);
    void exitToCursor();
    void showSettings();
    void hideSettings();
    void setCurrentPenColor(const QString &color);
    void openColorDialog();
    void copyToClipboard(const QString &text);
    void reportKeystroke(const QString &combo);
    void setSessionLocked(bool locked);
    // Whether a compositing manager shows the overlays' transparency.
    void setCompositing(bool active);
    void toggleToolbar();
    void setToolbarVisible(bool visible);
    void setModalActive(bool active);
    void refreshClickThroughState();
    void requestQuit();
    void confirmAndQuit(bool dontAskAgain);
    void captureFullScreen();
    void captureRegion();
    void commitRegionCapture(qreal x, qreal y, qreal w, qreal h);
    // The screen shows the controls window without its content: a capture
    // waiting for that goes ahead.
    void controlsHiddenOnScreen();
    void cancelRegionCapture();
    void showSettingsPage(const QString &pageId);
    void startRecording();
    void pauseResumeRecording();
    void stopRecording();
    QPointF cursorPos() const;
    void beginToolbarDrag();
    void updateToolbarDrag(const QPointF &globalPos);
    bool endToolbarDrag();
    void beginToolbarMove();
    void updateToolbarMove(const QPointF &globalPos);
    void updateToolbarMoveVisual(const QPointF &topLeft, const QSizeF &size);
    bool endToolbarMove();
    void revealInFolder(const QString &path);
    void chooseSaveFolder();

signals:
    void currentToolChanged();
    void overlayEnabledChanged();
    void magnifierEnabledChanged();
    void settingsVisibleChanged();
    void modalActiveChanged();
    void mousePositionChanged();
    void toolbarRectChanged();
    void helpButtonRectChanged();
    void shortcutCardRectChanged();
    void statusBarRectChanged();
    void controlsRevealRectChanged();
    void toastRectChanged();
    void modalRectChanged();
    void currentPenColorChanged();
    void keystrokeChanged();
    void toolbarVisibleChanged();
    void activeDisplayIdChanged();
    void toolbarDraggingChanged();
    void toolbarMovingChanged();
    void toolbarMoveVisualRectChanged();
    void toolbarDragTargetDisplayIdChanged();
    void toolbarDragTargetEnabledChanged();
    void dragCursorPosChanged();
    void captureStatusChanged();
    void recordingStateChanged();
    void recordingElapsedChanged();
    void captureInProgressChanged();
    void regionSelectingChanged();
    void sessionLockedChanged();
    void linuxCapabilitySummaryChanged();
    void settingsPageRequested(const QString &pageId);
    void regionCaptureRequested();
    void recordingSaved(const QString &path);
    void quitRequested();
    void mouseClicked(const QPointF &pos, int buttons);

private:
    void applyToolbarVisibilityForTool();
    void setRect(QRectF &field, const QRectF &rect, void (AppController::*notify)());
    void setMousePosition(const QPointF &p);
    void setPollResting(bool resting);
    void setRegionSelecting(bool selecting);
    void setCaptureInProgress(bool inProgress);
    void grabWhenControlsHidden(std::function<void()> grab);
    void runPendingGrab();
    void finishCapture(bool success, const QString &path, const QString &error);
    void onRecordingFinished(bool success, const QString &path);
    void updateToolbarDragTarget(const QPointF &p);
    bool commitToolbarDragTarget();
    void setToolbarDragTarget(const QString &id, bool enabled);
    QString displayIdAt(const QPointF &p) const;
    ClickThroughState clickThroughState() const;
    std::optional<QRect> controlScreenGeometryAt(const QPointF &p) const;

    SettingsManager *m_settings;
    OverlayManager *m_overlayManager;
    DisplayManager *m_displayManager;
    DrawingModel *m_drawingModel;
    CaptureManager *m_captureManager;
    RecordingManager *m_recordingManager;
    std::unique_ptr<PointerButtons> m_pointerButtons;
    std::unique_ptr<PointerActivity> m_pointerActivity;
    std::unique_ptr<SessionCapabilities> m_session;
    std::unique_ptr<FolderRevealer> m_folderRevealer;
    QTimer *m_pollTimer = nullptr;

    QString m_activeDisplayId;
    QString m_currentTool = QStringLiteral("cursor");
    QString m_currentPenColor = QStringLiteral("#F4C24A");
    QString m_lastKeystroke;
    bool m_toolbarVisible = true;
    bool m_overlayEnabled = true;
    bool m_magnifierEnabled = false;
    bool m_settingsVisible = false;
    bool m_modalActive = false;
    bool m_toolbarDragging = false;
    bool m_toolbarMoving = false;
    QRectF m_toolbarMoveVisualRect;
    bool m_toolbarDragTargetEnabled = false;
    QString m_toolbarDragTargetDisplayId;
    QPointF m_dragCursorPos;
    QPointF m_mousePosition;
    int m_previousButtons = 0;
    int m_quietTicks = 0;
    bool m_pollResting = false;
    bool m_lastHudInteractive = false;
    QString m_captureStatus;
    QString m_captureLastPath;
    QRectF m_toolbarRect;
    QRectF m_helpButtonRect;
    QRectF m_shortcutCardRect;
    QRectF m_statusBarRect;
    QRectF m_controlsRevealRect;
    QRectF m_toastRect;
    QRectF m_modalRect;
    bool m_captureInProgress = false;
    std::function<void()> m_pendingGrab;
    QTimer *m_grabFallback = nullptr;
    bool m_regionSelecting = false;
    bool m_sessionLocked = false;
    bool m_compositing = true;
    bool m_savedOverlayEnabled = true;
    bool m_savedToolbarVisible = true;
};
