#pragma once

#include <QString>
#include <QTranslator>

#include <memory>

class AppController;
class DisplayManager;
class DrawingModel;
class HotkeyManager;
class OverlayManager;
class OverlayWindowManager;
class QQmlApplicationEngine;
class QQuickItem;
class QQuickWindow;
class SettingsManager;

// The program's windows and managers built in the test's own process, as the
// start-up builds them, so that a test can find an element of the HUD by its
// object name and then act on it through the X server like a user.
class AssembledApp
{
public:
    // With globalHotkeys the window system's hotkeys are taken and wired as at
    // start-up, so that they act while another client has the focus.
    explicit AssembledApp(bool globalHotkeys = false);
    ~AssembledApp();
    AssembledApp(const AssembledApp &) = delete;
    AssembledApp &operator=(const AssembledApp &) = delete;

    // False when the root document or the HUD could not be made.
    bool isValid() const;

    SettingsManager &settings() const { return *m_settings; }
    DisplayManager &displays() const { return *m_displays; }
    DrawingModel &drawing() const { return *m_drawing; }
    AppController &controller() const { return *m_controller; }
    // Null unless built with global hotkeys.
    HotkeyManager *hotkeys() const { return m_hotkeys.get(); }
    OverlayWindowManager &windows() const { return *m_windows; }
    // The root document's window: the overlay of the control display.
    QQuickWindow *mainWindow() const { return m_main; }
    QQuickWindow *hud() const;
    QQuickItem *hudItem(const QString &objectName) const;

private:
    std::unique_ptr<SettingsManager> m_settings;
    std::unique_ptr<DisplayManager> m_displays;
    std::unique_ptr<OverlayManager> m_overlays;
    std::unique_ptr<DrawingModel> m_drawing;
    std::unique_ptr<AppController> m_controller;
    // Follows the language setting, as at start-up.
    QTranslator m_translator;
    std::unique_ptr<HotkeyManager> m_hotkeys;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_main = nullptr;
    std::unique_ptr<OverlayWindowManager> m_windows;
};
