#include <QQmlEngine>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

// The module is linked in statically; its documents live below qrc:/qt/qml.
class RegionOverlaySetup : public QObject
{
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    }
};

QUICK_TEST_MAIN_WITH_SETUP(tst_regioncaptureoverlay, RegionOverlaySetup)
#include "tst_regioncaptureoverlay.moc"
