#include "app/HotkeyWiring.h"

#include "app/AppController.h"
#include "drawing/DrawingModel.h"
#include "hotkeys/HotkeyManager.h"
#include "settings/SettingsManager.h"

void wireHotkeys(HotkeyManager &hotkeys, SettingsManager &settings, AppController &controller,
                 DrawingModel &drawingModel)
{
    const auto syncFilter = [&] {
        hotkeys.setKeystrokeFilter(settings.keystrokesEnabled(), settings.showModifierKeys(),
                                   settings.showFunctionKeys(), settings.showNavigationKeys(),
                                   settings.showAlphaNumericKeys());
    };
    const auto syncCommandKeys = [&] {
        hotkeys.setCommandKeysActive(controller.overlayEnabled() && !controller.settingsVisible()
                                     && !controller.modalActive());
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
    // A dialog keeps its keys: Esc cancels it and nothing else.
    QObject::connect(&controller, &AppController::modalActiveChanged, &hotkeys, syncCommandKeys);
    QObject::connect(&settings, &SettingsManager::hotkeysChanged, &hotkeys, syncHotkeys);

    QObject::connect(&hotkeys, &HotkeyManager::toggleOverlayRequested, &controller,
                     &AppController::toggleOverlay);
    QObject::connect(&hotkeys, &HotkeyManager::settingsRequested, &controller,
                     &AppController::showSettings);
    QObject::connect(&hotkeys, &HotkeyManager::toolRequested, &controller, &AppController::setTool);
    QObject::connect(&hotkeys, &HotkeyManager::exitToCursorRequested, &controller,
                     &AppController::exitToCursor);
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
