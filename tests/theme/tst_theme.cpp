#include "app/LanguageLoader.h"
#include "app/ThemeFonts.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <QPixmap>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QScreen>
#include <QTranslator>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

// Gives every engine the root-context objects the documents read. The stand-ins
// are QML objects (tests/theme/mocks) with the same property, signal and
// function names as the real managers, so the tests can drive and inspect them.
class ThemeTestSetup : public QObject
{
    Q_OBJECT

public:
    // Stands in for the desktop switching between a light and a dark scheme.
    Q_INVOKABLE void setSystemWindowColor(const QColor &color)
    {
        QPalette palette = QGuiApplication::palette();
        palette.setColor(QPalette::Window, color);
        QGuiApplication::setPalette(palette);
    }

    // The colour the user sees at a global point, overlays composited.
    Q_INVOKABLE QColor screenPixel(int x, int y) const
    {
        QScreen *screen = QGuiApplication::screenAt(QPoint(x, y));
        if (!screen)
            return {};
        const QPoint origin = screen->geometry().topLeft();
        return screen->grabWindow(0, x - origin.x(), y - origin.y(), 1, 1)
            .toImage()
            .pixelColor(0, 0);
    }

    // Switches the translation as the program does; true when one is installed.
    Q_INVOKABLE bool switchLanguage(const QString &code)
    {
        return m_engine && LanguageLoader::switchTo(m_translator, code, *m_engine);
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
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        const QList<std::pair<QString, QString>> mocks {
            { QStringLiteral("appController"), QStringLiteral("MockAppController.qml") },
            { QStringLiteral("settingsManager"), QStringLiteral("MockSettingsManager.qml") },
            { QStringLiteral("displayManager"), QStringLiteral("MockDisplayManager.qml") },
        };
        for (const auto &[name, file] : mocks) {
            QQmlComponent component(
                engine, QUrl::fromLocalFile(QStringLiteral(THEME_MOCKS_DIR "/") + file));
            QObject *object = component.create();
            if (!object)
                qFatal("ThemeTestSetup: cannot create %s: %s", qPrintable(file),
                       qPrintable(component.errorString()));
            object->setParent(engine);
            engine->rootContext()->setContextProperty(name, object);
        }
        engine->rootContext()->setContextProperty(QStringLiteral("themeTest"), this);
        m_engine = engine;
    }

private:
    QTranslator m_translator;
    QPointer<QQmlEngine> m_engine;
};

QUICK_TEST_MAIN_WITH_SETUP(theme, ThemeTestSetup)

#include "tst_theme.moc"
