#include "app/AppController.h"

#include "capture/CaptureManager.h"
#include "display/DisplayManager.h"
#include "display/OverlayManager.h"
#include "drawing/DrawingModel.h"
#include "drawing/RenderStrokesToImage.h"
#include "platform/SessionCapabilities.h"
#include "recording/RecordingManager.h"
#include "settings/SettingsManager.h"

#include <QClipboard>
#include <QColorDialog>
#include <QCoreApplication>
#include <QCursor>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QLoggingCategory>
#include <QPointer>
#include <QScreen>
#include <QTimer>

Q_LOGGING_CATEGORY(lcController, "glimmora.app.controller")

namespace {
constexpr int pollIntervalMs = 16;
// While no input arrives the poll still reads the pointer this often, for a
// pointer that something other than a device moved.
constexpr int quietTicksPerRead = 16;
// After that many quiet ticks the poll rests: it is woken by the next input
// and otherwise only reads the pointer at this interval.
constexpr int restIntervalMs = quietTicksPerRead * pollIntervalMs;
// After the HUD has presented a frame without its content, the compositing
// manager still has to draw the screen anew.
constexpr int compositorMarginMs = 50;
// A capture goes ahead without word from the HUD after this long: there may
// be no HUD on screen at all.
constexpr int controlsHiddenTimeoutMs = 3000;
const QString hudKey = QStringLiteral("hud");

bool isNonDrawingTool(const QString &tool)
{
    return tool == QLatin1String("cursor") || tool == QLatin1String("spotlight");
}
} // namespace

