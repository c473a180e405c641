#include "app/Startup.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

Q_LOGGING_CATEGORY(lcStartup, "glimmora.app")

int runGlimmora(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    QCoreApplication::setApplicationVersion(QStringLiteral("0.4.5"));
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));

    QQuickStyle::setStyle(QStringLiteral("Fusion"));

    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/GlimmoraApp/Main.qml")));
    if (engine.rootObjects().isEmpty()) {
        qCCritical(lcStartup) << "No root QML objects loaded.";
        return -1;
    }
    qCDebug(lcStartup) << "Glimmora started.";
    return QApplication::exec();
}
