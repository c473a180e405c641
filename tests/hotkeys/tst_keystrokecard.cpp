#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

// Gives the documents stand-ins for the two managers the keystroke card reads.
class KeystrokeCardTestSetup : public QObject
{
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        const QList<std::pair<QString, QString>> mocks {
            { QStringLiteral("appController"), QStringLiteral("MockAppController.qml") },
            { QStringLiteral("settingsManager"), QStringLiteral("MockSettingsManager.qml") },
        };
        for (const auto &[name, file] : mocks) {
            QQmlComponent component(
                engine, QUrl::fromLocalFile(QStringLiteral(KEYSTROKE_MOCKS_DIR "/") + file));
            QObject *object = component.create();
            if (!object)
                qFatal("KeystrokeCardTestSetup: cannot create %s: %s", qPrintable(file),
                       qPrintable(component.errorString()));
            object->setParent(engine);
            engine->rootContext()->setContextProperty(name, object);
        }
    }
};

QUICK_TEST_MAIN_WITH_SETUP(keystrokecard, KeystrokeCardTestSetup)

#include "tst_keystrokecard.moc"
