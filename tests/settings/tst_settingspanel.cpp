#include "FakeHotkeyBackend.h"
#include "TestStore.h"
#include "app/AppController.h"
#include "app/HotkeyWiring.h"
#include "app/ThemeFonts.h"
#include "display/DisplayManager.h"
#include "drawing/DrawingModel.h"
#include "hotkeys/HotkeyManager.h"
#include "hotkeys/HotkeySequence.h"
#include "settings/SettingsManager.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

#include <memory>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

// The panels meet the real store, display manager, controller and hotkey
// service, wired as at start-up, in a private settings folder. Only the
// window system's key registrations are a fake, in which another program
// holds Alt+3.
class PanelTestSetup : public QObject
{
    Q_OBJECT

public:
    // Whether the window system now holds the sequence for this program.
    Q_INVOKABLE bool registered(const QString &sequence) const
    {
        const std::optional<KeyCombination> combination = HotkeySequence::parse(sequence);
        return combination && m_keys.registered.values().contains(*combination);
    }

public slots:
    void applicationAvailable()
    {
        QQuickStyle::setStyle(QStringLiteral("Fusion"));
        ThemeFonts::addBundledFonts();
        ThemeFonts::installFamilyLists();
    }

    void qmlEngineAvailable(QQmlEngine *engine)
    {
        m_store = std::make_unique<TestStore>();
        m_keys.heldElsewhere = { *HotkeySequence::parse(QStringLiteral("Alt+3")) };
        m_settings = std::make_unique<SettingsManager>(std::unique_ptr<LoginEntry>());
        m_displays = std::make_unique<DisplayManager>(m_settings.get());
        m_drawing = std::make_unique<DrawingModel>();
        m_controller = std::make_unique<AppController>(m_settings.get(), nullptr, m_drawing.get(),
                                                       nullptr, m_displays.get(), nullptr);
        m_hotkeys = std::make_unique<HotkeyManager>(std::make_unique<FakeHotkeyBackend>(&m_keys));
        wireHotkeys(*m_hotkeys, *m_settings, *m_controller, *m_drawing);
        m_hotkeys->start();

        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlContext *context = engine->rootContext();
        const QVariant none = QVariant::fromValue<QObject *>(nullptr);
        context->setContextProperty(QStringLiteral("appController"), m_controller.get());
        context->setContextProperty(QStringLiteral("settingsManager"), m_settings.get());
        context->setContextProperty(QStringLiteral("displayManager"), m_displays.get());
        context->setContextProperty(QStringLiteral("drawingModel"), m_drawing.get());
        context->setContextProperty(QStringLiteral("hotkeyManager"), m_hotkeys.get());
        for (const char *name : { "renderBackendManager", "macPermissions", "winAcrylic" })
            context->setContextProperty(QString::fromLatin1(name), none);
        context->setContextProperty(QStringLiteral("panelTest"), this);
    }

private:
    std::unique_ptr<TestStore> m_store;
    FakeKeySystem m_keys;
    std::unique_ptr<SettingsManager> m_settings;
    std::unique_ptr<DisplayManager> m_displays;
    std::unique_ptr<DrawingModel> m_drawing;
    std::unique_ptr<AppController> m_controller;
    std::unique_ptr<HotkeyManager> m_hotkeys;
};

QUICK_TEST_MAIN_WITH_SETUP(settingspanel, PanelTestSetup)

#include "tst_settingspanel.moc"
