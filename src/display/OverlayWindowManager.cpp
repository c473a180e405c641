#include "display/OverlayWindowManager.h"

#include "app/AppController.h"
#include "display/DisplayManager.h"
#include "display/OverlayManager.h"
#include "display/PresentedFrameWatch.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>

namespace {
Q_LOGGING_CATEGORY(lcOverlayWindows, "glimmora.display")

const QString hudKey = QStringLiteral("hud");

QUrl documentUrl(const char *name)
{
    return QUrl(QStringLiteral("qrc:/qt/qml/GlimmoraApp/%1.qml").arg(QLatin1String(name)));
}
} // namespace

OverlayWindowManager::OverlayWindowManager(
    DisplayManager *displayManager, OverlayManager *overlayManager, AppController *appController,
    QQmlEngine *engine, QQuickWindow *mainWindow, std::unique_ptr<OverlayWindowStyle> style,
    std::unique_ptr<OverlayStacking> stacking, std::unique_ptr<CompositorWatch> compositor,
    QObject *parent)
    : QObject(parent)
    , m_displayManager(displayManager)
    , m_overlayManager(overlayManager)
    , m_appController(appController)
    , m_engine(engine)
    , m_mainWindow(mainWindow)
    , m_style(std::move(style))
    , m_stacking(std::move(stacking))
    , m_shapes(overlayManager, std::move(compositor))
{
    // The root document keeps its window hidden until this point.
    if (m_mainWindow && m_style)
        m_style->apply(m_mainWindow, OverlayWindowStyle::Focus::Never);
    if (m_stacking)
        connect(m_stacking.get(), &OverlayStacking::sessionLockedChanged, this,
                &OverlayWindowManager::sessionLockedChanged);
    connect(&m_shapes, &UncompositedShapes::compositingChanged, this,
            &OverlayWindowManager::compositingChanged);
    connect(&m_shapes, &UncompositedShapes::compositorStarted, this,
            &OverlayWindowManager::renewNativeWindows);

    if (m_displayManager) {
        connect(m_displayManager, &DisplayManager::displaysChanged, this, [this] {
            syncSecondaries();
            syncControlWindow();
        });
        connect(m_displayManager, &DisplayManager::controlDisplayIdChanged, this, [this] {
            syncControlWindow();
            syncSecondaries();
        });
    }
    if (m_appController) {
        connect(m_appController, &AppController::overlayEnabledChanged, this,
                [this] { setOverlaysVisible(m_appController->overlayEnabled()); });
        connect(m_appController, &AppController::toolbarDraggingChanged, this, [this] {
            syncSecondaries();
            syncControlWindow();
        });
        connect(m_appController, &AppController::toolbarMovingChanged, this, [this] {
            syncControlWindow();
            syncSecondaries();
        });
        connect(m_appController, &AppController::toolbarDragTargetDisplayIdChanged, this,
                &OverlayWindowManager::syncSecondaries);
    }
    syncControlWindow();
    syncSecondaries();
}

OverlayWindowManager::~OverlayWindowManager()
{
    destroyHud();
    if (m_overlayManager && !m_currentControlId.isEmpty())
        m_overlayManager->unregisterWindow(m_currentControlId);
    for (auto it = m_secondaries.cbegin(); it != m_secondaries.cend(); ++it) {
        if (m_overlayManager)
            m_overlayManager->unregisterWindow(it.key());
        delete it.value();
    }
    m_secondaries.clear();
}

void OverlayWindowManager::hideAll()
{
    if (m_mainWindow)
        m_mainWindow->hide();
    if (m_hud)
        m_hud->hide();
    for (QQuickWindow *window : std::as_const(m_secondaries))
        window->hide();
}

QStringList OverlayWindowManager::wantedSecondaryIds(const QVariantList &displays,
                                                     const QString &controlId, bool toolbarInMotion,
                                                     const QString &dragTargetId)
{
    QStringList wanted;
    for (const QVariant &row : displays) {
        const QVariantMap display = row.toMap();
        const QString id = display.value(QStringLiteral("id")).toString();
        if (display.value(QStringLiteral("enabled")).toBool() && id != controlId
            && !wanted.contains(id))
            wanted.append(id);
    }
    // The drop target shows its highlight even on a display that is off.
    if (toolbarInMotion && !dragTargetId.isEmpty() && dragTargetId != controlId
        && !wanted.contains(dragTargetId))
        wanted.append(dragTargetId);
    return wanted;
}

