#include "StrokeImages.h"
#include "drawing/StrokePainter.h"

#include <QTest>

#include <cmath>

// The renderer keeps its strokes painted in a retained layer and paints only
// new strokes onto it when the list grew at its end. Whatever happened
// before, what it shows must equal painting every stroke from nothing.

namespace {

const QSize kCanvas(240, 160);

QList<QPointF> wave(int seed)
{
    QList<QPointF> points;
    for (int i = 0; i < 40; ++i) {
        const qreal t = i / 39.0;
        points << QPointF(10 + 220 * t, 80 + 50 * std::sin(t * 6 + seed) * std::cos(seed));
    }
    return points;
}

// Every visible stroke painted straight onto the target, with no layer.
QImage paintDirectly(const DrawingRendererItem &item, const DrawingModel &model, qreal scale,
                     QImage::Format format)
{
    QImage image(kCanvas * scale, format);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    const StrokePainter strokePainter =
        StrokePainter::live(item.defaultColor(), item.defaultWidth());
    for (const Stroke &stroke : model.strokeList()) {
        if (item.mirrorAnnotations() || stroke.showsOn(item.displayId()))
            strokePainter.paint(&painter, stroke);
    }
    return image;
}

} // namespace

class TestRendererCache : public QObject
{
    Q_OBJECT

private slots:
    void layerMatchesFullRepaint_data();
    void layerMatchesFullRepaint();
    void drawnTilesHoldTheStroke_data();
    void drawnTilesHoldTheStroke();
};

void TestRendererCache::layerMatchesFullRepaint_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QImage::Format>("format");

    const QList<std::pair<const char *, const char *>> scripts {
        { "pens and highlighters appended", "pen hl pen hl arrow rect circle" },
        { "an appended eraser and a pen over it", "pen hl eraser pen" },
        { "undo drops a stroke, redo appends it again", "pen pen undo redo pen undo undo" },
        { "clear and its undo", "pen eraser pen clear undo pen" },
        { "switching display", "pen@L pen@R display=R pen@R pen@L display=L" },
        { "mirroring on and off", "pen@L mirror pen@R unmirror pen@L" },
        { "new default colour reaches uncoloured strokes", "nocolour pen colour=#00ffff pen" },
        { "new default colour leaves coloured strokes alone", "pen colour=#00ffff pen" },
        { "new default width reaches zero-width strokes", "zerowidth pen width=12 zerowidth" },
        { "history switched off", "pen pen nohistory pen undo" },
        // Steps joined by + happen between two paints, as within one frame.
        { "undo and a new stroke in one frame", "pen hl undo+pen" },
        { "clear and as many new strokes in one frame", "pen pen clear+pen+hl pen" },
    };
    for (const auto &[name, script] : scripts) {
        QTest::addRow("%s", name) << script << 1.0 << QImage::Format_ARGB32_Premultiplied;
        QTest::addRow("%s, scale 2, scene graph format", name)
            << script << 2.0 << QImage::Format_RGBA8888_Premultiplied;
        QTest::addRow("%s, scale 1.25", name)
            << script << 1.25 << QImage::Format_ARGB32_Premultiplied;
    }
}