AppController::AppController(SettingsManager *settings, OverlayManager *overlayManager,
                             DrawingModel *drawingModel, CaptureManager *captureManager,
                             DisplayManager *displayManager, RecordingManager *recordingManager,
                             std::unique_ptr<PointerButtons> pointerButtons,
                             std::unique_ptr<PointerActivity> pointerActivity,
                             std::unique_ptr<FolderRevealer> folderRevealer, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_overlayManager(overlayManager)
    , m_displayManager(displayManager)
    , m_drawingModel(drawingModel)
    , m_captureManager(captureManager)
    , m_recordingManager(recordingManager)
    , m_pointerButtons(std::move(pointerButtons))
    , m_pointerActivity(std::move(pointerActivity))
    , m_session(SessionCapabilities::create())
    , m_folderRevealer(std::move(folderRevealer))
{
    if (m_displayManager) {
        connect(m_displayManager, &DisplayManager::controlDisplayIdChanged, this,
                &AppController::refreshClickThroughState);
        connect(m_displayManager, &DisplayManager::displaysChanged, this,
                &AppController::refreshClickThroughState);
    }
    if (m_settings) {
        m_currentPenColor = m_settings->defaultDrawingColor();
        connect(m_settings, &SettingsManager::defaultDrawingColorChanged, this,
                [this] { setCurrentPenColor(m_settings->defaultDrawingColor()); });
        // A new default tool takes over at once, except from the spotlight.
        connect(m_settings, &SettingsManager::defaultDrawingToolChanged, this, [this] {
            if (m_currentTool != QLatin1String("spotlight"))
                setTool(m_settings->defaultDrawingTool());
        });
        connect(m_settings, &SettingsManager::showToolbarWhileDrawingChanged, this,
                &AppController::applyToolbarVisibilityForTool);
        connect(m_settings, &SettingsManager::firstRunDoneChanged, this, [this] {
            if (m_settings->firstRunDone())
                refreshClickThroughState();
        });
        if (!m_settings->firstRunDone())
            refreshClickThroughState();
    }
    if (m_recordingManager) {
        connect(m_recordingManager, &RecordingManager::stateChanged, this,
                &AppController::recordingStateChanged);
        connect(m_recordingManager, &RecordingManager::elapsedSecondsChanged, this,
                &AppController::recordingElapsedChanged);
        connect(m_recordingManager, &RecordingManager::finished, this,
                &AppController::onRecordingFinished);
    }

    m_grabFallback = new QTimer(this);
    m_grabFallback->setSingleShot(true);
    m_grabFallback->setInterval(controlsHiddenTimeoutMs);
    connect(m_grabFallback, &QTimer::timeout, this, [this] {
        qCInfo(lcController) << "AppController: the controls did not report leaving the screen;"
                             << "capturing anyway";
        runPendingGrab();
    });

    m_pollTimer = new QTimer(this);
    m_pollTimer->setInterval(pollIntervalMs);
    connect(m_pollTimer, &QTimer::timeout, this, &AppController::pollPointer);
    m_pollTimer->start();

    if (m_displayManager)
        m_activeDisplayId = displayIdAt(cursorPos());
}

AppController::~AppController() = default;

QString AppController::linuxSessionType() const
{
    return m_session->sessionType();
}
QString AppController::linuxWindowingBackend() const
{
    return m_session->windowingBackend();
}
QString AppController::linuxCapabilitySummary() const
{
    if (m_compositing)
        return m_session->summary();
    return m_session->summary()
        + QStringLiteral(" No compositing manager runs: the spotlight and the drawings stay"
                         " hidden until one starts.");
}
bool AppController::linuxUsesX11Backend() const
{
    return m_session->usesX11Backend();
}
bool AppController::linuxHotkeysAvailable() const
{
    return m_session->hotkeysAvailable();
}
bool AppController::linuxClickThroughAvailable() const
{
    return m_session->clickThroughAvailable();
}
bool AppController::linuxInputVisualizationAvailable() const
{
    return m_session->inputVisualizationAvailable();
}
bool AppController::linuxPortalRequired() const
{
    return m_session->portalRequired();
}

bool AppController::magnifierAvailable() const
{
    return m_session->magnifierAvailable();
}

bool AppController::recordingAvailable() const
{
    return qEnvironmentVariableIntValue("GLIMMORA_ENABLE_RECORDING") == 1;
}

// --- Tools, pause and surfaces ---------------------------------------------

void AppController::setTool(const QString &tool)
{
    if (tool == m_currentTool)
        return;
    m_currentTool = tool;
    applyToolbarVisibilityForTool();
    refreshClickThroughState();
    // Last, so that listeners already see the new pass-through state.
    emit currentToolChanged();
}

void AppController::applyToolbarVisibilityForTool()
{
    if (!m_settings)
        return;
    setToolbarVisible(isNonDrawingTool(m_currentTool) || m_settings->showToolbarWhileDrawing());
}

void AppController::toggleOverlay()
{
    setOverlayEnabled(!m_overlayEnabled);
}

void AppController::toggleMagnifier()
{
    setMagnifierEnabled(!m_magnifierEnabled);
}

void AppController::setOverlayEnabled(bool enabled)
{
    if (enabled == m_overlayEnabled)
        return;
    // Every way to pause clears, also a region capture or a saved recording.
    if (!enabled && m_drawingModel && m_settings && m_settings->clearOnPause())
        m_drawingModel->clear();
    m_overlayEnabled = enabled;
    emit overlayEnabledChanged();
}

void AppController::clearDrawing()
{
    if (m_drawingModel)
        m_drawingModel->clear();
}

void AppController::setMagnifierEnabled(bool enabled)
{
    if (enabled == m_magnifierEnabled)
        return;
    if (enabled && !magnifierAvailable()) {
        qCInfo(lcController) << "AppController: no magnifier here:" << m_session->summary();
        return;
    }
    m_magnifierEnabled = enabled;
    emit magnifierEnabledChanged();
}

void AppController::exitToCursor()
{
    // The first press closes the lens; only the next one leaves the tool.
    if (m_magnifierEnabled) {
        setMagnifierEnabled(false);
        return;
    }
    setTool(QStringLiteral("cursor"));
}

void AppController::showSettings()
{
    if (m_settingsVisible)
        return;
    m_settingsVisible = true;
    refreshClickThroughState();
    emit settingsVisibleChanged();
}

void AppController::hideSettings()
{
    if (!m_settingsVisible)
        return;
    m_settingsVisible = false;
    refreshClickThroughState();
    emit settingsVisibleChanged();
}

void AppController::setCurrentPenColor(const QString &color)
{
    if (color == m_currentPenColor)
        return;
    m_currentPenColor = color;
    emit currentPenColorChanged();
}

void AppController::openColorDialog()
{
    const QColor color =
        QColorDialog::getColor(QColor(m_currentPenColor), nullptr,
                               QStringLiteral("Choose pen colour"), QColorDialog::ShowAlphaChannel);
    if (color.isValid())
        setCurrentPenColor(color.name(QColor::HexArgb));
}

void AppController::copyToClipboard(const QString &text)
{
    if (QClipboard *clipboard = QGuiApplication::clipboard())
        clipboard->setText(text);
}

void AppController::reportKeystroke(const QString &combo)
{
    // Keys typed into a lock screen are nobody's business.
    if (m_sessionLocked)
        return;
    // No equality test: a repeated key must renew the display.
    m_lastKeystroke = combo;
    emit keystrokeChanged();
}

void AppController::setCompositing(bool active)
{
    if (active == m_compositing)
        return;
    m_compositing = active;
    emit linuxCapabilitySummaryChanged();
}

void AppController::setSessionLocked(bool locked)
{
    if (locked == m_sessionLocked)
        return;
    m_sessionLocked = locked;
    // A card still up when the lock begins goes now, so that nothing typed
    // into the lock screen is left to read after it.
    if (locked && !m_lastKeystroke.isEmpty()) {
        m_lastKeystroke.clear();
        emit keystrokeChanged();
    }
    qCInfo(lcController) << "AppController: session" << (locked ? "locked" : "unlocked");
    emit sessionLockedChanged();
}

void AppController::toggleToolbar()
{
    setToolbarVisible(!m_toolbarVisible);
}

void AppController::setToolbarVisible(bool visible)
{
    if (visible == m_toolbarVisible)
        return;
    m_toolbarVisible = visible;
    emit toolbarVisibleChanged();
    refreshClickThroughState();
}

void AppController::setModalActive(bool active)
{
    if (active == m_modalActive)
        return;
    m_modalActive = active;
    refreshClickThroughState();
    // A dialog takes the keys for Esc and Return; after it, the presenter's
    // application has them again.
    if (m_overlayManager)
        m_overlayManager->setKeyboardLent(hudKey, active);
    emit modalActiveChanged();
}

void AppController::showSettingsPage(const QString &pageId)
{
    showSettings();
    emit settingsPageRequested(pageId);
}

// --- Quit ------------------------------------------------------------------

void AppController::requestQuit()
{
    if (m_settings && m_settings->confirmQuit()) {
        qCDebug(lcController) << "AppController: quit asks for confirmation";
        emit quitRequested();
        return;
    }
    qCDebug(lcController) << "AppController: quitting";
    QCoreApplication::quit();
}

void AppController::confirmAndQuit(bool dontAskAgain)
{
    if (dontAskAgain && m_settings)
        m_settings->setConfirmQuit(false);
    qCDebug(lcController) << "AppController: quitting after confirmation";
    QCoreApplication::quit();
}

// --- Capture ---------------------------------------------------------------

bool AppController::webpSupported() const
{
    return m_captureManager && m_captureManager->webpSupported();
}

QImage AppController::annotationImage(QScreen *screen) const
{
    // With the overlay on, the strokes are on screen and in the grab already.
    if (!m_drawingModel || !screen || !m_settings || !m_settings->captureIncludeAnnotations()
        || m_overlayEnabled)
        return {};
    const QString displayId = m_displayManager ? m_displayManager->controlDisplayId() : QString();
    return renderStrokesToImage(m_drawingModel, screen->size(), screen->devicePixelRatio(),
                                displayId);
}

void AppController::captureFullScreen()
{
    if (!m_captureManager) {
        m_captureStatus = tr("Capture is not available.");
        m_captureLastPath.clear();
        emit captureStatusChanged();
        return;
    }
    // One at a time: the controls come back after the first.
    if (m_captureInProgress)
        return;
    QScreen *screen = controlScreen();
    QImage annotations = annotationImage(screen);
    const bool toolbarWasVisible = m_toolbarVisible;
    setToolbarVisible(false);
    setCaptureInProgress(true);
    grabWhenControlsHidden(
        [this, screen = QPointer<QScreen>(screen), annotations, toolbarWasVisible] {
            QString path;
            QString error;
            const bool ok = m_captureManager->captureScreen(screen, annotations, &path, &error);
            if (toolbarWasVisible)
                setToolbarVisible(true);
            finishCapture(ok, path, error);
        });
}

void AppController::grabWhenControlsHidden(std::function<void()> grab)
{
    m_pendingGrab = std::move(grab);
    m_grabFallback->start();
}

void AppController::controlsHiddenOnScreen()
{
    if (!m_pendingGrab)
        return;
    m_grabFallback->stop();
    QTimer::singleShot(compositorMarginMs, this, &AppController::runPendingGrab);
}

void AppController::runPendingGrab()
{
    if (!m_pendingGrab)
        return;
    m_grabFallback->stop();
    const std::function<void()> grab = std::exchange(m_pendingGrab, nullptr);
    grab();
}

void AppController::setCaptureInProgress(bool inProgress)
{
    if (inProgress == m_captureInProgress)
        return;
    m_captureInProgress = inProgress;
    emit captureInProgressChanged();
}

void AppController::finishCapture(bool success, const QString &path, const QString &error)
{
    setCaptureInProgress(false);
    m_captureLastPath = path;
    // The HUD tells success from failure by this exact text.
    m_captureStatus = success ? tr("Capture saved") : error;
    emit captureStatusChanged();
}

void AppController::captureRegion()
{
    m_savedOverlayEnabled = m_overlayEnabled;
    m_savedToolbarVisible = m_toolbarVisible;
    if (m_overlayEnabled)
        setOverlayEnabled(false);
    setToolbarVisible(false);
    setRegionSelecting(true);
    emit regionCaptureRequested();
}

void AppController::commitRegionCapture(qreal x, qreal y, qreal w, qreal h)
{
    if (!m_captureManager) {
        cancelRegionCapture();
        return;
    }
    QScreen *screen = controlScreen();
    const qreal scale = screen ? screen->devicePixelRatio() : 1.0;
    const QRect region(qRound(x * scale), qRound(y * scale), qRound(w * scale), qRound(h * scale));
    QImage annotations = annotationImage(screen);
    const bool overlayWasOn = m_savedOverlayEnabled;
    const bool toolbarWasVisible = m_savedToolbarVisible;
    setRegionSelecting(false);
    setCaptureInProgress(true);
    grabWhenControlsHidden([this, screen = QPointer<QScreen>(screen), region, annotations,
                            overlayWasOn, toolbarWasVisible] {
        QString path;
        QString error;
        const bool ok =
            m_captureManager->captureScreenRegion(screen, region, annotations, &path, &error);
        if (overlayWasOn)
            setOverlayEnabled(true);
        if (toolbarWasVisible)
            setToolbarVisible(true);
        finishCapture(ok, path, error);
    });
}

void AppController::cancelRegionCapture()
{
    if (m_savedOverlayEnabled && !m_overlayEnabled)
        setOverlayEnabled(true);
    if (m_savedToolbarVisible && !m_toolbarVisible)
        setToolbarVisible(true);
    setRegionSelecting(false);
}

void AppController::setRegionSelecting(bool selecting)
{
    if (selecting == m_regionSelecting)
        return;
    m_regionSelecting = selecting;
    emit regionSelectingChanged();
}

// --- Recording -------------------------------------------------------------

void AppController::startRecording()
{
    if (!recordingAvailable()) {
        qCInfo(lcController) << "Recording is disabled for this build/channel.";
        return;
    }
    if (m_recordingManager)
        m_recordingManager->start(controlScreen());
}

void AppController::pauseResumeRecording()
{
    if (recordingAvailable() && m_recordingManager)
        m_recordingManager->togglePause();
}

void AppController::stopRecording()
{
    if (recordingAvailable() && m_recordingManager)
        m_recordingManager->stop();
}

int AppController::recordingState() const
{
    return m_recordingManager ? int(m_recordingManager->state()) : 0;
}

int AppController::recordingElapsed() const
{
    return m_recordingManager ? m_recordingManager->elapsedSeconds() : 0;
}

void AppController::onRecordingFinished(bool success, const QString &path)
{
    // A failed recording has nothing to show: its state says so, and the
    // overlay stays as it is.
    if (!success || path.isEmpty())
        return;
    emit recordingSaved(path);
    if (m_settings && m_settings->recordOpenFolderAfterStop()) {
        setOverlayEnabled(false);
        revealInFolder(path);
    }
}

// --- Folders ---------------------------------------------------------------

void AppController::revealInFolder(const QString &path)
{
    if (m_folderRevealer)
        m_folderRevealer->reveal(path);
}

void AppController::chooseSaveFolder()
{
    if (!m_settings)
        return;
    QString start = m_settings->captureSaveFolder();
    if (start.isEmpty())
        start = QDir::homePath();
    const QString folder = QFileDialog::getExistingDirectory(nullptr, tr("Choose Save Folder"),
                                                             start, QFileDialog::ShowDirsOnly);
    if (!folder.isEmpty())
        m_settings->setCaptureSaveFolder(folder);
}

QScreen *AppController::controlScreen() const
{
    if (m_displayManager) {
        const QString controlId = m_displayManager->controlDisplayId();
        const QList<QScreen *> screens = QGuiApplication::screens();
        for (QScreen *screen : screens) {
            if (m_displayManager->displayIdForScreen(screen) == controlId)
                return screen;
        }
    }
    return QGuiApplication::primaryScreen();
}

// --- Pointer poll and click-through ------------------------------------------

QPointF AppController::cursorPos() const
{
    return QCursor::pos();
}

QString AppController::displayIdAt(const QPointF &p) const
{
    QScreen *screen = QGuiApplication::screenAt(p.toPoint());
    return screen && m_displayManager ? m_displayManager->displayIdForScreen(screen) : QString();
}

void AppController::setMousePosition(const QPointF &p)
{
    if (p == m_mousePosition)
        return;
    m_mousePosition = p;
    emit mousePositionChanged();
}

void AppController::pollPointer()
{
    // Reading the pointer is a round trip to the window system: at rest it
    // would cost more than everything else the idle overlay does. A toolbar
    // in motion is followed on every tick, as a display may change under it.
    const bool input = !m_pointerActivity || m_pointerActivity->takeActivity();
    const bool toolbarInMotion = m_toolbarDragging || m_toolbarMoving;
    if (input || toolbarInMotion) {
        setPollResting(false);
    } else {
        if (!m_pollResting && ++m_quietTicks < quietTicksPerRead)
            return;
        // A hand at rest: the next input wakes the poll, which meanwhile
        // only reads the pointer now and then.
        setPollResting(m_pointerActivity->wakeOnInput([this] {
            setPollResting(false);
            pollPointer();
        }));
    }
    m_quietTicks = 0;

    const QPointF p = cursorPos();

    if (m_currentTool == QLatin1String("spotlight") && m_pointerButtons) {
        // Only the press edge counts: buttons held since the last tick do not.
        // A click whose press and release both fell between two ticks is
        // known from the input itself.
        const int mask = m_pointerButtons->buttonMask()
            & (PointerButtons::Left | PointerButtons::Right | PointerButtons::Middle);
        const int pressedBetween = m_pointerActivity ? m_pointerActivity->pressedButtons() : 0;
        const int newlyPressed = (mask & ~m_previousButtons) | pressedBetween;
        if (newlyPressed != 0)
            emit mouseClicked(p, newlyPressed);
        m_previousButtons = mask;
    } else {
        m_previousButtons = 0;
    }

    if (p != m_mousePosition) {
        setMousePosition(p);
        if (m_displayManager) {
            const QString id = displayIdAt(p);
            if (id != m_activeDisplayId) {
                m_activeDisplayId = id;
                emit activeDisplayIdChanged();
            }
        }
        refreshClickThroughState();
    }

    if (m_toolbarDragging || m_toolbarMoving)
        updateToolbarDragTarget(p);
}

void AppController::setPollResting(bool resting)
{
    if (resting == m_pollResting)
        return;
    m_pollResting = resting;
    m_pollTimer->setInterval(resting ? restIntervalMs : pollIntervalMs);
}

ClickThroughState AppController::clickThroughState() const
{
    ClickThroughState state;
    state.overlayEnabled = m_overlayEnabled;
    state.currentTool = m_currentTool;
    state.toolbarDragging = m_toolbarDragging;
    state.toolbarMoving = m_toolbarMoving;
    state.toolbarVisible = m_toolbarVisible;
    state.firstRunDone = !m_settings || m_settings->firstRunDone();
    state.regionSelecting = m_regionSelecting;
    state.settingsVisible = m_settingsVisible;
    state.modalActive = m_modalActive;
    state.toolbarRect = m_toolbarRect;
    state.helpButtonRect = m_helpButtonRect;
    state.shortcutCardRect = m_shortcutCardRect;
    state.statusBarRect = m_statusBarRect;
    state.controlsRevealRect = m_controlsRevealRect;
    state.toastRect = m_toastRect;
    state.modalRect = m_modalRect;
    return state;
}

std::optional<QRect> AppController::controlScreenGeometryAt(const QPointF &p) const
{
    if (!m_displayManager)
        return std::nullopt;
    QScreen *screen = QGuiApplication::screenAt(p.toPoint());
    if (!screen
        || m_displayManager->displayIdForScreen(screen) != m_displayManager->controlDisplayId())
        return std::nullopt;
    return screen->geometry();
}

bool AppController::isPointInToolbarZone(const QPointF &p) const
{
    return ClickThroughPolicy::isPointInToolbarZone(clickThroughState(), p,
                                                    controlScreenGeometryAt(p));
}

void AppController::refreshClickThroughState()
{
    if (!m_overlayManager)
        return;
    const QPointF p = cursorPos();
    setMousePosition(p);

    const ClickThroughState state = clickThroughState();
    m_overlayManager->setClickThrough(ClickThroughPolicy::overlayClickThrough(state));
    const bool interactive =
        ClickThroughPolicy::hudInteractive(state, p, controlScreenGeometryAt(p));
    // Where the platform can shape input, the HUD takes the mouse over its
    // controls only, so that a press just after the pointer left them falls
    // through whenever the poll comes.
    QScreen *control = m_displayManager ? controlScreen() : nullptr;
    const std::optional<QRegion> hudArea = ClickThroughPolicy::hudInputArea(
        state, control ? std::optional<QRect>(control->geometry()) : std::nullopt);
    if (!hudArea || !m_overlayManager->setWindowInputArea(hudKey, *hudArea))
        m_overlayManager->setWindowClickThrough(hudKey, !interactive);
    m_lastHudInteractive = interactive;
}

void AppController::setRect(QRectF &field, const QRectF &rect, void (AppController::*notify)())
{
    if (rect == field)
        return;
    field = rect;
    emit(this->*notify)();
    refreshClickThroughState();
}

void AppController::setToolbarRect(const QRectF &rect)
{
    setRect(m_toolbarRect, rect, &AppController::toolbarRectChanged);
}

void AppController::setHelpButtonRect(const QRectF &rect)
{
    setRect(m_helpButtonRect, rect, &AppController::helpButtonRectChanged);
}

void AppController::setShortcutCardRect(const QRectF &rect)
{
    setRect(m_shortcutCardRect, rect, &AppController::shortcutCardRectChanged);
}

void AppController::setStatusBarRect(const QRectF &rect)
{
    setRect(m_statusBarRect, rect, &AppController::statusBarRectChanged);
}

void AppController::setControlsRevealRect(const QRectF &rect)
{
    setRect(m_controlsRevealRect, rect, &AppController::controlsRevealRectChanged);
}

void AppController::setToastRect(const QRectF &rect)
{
    setRect(m_toastRect, rect, &AppController::toastRectChanged);
}

void AppController::setModalRect(const QRectF &rect)
{
    setRect(m_modalRect, rect, &AppController::modalRectChanged);
}

// --- Toolbar relocation ------------------------------------------------------

void AppController::updateToolbarDragTarget(const QPointF &p)
{
    const QString id = displayIdAt(p);
    if (!id.isEmpty())
        setToolbarDragTarget(id, m_displayManager->isDisplayEnabled(id));
    else
        setToolbarDragTarget(QString(), false);
}

void AppController::setToolbarDragTarget(const QString &id, bool enabled)
{
    const bool idChanged = id != m_toolbarDragTargetDisplayId;
    const bool enabledChanged = enabled != m_toolbarDragTargetEnabled;
    if (!idChanged && !enabledChanged)
        return;
    m_toolbarDragTargetDisplayId = id;
    m_toolbarDragTargetEnabled = enabled;
    if (idChanged)
        emit toolbarDragTargetDisplayIdChanged();
    if (enabledChanged)
        emit toolbarDragTargetEnabledChanged();
}

void AppController::beginToolbarDrag()
{
    if (m_toolbarDragging)
        return;
    m_toolbarDragging = true;
    emit toolbarDraggingChanged();
    updateToolbarDragTarget(cursorPos());
    refreshClickThroughState();
}

void AppController::beginToolbarMove()
{
    if (m_toolbarMoving)
        return;
    m_toolbarMoving = true;
    emit toolbarMovingChanged();
    updateToolbarDragTarget(cursorPos());
    refreshClickThroughState();
}

void AppController::updateToolbarMove(const QPointF &globalPos)
{
    Q_UNUSED(globalPos) // the pointer is read directly, so QML may call with anything
    if (!m_toolbarMoving)
        return;
    updateToolbarDragTarget(cursorPos());
}

void AppController::updateToolbarDrag(const QPointF &globalPos)
{
    if (!m_toolbarDragging && !m_toolbarMoving)
        return;
    const QPointF p = globalPos.isNull() ? cursorPos() : globalPos;
    if (p != m_dragCursorPos) {
        m_dragCursorPos = p;
        emit dragCursorPosChanged();
    }
    updateToolbarDragTarget(p);
}

void AppController::updateToolbarMoveVisual(const QPointF &topLeft, const QSizeF &size)
{
    const QRectF rect(topLeft, size);
    if (rect == m_toolbarMoveVisualRect)
        return;
    m_toolbarMoveVisualRect = rect;
    emit toolbarMoveVisualRectChanged();
}

// Hands the controls to the display under the pointer, if that one may take them.
bool AppController::commitToolbarDragTarget()
{
    updateToolbarDragTarget(cursorPos());
    const QString target = m_toolbarDragTargetDisplayId;
    const bool committed = m_toolbarDragTargetEnabled && m_displayManager
        && target != m_displayManager->controlDisplayId();
    if (committed)
        m_displayManager->setControlDisplay(target);
    return committed;
}

bool AppController::endToolbarDrag()
{
    if (!m_toolbarDragging)
        return false;
    const bool committed = commitToolbarDragTarget();
    m_toolbarDragging = false;
    emit toolbarDraggingChanged();
    setToolbarDragTarget(QString(), false);
    refreshClickThroughState();
    return committed;
}

bool AppController::endToolbarMove()
{
    if (!m_toolbarMoving)
        return false;
    const bool committed = commitToolbarDragTarget();
    m_toolbarMoving = false;
    emit toolbarMovingChanged();
    setToolbarDragTarget(QString(), false);
    refreshClickThroughState();
    // The windows settle on the new display a moment later; look again then.
    QTimer::singleShot(50, this, &AppController::refreshClickThroughState);
    QTimer::singleShot(150, this, &AppController::refreshClickThroughState);
    return committed;
}
