#include "drawing/DrawingModel.h"

#include <QSignalSpy>
#include <QTest>

// Runs a small script against the model. Tokens, separated by spaces:
//   A..Z  a whole two-point stroke whose colour is that letter
//   bX    begin a stroke of colour X (one point), p append a point, e end it
//   k     cancel the stroke in progress
//   u     undo, r redo, c clear, off/on switch history
class ModelScript
{
public:
    explicit ModelScript(DrawingModel &model)
        : m_model(model)
    {
    }

    void run(const QString &script)
    {
        for (const QString &token : script.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            step(token);
    }

    void step(const QString &token)
    {
        if (token == QLatin1String("u")) {
            m_model.undoLastStroke();
        } else if (token == QLatin1String("r")) {
            m_model.redoLastStroke();
        } else if (token == QLatin1String("c")) {
            m_model.clear();
        } else if (token == QLatin1String("off") || token == QLatin1String("on")) {
            m_model.setUndoRedoEnabled(token == QLatin1String("on"));
        } else if (token == QLatin1String("p")) {
            m_model.appendPoint(QPointF(m_x += 5, 20));
        } else if (token == QLatin1String("e")) {
            m_model.endStroke();
        } else if (token == QLatin1String("k")) {
            m_model.cancelStroke();
        } else if (token.size() == 2 && token.startsWith(QLatin1Char('b'))) {
            m_model.beginStroke(QPointF(m_x, 10), QStringLiteral("pen"), 4, token.mid(1));
        } else if (token.size() == 1 && token.at(0).isUpper()) {
            step(QLatin1Char('b') + token);
            step(QStringLiteral("p"));
            step(QStringLiteral("e"));
        } else {
            QFAIL(qPrintable(QStringLiteral("unknown script token ") + token));
        }
    }

private:
    DrawingModel &m_model;
    qreal m_x = 0;
};

static QString labels(const DrawingModel &model)
{
    QStringList colors;
    for (const Stroke &stroke : model.strokeList())
        colors << stroke.color;
    return colors.join(QLatin1Char(' '));
}

class TestDrawingModel : public QObject
{
    Q_OBJECT

private slots:
    void history_data();
    void history();
    void committedPointsAreTheSamplesInOrder();
    void shortBeginFormsDefaultDisplayAndSmoothing();
    void mapFormHasExactlyTheDocumentedKeys();
    void mapFormRoundTrips();
    void undoRedoEnabledNotifiesOnceAndThenStrokes();
};

void TestDrawingModel::history_data()
{
    QTest::addColumn<QString>("setup");
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("list");
    QTest::addColumn<bool>("canUndo");
    QTest::addColumn<bool>("canRedo");
    QTest::addColumn<int>("signalsOfLast");

    QTest::newRow("a new stroke after undo drops the redo branch") << "A B u"
                                                                   << "C"
                                                                   << "A C" << true << false << 1;
    QTest::newRow("undo of a clear brings every stroke back") << "A B c"
                                                              << "u"
                                                              << "A B" << true << true << 1;
    QTest::newRow("redo of a clear empties the list again") << "A c u"
                                                            << "r"
                                                            << "" << true << false << 1;
    QTest::newRow("clear on an empty list keeps redo and is silent") << "A u"
                                                                     << "c"
                                                                     << "" << false << true << 0;
    QTest::newRow("undo and redo walk several steps") << "A B C u u"
                                                      << "r"
                                                      << "A B" << true << true << 1;
    QTest::newRow("undo with nothing to undo is silent") << ""
                                                         << "u"
                                                         << "" << false << false << 0;
    QTest::newRow("redo with nothing to redo is silent") << "A"
                                                         << "r"
                                                         << "A" << true << false << 0;
    QTest::newRow("disabling history drops both stacks, keeps strokes")
        << "A B u"
        << "off"
        << "A" << false << false << 1;
    QTest::newRow("a clear without history cannot be undone") << "A off c on"
                                                              << "u"
                                                              << "" << false << false << 0;
    QTest::newRow("enabling again starts an empty history") << "A off"
                                                            << "on"
                                                            << "A" << false << false << 1;
    QTest::newRow("strokes without history take no snapshot") << "off A B on"
                                                              << "u"
                                                              << "A B" << false << false << 0;
    QTest::newRow("cancel changes nothing and is silent") << "A bB p"
                                                          << "k"
                                                          << "A" << true << false << 0;
    QTest::newRow("end after cancel does nothing") << "A bB p k"
                                                   << "e"
                                                   << "A" << true << false << 0;
    QTest::newRow("append while idle is ignored") << ""
                                                  << "p"
                                                  << "" << false << false << 0;
    QTest::newRow("end while idle is ignored") << "A"
                                               << "e"
                                               << "A" << true << false << 0;
    QTest::newRow("a second begin discards the first stroke") << "bA p bB p"
                                                              << "e"
                                                              << "B" << true << false << 1;
    QTest::newRow("a click without a drag commits one step") << "bA"
                                                             << "e"
                                                             << "A" << true << false << 1;
    QTest::newRow("undo during a stroke leaves the stroke going") << "A bB p u"
                                                                  << "e"
                                                                  << "B" << true << false << 1;
    QTest::newRow("clear during a stroke leaves the stroke going") << "A bB p c"
                                                                   << "e"
                                                                   << "B" << true << false << 1;
}

void TestDrawingModel::history()
{
    QFETCH(QString, setup);
    QFETCH(QString, last);
    QFETCH(QString, list);
    QFETCH(bool, canUndo);
    QFETCH(bool, canRedo);
    QFETCH(int, signalsOfLast);

    DrawingModel model;
    ModelScript script(model);
    script.run(setup);
    QSignalSpy changed(&model, &DrawingModel::strokesChanged);
    script.run(last);

    QCOMPARE(labels(model), list);
    QCOMPARE(model.canUndo(), canUndo);
    QCOMPARE(model.canRedo(), canRedo);
    QCOMPARE(model.property("canUndo").toBool(), canUndo);
    QCOMPARE(model.property("canRedo").toBool(), canRedo);
    QCOMPARE(changed.count(), signalsOfLast);
}

void TestDrawingModel::committedPointsAreTheSamplesInOrder()
{
    DrawingModel model;
    model.beginStroke(QPointF(1, 2), QStringLiteral("arrow"), 9, QStringLiteral("#00ff00"),
                      QStringLiteral("LEFT"), 3);
    model.appendPoint(QPointF(3, 4));
    model.appendPoint(QPointF(3, 4));
    model.appendPoint(QPointF(-5.5, 6.25));
    model.endStroke();

    QCOMPARE(model.strokeList().size(), 1);
    const Stroke &stroke = model.strokeList().first();
    QCOMPARE(stroke.tool, QStringLiteral("arrow"));
    QCOMPARE(stroke.width, 9);
    QCOMPARE(stroke.color, QStringLiteral("#00ff00"));
    QCOMPARE(stroke.displayId, QStringLiteral("LEFT"));
    QCOMPARE(stroke.smoothing, 3);
    // Repeated samples are kept: the model does no thinning.
    const QList<QPointF> expected { { 1, 2 }, { 3, 4 }, { 3, 4 }, { -5.5, 6.25 } };
    QCOMPARE(stroke.points, expected);

    // The next stroke starts from the default record, not from the last one.
    model.beginStroke(QPointF(0, 0), QStringLiteral("pen"), 2, QString());
    model.endStroke();
    QCOMPARE(model.strokeList().last().displayId, QString());
    QCOMPARE(model.strokeList().last().points.size(), 1);
}

void TestDrawingModel::shortBeginFormsDefaultDisplayAndSmoothing()
{
    // QML calls by name with four or five arguments.
    DrawingModel model;
    QVERIFY(QMetaObject::invokeMethod(&model, "beginStroke", Q_ARG(QPointF, QPointF(1, 1)),
                                      Q_ARG(QString, QStringLiteral("pen")), Q_ARG(int, 3),
                                      Q_ARG(QString, QStringLiteral("red"))));
    QVERIFY(QMetaObject::invokeMethod(&model, "endStroke"));
    QVERIFY(QMetaObject::invokeMethod(&model, "beginStroke", Q_ARG(QPointF, QPointF(1, 1)),
                                      Q_ARG(QString, QStringLiteral("pen")), Q_ARG(int, 3),
                                      Q_ARG(QString, QStringLiteral("red")),
                                      Q_ARG(QString, QStringLiteral("RIGHT"))));
    QVERIFY(QMetaObject::invokeMethod(&model, "endStroke"));

    QCOMPARE(model.strokeList().size(), 2);
    QCOMPARE(model.strokeList()[0].displayId, QString());
    QCOMPARE(model.strokeList()[0].smoothing, 2);
    QCOMPARE(model.strokeList()[1].displayId, QStringLiteral("RIGHT"));
    QCOMPARE(model.strokeList()[1].smoothing, 2);
}

void TestDrawingModel::mapFormHasExactlyTheDocumentedKeys()
{
    DrawingModel model;
    model.beginStroke(QPointF(1.5, 2), QStringLiteral("circle"), 7, QStringLiteral("#123456"),
                      QStringLiteral("D1"), 1);
    model.appendPoint(QPointF(8, 9.25));
    model.endStroke();

    const QVariantList strokes = model.property("strokes").toList();
    QCOMPARE(strokes.size(), 1);
    const QVariantMap map = strokes.first().toMap();
    QStringList keys = map.keys();
    keys.sort();
    QCOMPARE(keys, QStringList({ "color", "displayId", "points", "smoothing", "tool", "width" }));
    QCOMPARE(map.value("tool").toString(), QStringLiteral("circle"));
    QCOMPARE(map.value("width").typeId(), QMetaType::Int);
    QCOMPARE(map.value("width").toInt(), 7);
    QCOMPARE(map.value("smoothing").toInt(), 1);
    QCOMPARE(map.value("displayId").toString(), QStringLiteral("D1"));
    const QVariantList points = map.value("points").toList();
    QCOMPARE(points.size(), 2);
    const QVariantMap second = points[1].toMap();
    QCOMPARE(second.keys(), QStringList({ "x", "y" }));
    QCOMPARE(second.value("x").typeId(), QMetaType::Double);
    QCOMPARE(second.value("y").toDouble(), 9.25);
}

void TestDrawingModel::mapFormRoundTrips()
{
    const Stroke original { QStringLiteral("highlighter"), 11, QStringLiteral("#80ff0000"),
                            QStringLiteral("X"),           3,  { { 0.5, 1 }, { 2, -3 } } };
    const Stroke parsed = Stroke::fromMap(original.toMap(), 1, Qt::blue, 0);
    QCOMPARE(parsed, original);

    // Missing keys read as the defaults handed in; missing coordinates as 0.
    const QVariantMap sparse { { "points", QVariantList { QVariantMap { { "x", 4 } } } } };
    const Stroke filled = Stroke::fromMap(sparse, 13, QColor(0x11, 0x22, 0x33, 0x44), 1);
    QCOMPARE(filled.tool, QStringLiteral("pen"));
    QCOMPARE(filled.width, 13);
    QCOMPARE(filled.color, QStringLiteral("#44112233"));
    QCOMPARE(filled.displayId, QString());
    QCOMPARE(filled.smoothing, 1);
    QCOMPARE(filled.points, QList<QPointF>({ { 4, 0 } }));
}

void TestDrawingModel::undoRedoEnabledNotifiesOnceAndThenStrokes()
{
    DrawingModel model;
    QStringList order;
    connect(&model, &DrawingModel::undoRedoEnabledChanged, this, [&] { order << "enabled"; });
    connect(&model, &DrawingModel::strokesChanged, this, [&] { order << "strokes"; });

    model.setUndoRedoEnabled(true);
    QCOMPARE(order, QStringList());
    model.setUndoRedoEnabled(false);
    model.setUndoRedoEnabled(false);
    QCOMPARE(order, QStringList({ "enabled", "strokes" }));
    QCOMPARE(model.undoRedoEnabled(), false);
    QVERIFY(model.setProperty("undoRedoEnabled", true));
    QCOMPARE(order.size(), 4);
    QCOMPARE(model.undoRedoEnabled(), true);
}

QTEST_GUILESS_MAIN(TestDrawingModel)
#include "tst_drawingmodel.moc"
