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
    void qmlFormsKeepTheStroke();
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

    // name, setup, last step, strokes after, can undo, can redo, signals of the last step
    const auto row = [](const char *name, const char *setup, const char *last, const char *list,
                        bool canUndo, bool canRedo, int signalCount) {
        QTest::newRow(name) << QString(setup) << QString(last) << QString(list) << canUndo
                            << canRedo << signalCount;
    };
    row("a new stroke after undo drops the redo branch", "A B u", "C", "A C", true, false, 1);
    row("undo of a clear brings every stroke back", "A B c", "u", "A B", true, true, 1);
    row("redo of a clear empties the list again", "A c u", "r", "", true, false, 1);
    row("clear on an empty list keeps redo and is silent", "A u", "c", "", false, true, 0);
    row("undo and redo walk several steps", "A B C u u", "r", "A B", true, true, 1);
    row("undo with nothing to undo is silent", "", "u", "", false, false, 0);
    row("redo with nothing to redo is silent", "A", "r", "A", true, false, 0);
    row("disabling history drops both stacks, keeps strokes", "A B u", "off", "A", false, false, 1);
    row("a clear without history cannot be undone", "A off c on", "u", "", false, false, 0);
    row("enabling again starts an empty history", "A off", "on", "A", false, false, 1);
    row("strokes without history take no snapshot", "off A B on", "u", "A B", false, false, 0);
    row("cancel changes nothing and is silent", "A bB p", "k", "A", true, false, 0);
    row("end after cancel does nothing", "A bB p k", "e", "A", true, false, 0);
    row("append while idle is ignored", "", "p", "", false, false, 0);
    row("end while idle is ignored", "A", "e", "A", true, false, 0);
    row("a second begin discards the first stroke", "bA p bB p", "e", "B", true, false, 1);
    row("a click without a drag commits one step", "bA", "e", "A", true, false, 1);
    row("undo during a stroke leaves the stroke going", "A bB p u", "e", "B", true, false, 1);
    row("clear during a stroke leaves the stroke going", "A bB p c", "e", "B", true, false, 1);
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
    QCOMPARE(changed.count(), signalsOfLast);
}

// QML begins strokes by name with four or five arguments and reads the
// "strokes" maps back; both must keep the samples as drawn, repeats included.
void TestDrawingModel::qmlFormsKeepTheStroke()
{
    DrawingModel model;
    QVERIFY(QMetaObject::invokeMethod(&model, "beginStroke", Q_ARG(QPointF, QPointF(1.5, 2)),
                                      Q_ARG(QString, QStringLiteral("circle")), Q_ARG(int, 7),
                                      Q_ARG(QString, QStringLiteral("#123456")),
                                      Q_ARG(QString, QStringLiteral("D1"))));
    model.appendPoint(QPointF(8, 9.25));
    model.appendPoint(QPointF(8, 9.25));
    model.endStroke();
    QVERIFY(QMetaObject::invokeMethod(&model, "beginStroke", Q_ARG(QPointF, QPointF(1, 1)),
                                      Q_ARG(QString, QStringLiteral("pen")), Q_ARG(int, 3),
                                      Q_ARG(QString, QStringLiteral("red"))));
    model.endStroke();

    const QVariantList strokes = model.property("strokes").toList();
    QCOMPARE(strokes.size(), 2);
    const QVariantMap map = strokes.first().toMap();
    QStringList keys = map.keys();
    keys.sort();
    QCOMPARE(keys, QStringList({ "color", "displayId", "points", "smoothing", "tool", "width" }));
    QCOMPARE(map.value("width").typeId(), QMetaType::Int);
    QCOMPARE(map.value("smoothing").toInt(), 2);
    QCOMPARE(map.value("points").toList().last().toMap(),
             (QVariantMap { { "x", 8.0 }, { "y", 9.25 } }));
    const Stroke first = Stroke::fromMap(map, 1, Qt::blue, 0);
    QCOMPARE(first, model.strokeList().first());
    QCOMPARE(first.points, QList<QPointF>({ { 1.5, 2 }, { 8, 9.25 }, { 8, 9.25 } }));
    QCOMPARE(first.displayId, QStringLiteral("D1"));
    // The next stroke starts from the default record, not from the last one.
    QCOMPARE(model.strokeList().last().displayId, QString());
    QCOMPARE(model.strokeList().last().points.size(), 1);

    // Missing keys read as the defaults handed in; missing coordinates as 0.
    const QVariantMap sparse { { "points", QVariantList { QVariantMap { { "x", 4 } } } } };
    const Stroke filled = Stroke::fromMap(sparse, 13, QColor(0x11, 0x22, 0x33, 0x44), 1);
    const Stroke expected { QStringLiteral("pen"), 13, QStringLiteral("#44112233"), {}, 1,
                            { { 4, 0 } } };
    QCOMPARE(filled, expected);
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
}

QTEST_GUILESS_MAIN(TestDrawingModel)
#include "tst_drawingmodel.moc"
