#include "app/TrayManager.h"

#include "app/AppController.h"
#include "app/TrayHeaderWidget.h"
#include "display/DisplayManager.h"
#include "settings/SettingsManager.h"

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QWidgetAction>

namespace {
// The menu's frame and separators in the rows' palette; the rows paint
// themselves, in the overlay's bundled face (loaded later at start-up).
const char *const menuStyle = "QWidget { font-family: Geist; }"
                              "QMenu { background: #14171C; border: 1px solid #2A313C;"
                              " padding: 6px 0px; }"
                              "QMenu::separator { height: 1px; background: #2A313C;"
                              " margin: 5px 12px; }";
} // namespace

TrayManager::TrayManager(QObject *parent)
    : QObject(parent)
    , m_trayIcon(new QSystemTrayIcon(
          QIcon(QStringLiteral(":/qt/qml/GlimmoraApp/src/assets/icons/spotlight.svg")), this))
    , m_menu(new QMenu)
{
    m_menu->setMinimumWidth(300);
    m_menu->setStyleSheet(QLatin1String(menuStyle));

    m_header = new TrayHeaderWidget(m_menu);
    auto *headerAction = new QWidgetAction(m_menu);
    headerAction->setDefaultWidget(m_header);
    m_menu->addAction(headerAction);
    m_menu->addSeparator();

    m_spotlightRow = addRow(QStringLiteral("Spotlight"), {}, true, TrayRow::NoIcon);
    m_drawingRow = addRow(QStringLiteral("Drawing Mode"), {}, true, TrayRow::NoIcon);
    m_clickEffectsRow = addRow(QStringLiteral("Click Effects"), {}, true, TrayRow::NoIcon);
    m_keystrokesRow = addRow(QStringLiteral("Keystroke Display"), {}, true, TrayRow::NoIcon);
    m_controlsRow = addRow(QStringLiteral("Always show controls"), {}, true, TrayRow::NoIcon);
    m_menu->addSeparator();

    // The hints are the default keys, fixed: the rows do not follow a remap.
    connect(
        addRow(QStringLiteral("Pause overlay"), QStringLiteral("F5"), false, TrayRow::PauseIcon),
        &TrayRow::clicked, this, &TrayManager::toggleOverlayRequested);
    connect(addRow(QStringLiteral("Settings…"), QStringLiteral("F6"), false, TrayRow::SlidersIcon),
            &TrayRow::clicked, this, &TrayManager::settingsRequested);
    connect(addRow(QStringLiteral("Choose displays…"), {}, false, TrayRow::DisplayIcon),
            &TrayRow::clicked, this, &TrayManager::chooseDisplaysRequested);
    m_menu->addSeparator();
    TrayRow *quitRow = addRow(QStringLiteral("Quit Glimmora"), {}, false, TrayRow::PowerIcon);
    quitRow->setMuted(true);
    connect(quitRow, &TrayRow::clicked, this, &TrayManager::quitRequested);

    m_trayIcon->setToolTip(QStringLiteral("Glimmora"));
    m_trayIcon->setContextMenu(m_menu);
    // Not checked for a tray host: without one the hotkeys still drive the program.
    m_trayIcon->show();
}

TrayManager::~TrayManager()
{
    delete m_menu;
}

void TrayManager::initialise(AppController *controller, SettingsManager *settings,
                             DisplayManager *displayManager)
{
    m_controller = controller;
    m_settings = settings;
    m_displayManager = displayManager;

    if (m_controller) {
        connect(this, &TrayManager::settingsRequested, m_controller, &AppController::showSettings);
        connect(this, &TrayManager::toggleOverlayRequested, m_controller,
                &AppController::toggleOverlay);
        connect(this, &TrayManager::quitRequested, m_controller, &AppController::requestQuit);
        connect(this, &TrayManager::chooseDisplaysRequested, m_controller,
                [this] { m_controller->showSettingsPage(QStringLiteral("displays")); });
        connect(m_controller, &AppController::overlayEnabledChanged, this, &TrayManager::refresh);
        connect(m_controller, &AppController::currentToolChanged, this, &TrayManager::refresh);
    }
    if (m_settings) {
        connect(m_settings, &SettingsManager::clickRippleEnabledChanged, this,
                &TrayManager::refresh);
        connect(m_settings, &SettingsManager::keystrokesEnabledChanged, this,
                &TrayManager::refresh);
        connect(m_settings, &SettingsManager::overlayControlsAlwaysVisibleChanged, this,
                &TrayManager::refresh);
    }
    if (m_displayManager)
        connect(m_displayManager, &DisplayManager::displaysChanged, this, &TrayManager::refresh);
    refresh();

    connect(m_spotlightRow, &TrayRow::clicked, this, &TrayManager::switchSpotlightOrPen);
    connect(m_drawingRow, &TrayRow::clicked, this, &TrayManager::switchSpotlightOrPen);
    connect(m_clickEffectsRow, &TrayRow::clicked, this, [this] {
        if (m_settings)
            m_settings->setClickRippleEnabled(!m_settings->clickRippleEnabled());
    });
    connect(m_keystrokesRow, &TrayRow::clicked, this, [this] {
        if (m_settings)
            m_settings->setKeystrokesEnabled(!m_settings->keystrokesEnabled());
    });
    connect(m_controlsRow, &TrayRow::clicked, this, [this] {
        if (m_settings)
            m_settings->setOverlayControlsAlwaysVisible(
                !m_settings->overlayControlsAlwaysVisible());
    });
}

void TrayManager::refresh()
{
    if (!m_controller || !m_settings)
        return;
    const bool overlayOn = m_controller->overlayEnabled();
    const bool spotlight = m_controller->currentTool() == QLatin1String("spotlight");
    m_header->setState(overlayOn, enabledDisplayCount());
    m_spotlightRow->setChecked(overlayOn && spotlight);
    // On for the cursor too: anything but the spotlight counts as drawing.
    m_drawingRow->setChecked(overlayOn && !spotlight);
    m_clickEffectsRow->setChecked(m_settings->clickRippleEnabled());
    m_keystrokesRow->setChecked(m_settings->keystrokesEnabled());
    m_controlsRow->setChecked(m_settings->overlayControlsAlwaysVisible());
}

TrayRow *TrayManager::addRow(const QString &label, const QString &shortcut, bool isToggle,
                             TrayRow::Icon icon)
{
    auto *row = new TrayRow(label, shortcut, isToggle, icon, m_menu);
    auto *action = new QWidgetAction(m_menu);
    action->setDefaultWidget(row);
    m_menu->addAction(action);
    return row;
}

void TrayManager::switchSpotlightOrPen()
{
    if (!m_controller)
        return;
    const bool spotlight = m_controller->currentTool() == QLatin1String("spotlight");
    m_controller->setTool(spotlight ? QStringLiteral("pen") : QStringLiteral("spotlight"));
}

int TrayManager::enabledDisplayCount() const
{
    if (!m_displayManager)
        return 1;
    int count = 0;
    const QVariantList displays = m_displayManager->displays();
    for (const QVariant &display : displays) {
        // A row without the key counts as enabled.
        if (display.toMap().value(QStringLiteral("enabled"), true).toBool())
            ++count;
    }
    return qMax(count, 1);
}