void TestRendererCache::layerMatchesFullRepaint()
{
    QFETCH(QString, script);
    QFETCH(qreal, scale);
    QFETCH(QImage::Format, format);

    DrawingModel model;
    DrawingRendererItem kept;
    kept.setDrawingModel(&model);
    kept.setDisplayId(QStringLiteral("L"));
    int seed = 0;
    bool sawPaint = false;
    for (const QString &frame : script.split(QLatin1Char(' '))) {
        for (const QString &step : frame.split(QLatin1Char('+'))) {
            const QString tool = step.section(QLatin1Char('@'), 0, 0);
            const QString display = step.section(QLatin1Char('@'), 1);
            const QString value = step.section(QLatin1Char('='), 1);
            ++seed;
            if (tool == QLatin1String("pen") || tool == QLatin1String("arrow")) {
                commitStroke(model, tool, wave(seed), QStringLiteral("#d04020"), 5, display, 2);
            } else if (tool == QLatin1String("hl")) {
                commitStroke(model, QStringLiteral("highlighter"), wave(seed),
                             QStringLiteral("#2040d0"), 3, display, 3);
            } else if (tool == QLatin1String("rect") || tool == QLatin1String("circle")) {
                commitStroke(model,
                             tool == QLatin1String("rect") ? QStringLiteral("rectangle") : tool,
                             { { 30.0 + seed, 20 }, { 200, 130.0 - seed } },
                             QStringLiteral("#20a040"), 4, display);
            } else if (tool == QLatin1String("eraser")) {
                commitStroke(model, tool, { { 120, 0 }, { 125, 80 }, { 120, 160 } }, QString(), 24);
            } else if (tool == QLatin1String("nocolour")) {
                commitStroke(model, QStringLiteral("pen"), wave(seed), QString(), 7);
            } else if (tool == QLatin1String("zerowidth")) {
                commitStroke(model, QStringLiteral("pen"), wave(seed), QStringLiteral("#808000"),
                             0);
            } else if (tool == QLatin1String("undo")) {
                model.undoLastStroke();
            } else if (tool == QLatin1String("redo")) {
                model.redoLastStroke();
            } else if (tool == QLatin1String("clear")) {
                model.clear();
            } else if (tool == QLatin1String("nohistory")) {
                model.setUndoRedoEnabled(false);
            } else if (step.startsWith(QLatin1String("display="))) {
                kept.setDisplayId(value);
            } else if (tool == QLatin1String("mirror") || tool == QLatin1String("unmirror")) {
                kept.setMirrorAnnotations(tool == QLatin1String("mirror"));
            } else if (step.startsWith(QLatin1String("colour="))) {
                kept.setDefaultColor(QColor(value));
            } else if (step.startsWith(QLatin1String("width="))) {
                kept.setDefaultWidth(value.toInt());
            } else {
                QFAIL(qPrintable(QStringLiteral("unknown step ") + step));
            }
        }

        // The kept item paints after every step, as the window would; a
        // fresh item and the direct painting start from nothing.
        const QImage fromLayer = paintItem(kept, kCanvas, scale, format);
        DrawingRendererItem fresh;
        fresh.setDrawingModel(&model);
        fresh.setDisplayId(kept.displayId());
        fresh.setMirrorAnnotations(kept.mirrorAnnotations());
        fresh.setDefaultColor(kept.defaultColor());
        fresh.setDefaultWidth(kept.defaultWidth());
        const QImage fromScratch = paintItem(fresh, kCanvas, scale, format);
        const QImage direct = paintDirectly(kept, model, scale, format);
        QVERIFY2(fromLayer == fromScratch, qPrintable(QStringLiteral("after ") + frame));
        QVERIFY2(fromLayer == direct, qPrintable(QStringLiteral("direct, after ") + frame));
        // Only the drawn tiles reach the screen: they hold every painted pixel.
        QImage outside = fromLayer;
        QPainter eraser(&outside);
        eraser.setCompositionMode(QPainter::CompositionMode_Clear);
        for (const QRect &area : kept.drawnAreas())
            eraser.fillRect(area, Qt::transparent);
        eraser.end();
        QVERIFY2(countPainted(outside, outside.rect()) == 0,
                 qPrintable(QStringLiteral("paint outside the drawn tiles after ") + frame));
        sawPaint = sawPaint || countPainted(fromLayer, fromLayer.rect()) > 0;
    }
    QVERIFY(sawPaint);
}

void TestRendererCache::drawnTilesHoldTheStroke_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<int>("width");
    QTest::addColumn<qreal>("scale");
    // Strokes along a tile edge (64 device pixels), where paint spills over.
    for (const char *tool : { "pen", "highlighter", "arrow", "rectangle", "circle" }) {
        for (int width : { 2, 24 }) {
            QTest::addRow("%s %d", tool, width) << QString::fromLatin1(tool) << width << 1.0;
            QTest::addRow("%s %d, scale 1.5", tool, width)
                << QString::fromLatin1(tool) << width << 1.5;
        }
    }
}

void TestRendererCache::drawnTilesHoldTheStroke()
{
    QFETCH(QString, tool);
    QFETCH(int, width);
    QFETCH(qreal, scale);
    const QSize screen(1920, 1080);
    DrawingModel model;
    const qreal edge = 128 / scale;
    commitStroke(model, tool, { { 300, edge }, { 500, edge + 2 }, { 700, edge } },
                 QStringLiteral("#d04020"), width, QString(), 2);
    DrawingRendererItem item;
    item.setDrawingModel(&model);
    const QImage painted = paintItem(item, screen, scale);
    QVERIFY(countPainted(painted, painted.rect()) > 0);

    QImage outside = painted;
    QPainter eraser(&outside);
    eraser.setCompositionMode(QPainter::CompositionMode_Clear);
    qint64 drawn = 0;
    for (const QRect &area : item.drawnAreas()) {
        eraser.fillRect(area, Qt::transparent);
        drawn += qint64(area.width()) * area.height();
    }
    eraser.end();
    QCOMPARE(countPainted(outside, outside.rect()), 0);
    // A stroke across a tenth of the screen draws far less than the screen.
    QVERIFY2(drawn * 10 < qint64(painted.width()) * painted.height(),
             qPrintable(QString::number(drawn)));
}

QTEST_MAIN(TestRendererCache)
#include "tst_renderercache.moc"