void OverlayWindowManager::syncControlWindow()
{
    if (!m_mainWindow)
        return;
    QString id = controlDisplayId();
    QScreen *screen = screenForDisplay(id);
    if (!screen) {
        // Until the display manager names another, the primary screen stands in.
        screen = QGuiApplication::primaryScreen();
        id = screen && m_displayManager ? m_displayManager->displayIdForScreen(screen) : QString();
    }
    if (!screen)
        return;

    if (m_overlayManager && !m_currentControlId.isEmpty() && m_currentControlId != id)
        m_overlayManager->unregisterWindow(m_currentControlId);
    // The main window takes this display over.
    if (m_secondaries.contains(id))
        destroySecondary(id);

    m_mainWindow->setScreen(screen);
    m_mainWindow->setGeometry(toolbarDragging() ? screen->virtualGeometry() : screen->geometry());
    m_mainWindow->setVisible(true);
    if (!id.isEmpty()) {
        if (m_overlayManager)
            m_overlayManager->registerWindow(id, m_mainWindow);
        m_currentControlId = id;
    }

    if (!m_hud) {
        createHud(screen);
    } else {
        m_hud->setScreen(screen);
        m_hud->setGeometry(screen->geometry());
    }
    updateWindowLists();
}

void OverlayWindowManager::syncSecondaries()
{
    const QString control = controlDisplayId();
    const QStringList wanted = wantedSecondaryIds(
        m_displayManager ? m_displayManager->displays() : QVariantList(), control,
        toolbarInMotion(),
        m_appController ? m_appController->toolbarDragTargetDisplayId() : QString());

    const QStringList live = m_secondaries.keys();
    for (const QString &id : live) {
        if (!wanted.contains(id))
            destroySecondary(id);
    }
    for (const QString &id : wanted) {
        QScreen *screen = screenForDisplay(id);
        if (!screen)
            continue;
        if (QQuickWindow *window = m_secondaries.value(id)) {
            window->setScreen(screen);
            window->setGeometry(screen->geometry());
        } else {
            createSecondary(id, screen);
        }
    }
    updateWindowLists();
}

QScreen *OverlayWindowManager::screenForDisplay(const QString &displayId) const
{
    if (!m_displayManager || displayId.isEmpty())
        return nullptr;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        if (m_displayManager->displayIdForScreen(screen) == displayId)
            return screen;
    }
    return nullptr;
}

QString OverlayWindowManager::controlDisplayId() const
{
    return m_displayManager ? m_displayManager->controlDisplayId() : QString();
}

bool OverlayWindowManager::toolbarDragging() const
{
    return m_appController && m_appController->toolbarDragging();
}

bool OverlayWindowManager::toolbarInMotion() const
{
    return m_appController
        && (m_appController->toolbarDragging() || m_appController->toolbarMoving());
}

void OverlayWindowManager::createSecondary(const QString &displayId, QScreen *screen)
{
    if (!m_engine)
        return;
    QQmlComponent component(m_engine, documentUrl("SecondaryOverlay"));
    if (component.isError()) {
        qCWarning(lcOverlayWindows).noquote()
            << "OverlayWindowManager: failed to load SecondaryOverlay:" << component.errorString();
        return;
    }
    QObject *object = component.beginCreate(m_engine->rootContext());
    auto *window = qobject_cast<QQuickWindow *>(object);
    if (window) {
        component.setInitialProperties(window, { { QStringLiteral("displayId"), displayId } });
        // QWindow::setParent would make it a child window.
        window->QObject::setParent(this);
        prepare(window, OverlayWindowStyle::Focus::Never, screen);
    }
    if (object)
        component.completeCreate();
    if (!object || component.isError()) {
        qCWarning(lcOverlayWindows)
            << "OverlayWindowManager: failed to create SecondaryOverlay for" << displayId;
        delete object;
        return;
    }
    if (!window) {
        qCWarning(lcOverlayWindows)
            << "OverlayWindowManager: SecondaryOverlay root is not a QQuickWindow";
        delete object;
        return;
    }
    window->show();
    if (m_overlayManager)
        m_overlayManager->registerWindow(displayId, window);
    m_secondaries.insert(displayId, window);
    qCDebug(lcOverlayWindows) << "OverlayWindowManager: created secondary overlay for" << displayId
                              << "at" << window->geometry();
}

