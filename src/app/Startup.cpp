#include "app/Startup.h"

#include "app/AppController.h"
#include "app/HotkeyWiring.h"
#include "app/LanguageLoader.h"
#include "app/LogFile.h"
#include "app/RenderBackendManager.h"
#include "app/RenderingFootprint.h"
#include "app/SingleInstanceLock.h"
#include "app/ThemeFonts.h"
#include "app/TrayManager.h"
#include "capture/CaptureManager.h"
#include "display/DisplayManager.h"
#include "display/OverlayManager.h"
#include "display/OverlayWindowManager.h"
#include "drawing/DrawingModel.h"
#include "hotkeys/HotkeyManager.h"
#include "platform/DpiAwareness.h"
#include "platform/TerminationWatcher.h"
#include "platform/WinAcrylic.h"
#include "recording/RecordingManager.h"
#include "settings/SettingsManager.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTranslator>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

Q_LOGGING_CATEGORY(lcStartup, "glimmora.app")

namespace {
const QUrl mainDocument(QStringLiteral("qrc:/qt/qml/GlimmoraApp/Main.qml"));
} // namespace

int runGlimmora(int argc, char *argv[])
{
    RenderingFootprint::trim();
    declarePerMonitorDpiAwareness();
    QApplication app(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    QCoreApplication::setApplicationVersion(QStringLiteral("0.4.5"));
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    qInstallMessageHandler(LogFile::messageHandler);

    SingleInstanceLock lock(QStringLiteral("Glimmora_SingleInstance_Lock"));
    if (!lock.tryLock()) {
        qCWarning(lcStartup) << "Another instance of Glimmora is already running.";
        return 0;
    }

    // A logout, a service stop or a plain kill takes the same way out as the
    // quit command, so that a recording under way is saved.
    const std::unique_ptr<TerminationWatcher> termination = TerminationWatcher::create();
    QObject::connect(termination.get(), &TerminationWatcher::terminationRequested, &app,
                     &QCoreApplication::quit);

    QQuickStyle::setStyle(QStringLiteral("Fusion"));
    // The native QML types register at compile time through the module.

    qCDebug(lcStartup) << "Initializing managers...";
    SettingsManager settings;
    QTranslator translator;
    if (LanguageLoader::load(translator, settings.language()))
        QCoreApplication::installTranslator(&translator);

    DisplayManager displayManager(&settings);
    OverlayManager overlayManager;
    DrawingModel drawingModel;
    CaptureManager captureManager(&settings);
    RecordingManager recordingManager(&settings);
    RenderBackendManager renderBackendManager;

    drawingModel.setUndoRedoEnabled(settings.undoRedoEnabled());
    QObject::connect(&settings, &SettingsManager::undoRedoEnabledChanged, &drawingModel,
                     [&] { drawingModel.setUndoRedoEnabled(settings.undoRedoEnabled()); });

    // Built before the controller and finished after it: the menu reads it.
    TrayManager trayManager;
    AppController appController(&settings, &overlayManager, &drawingModel, &captureManager,
                                &displayManager, &recordingManager);
    trayManager.initialise(&appController, &settings, &displayManager);
    WinAcrylic winAcrylic;

    HotkeyManager hotkeyManager;
    wireHotkeys(hotkeyManager, settings, appController, drawingModel);
    hotkeyManager.start();

    ThemeFonts::addBundledFonts();
    ThemeFonts::installFamilyLists();

    qCDebug(lcStartup) << "Loading QML engine...";
    QQmlApplicationEngine engine;
    QQmlContext *context = engine.rootContext();
    const QVariant none = QVariant::fromValue<QObject *>(nullptr);
    context->setContextProperty(QStringLiteral("appController"), &appController);
    context->setContextProperty(QStringLiteral("settingsManager"), &settings);
    context->setContextProperty(QStringLiteral("displayManager"), &displayManager);
    context->setContextProperty(QStringLiteral("drawingModel"), &drawingModel);
    context->setContextProperty(QStringLiteral("renderBackendManager"), &renderBackendManager);
    // Only a platform with a permission flow gives the documents an object.
    context->setContextProperty(QStringLiteral("macPermissions"), none);
    context->setContextProperty(QStringLiteral("winAcrylic"), &winAcrylic);
    context->setContextProperty(QStringLiteral("hotkeyManager"), &hotkeyManager);

    QObject::connect(
        &engine, &QQmlApplicationEngine::objectCreationFailed, &app,
        [](const QUrl &url) {
            qCCritical(lcStartup).noquote() << "QML object creation failed for:" << url.toString();
            QCoreApplication::exit(-1);
        },
        Qt::QueuedConnection);
    engine.load(mainDocument);

    // Connected only now: the switch retranslates the engine.
    QObject::connect(&settings, &SettingsManager::languageChanged, &engine,
                     [&translator, &settings, &engine] {
                         LanguageLoader::switchTo(translator, settings.language(), engine);
                     });

    if (engine.rootObjects().isEmpty()) {
        qCCritical(lcStartup) << "No root QML objects loaded.";
        return -1;
    }

    // Builds the HUD and the secondary overlays at once, so they exist only
    // once the main window does.
    OverlayWindowManager overlayWindows(&displayManager, &overlayManager, &appController, &engine,
                                        qobject_cast<QQuickWindow *>(engine.rootObjects().first()));
    appController.setCompositing(overlayWindows.compositing());
    QObject::connect(&overlayWindows, &OverlayWindowManager::compositingChanged, &appController,
                     [&] { appController.setCompositing(overlayWindows.compositing()); });
    // A screen locker pauses the keystroke display and takes any card down.
    appController.setSessionLocked(overlayWindows.sessionLocked());
    QObject::connect(&overlayWindows, &OverlayWindowManager::sessionLockedChanged, &appController,
                     [&] { appController.setSessionLocked(overlayWindows.sessionLocked()); });
    QObject::connect(&app, &QCoreApplication::aboutToQuit, &overlayWindows, [&] {
        overlayWindows.hideAll();
        // A recording running at quit is stopped and saved, not abandoned.
        recordingManager.stopForQuit();
    });

    qCDebug(lcStartup) << "Glimmora started.";
    return QApplication::exec();
}
