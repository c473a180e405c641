#pragma once

#include "app/TrayRow.h"

#include <QObject>

class AppController;
class DisplayManager;
class QMenu;
class QSystemTrayIcon;
class SettingsManager;
class TrayHeaderWidget;

// The tray icon and its menu: the one surface that stays reachable while the
// overlay is paused and its controls are hidden. The menu is made of painted
// rows so that it has the overlay's dark look; a row click keeps it open and
// its switches follow the state at once.
class TrayManager : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TrayManager)

public:
    explicit TrayManager(QObject *parent = nullptr);
    ~TrayManager() override;

    // The menu reads and drives these; none is owned, each may be null. The
    // command signals end in the controller.
    void initialise(AppController *controller, SettingsManager *settings,
                    DisplayManager *displayManager);

    QSystemTrayIcon *trayIcon() const { return m_trayIcon; }
    QMenu *menu() const { return m_menu; }

public slots:
    void refresh();

signals:
    void settingsRequested();
    void toggleOverlayRequested();
    void quitRequested();
    void chooseDisplaysRequested();

private:
    TrayRow *addRow(const QString &label, const QString &shortcut, bool isToggle,
                    TrayRow::Icon icon);
    void switchSpotlightOrPen();
    int enabledDisplayCount() const;

    QSystemTrayIcon *m_trayIcon = nullptr;
    // A top-level widget: deleted here, not by a parent.
    QMenu *m_menu = nullptr;
    AppController *m_controller = nullptr;
    SettingsManager *m_settings = nullptr;
    DisplayManager *m_displayManager = nullptr;
    TrayHeaderWidget *m_header = nullptr;
    TrayRow *m_spotlightRow = nullptr;
    TrayRow *m_drawingRow = nullptr;
    TrayRow *m_clickEffectsRow = nullptr;
    TrayRow *m_keystrokesRow = nullptr;
    TrayRow *m_controlsRow = nullptr;
};