void OverlayWindowManager::destroySecondary(const QString &displayId)
{
    QQuickWindow *window = m_secondaries.take(displayId);
    if (!window)
        return;
    if (m_overlayManager)
        m_overlayManager->unregisterWindow(displayId);
    window->close();
    window->deleteLater();
    qCDebug(lcOverlayWindows) << "OverlayWindowManager: destroyed secondary overlay for"
                              << displayId;
}

void OverlayWindowManager::createHud(QScreen *screen)
{
    if (!m_engine)
        return;
    QQmlComponent component(m_engine, documentUrl("HudWindow"));
    if (component.isError()) {
        qCWarning(lcOverlayWindows).noquote()
            << "OverlayWindowManager: failed to load HudWindow:" << component.errorString();
        return;
    }
    QObject *object = component.beginCreate(m_engine->rootContext());
    auto *window = qobject_cast<QQuickWindow *>(object);
    if (window) {
        window->QObject::setParent(this);
        // The controls window takes the keyboard only when a dialog asks for it.
        prepare(window, OverlayWindowStyle::Focus::OnRequest, screen);
    }
    if (object)
        component.completeCreate();
    if (!object || component.isError()) {
        qCWarning(lcOverlayWindows) << "OverlayWindowManager: failed to create HudWindow";
        delete object;
        return;
    }
    if (!window) {
        qCWarning(lcOverlayWindows) << "OverlayWindowManager: HudWindow root is not a QQuickWindow";
        delete object;
        return;
    }
    window->show();
    QPointer<QQuickWindow> hud(window);
    QTimer::singleShot(0, this, [this, hud] {
        if (hud && m_overlayManager)
            m_overlayManager->excludeFromCapture(hud);
    });
    if (m_overlayManager)
        m_overlayManager->registerWindow(hudKey, window);
    m_hud = window;
    if (m_appController) {
        QTimer::singleShot(0, m_appController, &AppController::refreshClickThroughState);
        // A still capture waits until the screen shows the HUD without its content.
        auto *frames = new PresentedFrameWatch(window);
        connect(m_appController, &AppController::captureInProgressChanged, frames, [this, frames] {
            if (m_appController->captureInProgress())
                frames->watch();
        });
        connect(frames, &PresentedFrameWatch::presented, m_appController,
                &AppController::controlsHiddenOnScreen);
    }
    qCDebug(lcOverlayWindows) << "OverlayWindowManager: created HudWindow on" << screen->name()
                              << "at" << window->geometry();
}

void OverlayWindowManager::destroyHud()
{
    if (!m_hud)
        return;
    if (m_overlayManager)
        m_overlayManager->unregisterWindow(hudKey);
    m_hud->close();
    m_hud->deleteLater();
    m_hud = nullptr;
    qCDebug(lcOverlayWindows) << "OverlayWindowManager: destroyed HudWindow";
}

void OverlayWindowManager::renewNativeWindows()
{
    // A compositing manager that starts after them may never take up
    // override-redirect windows that were already mapped (xfwm4 does not):
    // new native windows are announced to it like any others. Styles and
    // pass-through follow the new windows by themselves.
    QList<QWindow *> windows;
    for (QQuickWindow *window : std::as_const(m_secondaries))
        windows.append(window);
    windows << m_mainWindow.data() << m_hud;
    int renewed = 0;
    for (QWindow *window : std::as_const(windows)) {
        if (!window || !window->isVisible())
            continue;
        window->destroy();
        window->show();
        ++renewed;
    }
    qCDebug(lcOverlayWindows) << "OverlayWindowManager: renewed" << renewed
                              << "native windows for a new compositing manager";
}

void OverlayWindowManager::prepare(QQuickWindow *window, OverlayWindowStyle::Focus focus,
                                   QScreen *screen)
{
    if (m_style)
        m_style->apply(window, focus);
    window->setScreen(screen);
    window->setGeometry(screen->geometry());
}

void OverlayWindowManager::updateWindowLists()
{
    QList<QWindow *> overlays;
    for (QQuickWindow *window : std::as_const(m_secondaries))
        overlays.append(window);
    if (m_mainWindow)
        overlays.append(m_mainWindow);
    m_shapes.setWindows(overlays, m_hud);
    // The controls window on top of the overlays.
    if (m_stacking)
        m_stacking->setWindows(m_hud ? overlays + QList<QWindow *> { m_hud } : overlays);
}

void OverlayWindowManager::setOverlaysVisible(bool visible)
{
    for (QQuickWindow *window : std::as_const(m_secondaries))
        window->setVisible(visible);
}
