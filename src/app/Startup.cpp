#include "app/Startup.h"

#include "app/AppController.h"
#include "app/LanguageLoader.h"
#include "app/LogFile.h"
#include "app/RenderingFootprint.h"
#include "app/SingleInstanceLock.h"
#include "app/ThemeFonts.h"
#include "capture/CaptureManager.h"
#include "display/DisplayManager.h"
#include "display/OverlayManager.h"
#include "display/OverlayWindowManager.h"
#include "drawing/DrawingModel.h"
#include "hotkeys/HotkeyManager.h"
#include "platform/TerminationWatcher.h"
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

// The global hotkeys follow the settings and the overlay state, and their
// commands end in the controller.
void wireHotkeys(HotkeyManager &hotkeys, SettingsManager &settings, AppController &controller,
                 DrawingModel &drawingModel)
{
    const auto syncFilter = [&] {
        hotkeys.setKeystrokeFilter(settings.keystrokesEnabled(), settings.showModifierKeys(),
                                   settings.showFunctionKeys(), settings.showNavigationKeys(),
                                   settings.showAlphaNumericKeys());
    };
    const auto syncCommandKeys = [&] {
        hotkeys.setCommandKeysActive(controller.overlayEnabled() && !controller.settingsVisible());
    };
    const auto syncHotkeys = [&] {
        hotkeys.setHotkeys(settings.hotkeyMap());
    };
    syncFilter();
    syncCommandKeys();
    syncHotkeys();
    for (auto signal :
         { &SettingsManager::keystrokesEnabledChanged, &SettingsManager::showModifierKeysChanged,
           &SettingsManager::showFunctionKeysChanged, &SettingsManager::showNavigationKeysChanged,
           &SettingsManager::showAlphaNumericKeysChanged })
        QObject::connect(&settings, signal, &hotkeys, syncFilter);
    QObject::connect(&controller, &AppController::overlayEnabledChanged, &hotkeys, syncCommandKeys);
    QObject::connect(&controller, &AppController::settingsVisibleChanged, &hotkeys,
                     syncCommandKeys);
    QObject::connect(&settings, &SettingsManager::hotkeysChanged, &hotkeys, syncHotkeys);

    QObject::connect(&hotkeys, &HotkeyManager::toggleOverlayRequested, &controller,
                     &AppController::toggleOverlay);
    QObject::connect(&hotkeys, &HotkeyManager::settingsRequested, &controller,
                     &AppController::showSettings);
    QObject::connect(&hotkeys, &HotkeyManager::toolRequested, &controller, &AppController::setTool);
    QObject::connect(&hotkeys, &HotkeyManager::undoRequested, &drawingModel, [&] {
        if (settings.undoRedoEnabled())
            drawingModel.undoLastStroke();
    });
    QObject::connect(&hotkeys, &HotkeyManager::redoRequested, &drawingModel, [&] {
        if (settings.undoRedoEnabled())
            drawingModel.redoLastStroke();
    });
    QObject::connect(&hotkeys, &HotkeyManager::clearRequested, &controller,
                     &AppController::clearDrawing);
    QObject::connect(&hotkeys, &HotkeyManager::captureFullScreenRequested, &controller,
                     &AppController::captureFullScreen);
    QObject::connect(&hotkeys, &HotkeyManager::captureRegionRequested, &controller,
                     &AppController::captureRegion);
    QObject::connect(&hotkeys, &HotkeyManager::quitRequested, &controller,
                     &AppController::requestQuit);
    QObject::connect(&hotkeys, &HotkeyManager::keystrokeRequested, &controller,
                     &AppController::reportKeystroke);
}

} // namespace

int runGlimmora(int argc, char *argv[])
{
    RenderingFootprint::trim();
    // Qt takes care of per-monitor scaling on Linux; nothing to ask for first.
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

    drawingModel.setUndoRedoEnabled(settings.undoRedoEnabled());
    QObject::connect(&settings, &SettingsManager::undoRedoEnabledChanged, &drawingModel,
                     [&] { drawingModel.setUndoRedoEnabled(settings.undoRedoEnabled()); });

    AppController appController(&settings, &overlayManager, &drawingModel, &captureManager,
                                &displayManager, &recordingManager);

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
    context->setContextProperty(QStringLiteral("renderBackendManager"), none);
    // Only a platform with a permission flow gives the documents an object.
    context->setContextProperty(QStringLiteral("macPermissions"), none);
    context->setContextProperty(QStringLiteral("winAcrylic"), none);
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
                         QCoreApplication::removeTranslator(&translator);
                         if (LanguageLoader::load(translator, settings.language()))
                             QCoreApplication::installTranslator(&translator);
                         // Also when back to English, so every qsTr binding refreshes.
                         engine.retranslate();
                     });

    if (engine.rootObjects().isEmpty()) {
        qCCritical(lcStartup) << "No root QML objects loaded.";
        return -1;
    }

    // Builds the HUD and the secondary overlays at once, so they exist only
    // once the main window does.
    OverlayWindowManager overlayWindows(&displayManager, &overlayManager, &appController, &engine,
                                        qobject_cast<QQuickWindow *>(engine.rootObjects().first()));
    QObject::connect(&app, &QCoreApplication::aboutToQuit, &overlayWindows, [&] {
        overlayWindows.hideAll();
        // A recording running at quit is stopped and saved, not abandoned.
        recordingManager.stopForQuit();
    });

    qCDebug(lcStartup) << "Glimmora started.";
    return QApplication::exec();
}
