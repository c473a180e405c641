#include "drawing/DrawingModel.h"
#include "drawing/StrokeGeometry.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

// Gives each engine stand-ins for the managers the drawing layers read, the
// real stroke model, and `drawingTest`, through which the QML tests compare
// the layer's script arithmetic with the painter's.
class DrawingLayersSetup : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE QVariantList smoothPoints(const QVariantList &points, int level) const
    {
        QList<QPointF> raw;
        for (const QVariant &point : points)
            raw.append(point.toPointF());
        QVariantList smoothed;
        for (const QPointF &point : StrokeGeometry::smoothPoints(raw, level))
            smoothed.append(point);
        return smoothed;
    }

    // Corner, start and end of each rounded corner of the arrow head, in the
    // order the path visits them: aS, A, aE, bS, B, bE, cS, C, cE.
    Q_INVOKABLE QVariantList arrowHeadPoints(QPointF from, QPointF tip, qreal length) const
    {
        const auto [first, second] = StrokeGeometry::arrowWings(from, tip, length);
        const QPainterPath path =
            StrokeGeometry::roundedTriangle(first, tip, second, 0.25 * length);
        return { QPointF(path.elementAt(0)), first,  QPointF(path.elementAt(3)),
                 QPointF(path.elementAt(4)), tip,    QPointF(path.elementAt(7)),
                 QPointF(path.elementAt(8)), second, QPointF(path.elementAt(11)) };
    }

public slots:
    void applicationAvailable() { QQuickStyle::setStyle(QStringLiteral("Fusion")); }

    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        const QList<std::pair<QString, QString>> mocks {
            { QStringLiteral("appController"), QStringLiteral("MockAppController.qml") },
            { QStringLiteral("settingsManager"), QStringLiteral("MockSettingsManager.qml") },
            { QStringLiteral("displayManager"), QStringLiteral("MockDisplayManager.qml") },
        };
        for (const auto &[name, file] : mocks) {
            QQmlComponent component(engine,
                                    QUrl::fromLocalFile(QStringLiteral(MOCKS_DIR "/") + file));
            QObject *object = component.create();
            if (!object)
                qFatal("DrawingLayersSetup: cannot create %s: %s", qPrintable(file),
                       qPrintable(component.errorString()));
            object->setParent(engine);
            engine->rootContext()->setContextProperty(name, object);
        }
        engine->rootContext()->setContextProperty(QStringLiteral("drawingModel"),
                                                  new DrawingModel(engine));
        engine->rootContext()->setContextProperty(QStringLiteral("drawingTest"), this);
    }
};

QUICK_TEST_MAIN_WITH_SETUP(drawinglayers, DrawingLayersSetup)

#include "tst_drawinglayers.moc"
