#include "AssembledApp.h"

#include "app/AppController.h"
#include "app/HotkeyWiring.h"
#include "app/LanguageLoader.h"
#include "display/DisplayManager.h"
#include "display/OverlayManager.h"
#include "display/OverlayWindowManager.h"
#include "drawing/DrawingModel.h"
#include "hotkeys/HotkeyManager.h"
#include "platform/LoginEntry.h"
#include "settings/SettingsManager.h"

#include <QCoreApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickWindow>

AssembledApp::AssembledApp(bool globalHotkeys)
    : m_settings(std::make_unique<SettingsManager>(std::unique_ptr<LoginEntry>()))
    , m_displays(std::make_unique<DisplayManager>(m_settings.get()))
    , m_overlays(std::make_unique<OverlayManager>())
    , m_drawing(std::make_unique<DrawingModel>())
{
    m_controller = std::make_unique<AppController>(
        m_settings.get(), m_overlays.get(), m_drawing.get(), nullptr, m_displays.get(), nullptr);
    if (LanguageLoader::load(m_translator, m_settings->language()))
        QCoreApplication::installTranslator(&m_translator);
    if (globalHotkeys) {
        m_hotkeys = std::make_unique<HotkeyManager>();
        wireHotkeys(*m_hotkeys, *m_settings, *m_controller, *m_drawing);
        m_hotkeys->start();
    }
    m_engine = std::make_unique<QQmlApplicationEngine>();
    QQmlContext *context = m_engine->rootContext();
    const QVariant none = QVariant::fromValue<QObject *>(nullptr);
    context->setContextProperty(QStringLiteral("appController"), m_controller.get());
    context->setContextProperty(QStringLiteral("settingsManager"), m_settings.get());
    context->setContextProperty(QStringLiteral("displayManager"), m_displays.get());
    context->setContextProperty(QStringLiteral("drawingModel"), m_drawing.get());
    context->setContextProperty(QStringLiteral("hotkeyManager"), m_hotkeys.get());
    for (const char *name : { "renderBackendManager", "macPermissions", "winAcrylic" })
        context->setContextProperty(QString::fromLatin1(name), none);
    m_engine->load(QUrl(QStringLiteral("qrc:/qt/qml/GlimmoraApp/Main.qml")));
    QObject::connect(m_settings.get(), &SettingsManager::languageChanged, m_engine.get(), [this] {
        LanguageLoader::switchTo(m_translator, m_settings->language(), *m_engine);
    });
    if (m_engine->rootObjects().isEmpty())
        return;
    m_main = qobject_cast<QQuickWindow *>(m_engine->rootObjects().constFirst());
    if (m_main)
        m_windows = std::make_unique<OverlayWindowManager>(
            m_displays.get(), m_overlays.get(), m_controller.get(), m_engine.get(), m_main);
}

AssembledApp::~AssembledApp()
{
    // The windows live in the engine and go first, as at the end of the program.
    m_windows.reset();
    m_engine.reset();
}

bool AssembledApp::isValid() const
{
    return m_windows && m_windows->hudWindow();
}

QQuickWindow *AssembledApp::hud() const
{
    return m_windows ? m_windows->hudWindow() : nullptr;
}

namespace {

// Through the visual tree: items a Repeater makes are not QObject children of
// the item they stand in.
QQuickItem *findItem(QQuickItem *item, const QString &objectName)
{
    if (item->objectName() == objectName)
        return item;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = findItem(child, objectName))
            return found;
    }
    return nullptr;
}

} // namespace

QQuickItem *AssembledApp::hudItem(const QString &objectName) const
{
    QQuickWindow *window = hud();
    return window ? findItem(window->contentItem(), objectName) : nullptr;
}
