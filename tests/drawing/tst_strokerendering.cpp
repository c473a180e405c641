#include "StrokeImages.h"
#include "drawing/RenderStrokesToImage.h"

#include <QSignalSpy>
#include <QTest>

namespace {

const QSize kCanvas(200, 100);
const QList<QPointF> kHorizontal { { 20, 50 }, { 180, 50 } };
const QList<QPointF> kVertical { { 100, 10 }, { 100, 90 } };

enum class Variant { Live, Export };

// The model's strokes through either variant; the live one has the default
// colour #00ff00 and default width 10, so that fallbacks can be told apart.
QImage render(const DrawingModel &model, Variant variant, const QString &displayId = QString())
{
    if (variant == Variant::Export)
        return renderStrokesToImage(&model, kCanvas, 1.0, displayId);
    DrawingRendererItem item;
    item.setDrawingModel(const_cast<DrawingModel *>(&model));
    item.setDisplayId(displayId);
    item.setDefaultColor(QColor(0, 255, 0));
    item.setDefaultWidth(10);
    return paintItem(item, kCanvas);
}

} // namespace

Q_DECLARE_METATYPE(Variant)

class TestStrokeRendering : public QObject
{
    Q_OBJECT

private slots:
    void emptyModelGivesTransparentImage_data();
    void emptyModelGivesTransparentImage();
    void penPaintsAlongItsPathOnly_data();
    void penPaintsAlongItsPathOnly();
    void exportKeepsLogicalCoordinatesAtScale();
    void eraserClearsOnlyWhatCameBefore_data();
    void eraserClearsOnlyWhatCameBefore();
    void displayFilter_data();
    void displayFilter();
    void widthsAndColours_data();
    void widthsAndColours();
    void arrowHeads_data();
    void arrowHeads();
    void shapesUseFirstAndLastPoint_data();
    void shapesUseFirstAndLastPoint();
    void onePointPaintsNothing_data();
    void onePointPaintsNothing();
    void fallsBackToStrokesWhenModelGoes();
    void parsedMapTakesItemDefaults();
};

void TestStrokeRendering::emptyModelGivesTransparentImage_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<bool>("withModel");

    QTest::newRow("sides rounded to nearest") << QSizeF(33.3, 10.1) << 1.5 << QSize(50, 15) << true;
    QTest::newRow("null model") << QSizeF(64, 32) << 2.0 << QSize(128, 64) << false;
}

void TestStrokeRendering::emptyModelGivesTransparentImage()
{
    QFETCH(QSizeF, size);
    QFETCH(qreal, scale);
    QFETCH(QSize, pixels);
    QFETCH(bool, withModel);

    DrawingModel model;
    const QImage image = renderStrokesToImage(withModel ? &model : nullptr, size, scale);
    QCOMPARE(image.size(), pixels);
    QCOMPARE(image.format(), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(image.devicePixelRatio(), 1.0);
    QCOMPARE(countPainted(image, image.rect()), 0);
}

void TestStrokeRendering::penPaintsAlongItsPathOnly_data()
{
    QTest::addColumn<Variant>("variant");
    QTest::newRow("live") << Variant::Live;
    QTest::newRow("export") << Variant::Export;
}

void TestStrokeRendering::penPaintsAlongItsPathOnly()
{
    QFETCH(Variant, variant);

    DrawingModel model;
    commitStroke(model, QStringLiteral("pen"), { { 20, 50 }, { 100, 50 }, { 180, 50 } },
                 QStringLiteral("#ff0000"), 6, QString(), 2);
    const QImage image = render(model, variant);

    for (int x = 20; x <= 180; x += 10)
        QCOMPARE(image.pixelColor(QPoint(x, 50)), QColor(Qt::red));
    // The round caps reach 3 beyond the ends; one more pixel of antialiasing.
    const QRect band(16, 46, 169, 8);
    QCOMPARE(countPainted(image, band), countPainted(image, image.rect()));
    QVERIFY(countPainted(image, band) >= 160 * 6);
}

void TestStrokeRendering::exportKeepsLogicalCoordinatesAtScale()
{
    DrawingModel model;
    commitStroke(model, QStringLiteral("pen"), kHorizontal, QStringLiteral("#0000ff"), 6);
    const QImage image = renderStrokesToImage(&model, kCanvas, 2.0, QString());

    QCOMPARE(image.size(), kCanvas * 2);
    QCOMPARE(image.pixelColor(QPoint(200, 100)), QColor(Qt::blue));
    QCOMPARE(bandThickness(image, 200), 12);
    QCOMPARE(countPainted(image, QRect(0, 0, 400, 90)), 0);
}

void TestStrokeRendering::eraserClearsOnlyWhatCameBefore_data()
{
    QTest::addColumn<Variant>("variant");
    QTest::addColumn<QString>("script");
    QTest::addColumn<QColor>("atCrossing");
    QTest::addColumn<QColor>("besideCrossing");

    const QColor none(Qt::transparent);
    const QColor red(Qt::red);
    const QColor blue(Qt::blue);
    for (const Variant variant : { Variant::Live, Variant::Export }) {
        const char *name = variant == Variant::Live ? "live" : "export";
        QTest::addRow("%s: eraser removes the pen under it", name)
            << variant << "pen eraser" << none << red;
        QTest::addRow("%s: a pen after the eraser stays", name)
            << variant << "pen eraser bluepen" << blue << red;
        QTest::addRow("%s: undoing the eraser restores the pen", name)
            << variant << "pen eraser undo" << red << red;
        QTest::addRow("%s: eraser before the pen removes nothing", name)
            << variant << "eraser pen" << red << red;
    }
}

void TestStrokeRendering::eraserClearsOnlyWhatCameBefore()
{
    QFETCH(Variant, variant);
    QFETCH(QString, script);
    QFETCH(QColor, atCrossing);
    QFETCH(QColor, besideCrossing);

    DrawingModel model;
    for (const QString &step : script.split(QLatin1Char(' '))) {
        if (step == QLatin1String("pen"))
            commitStroke(model, QStringLiteral("pen"), kHorizontal, QStringLiteral("#ff0000"), 8);
        else if (step == QLatin1String("eraser"))
            commitStroke(model, QStringLiteral("eraser"), kVertical, QString(), 20);
        else if (step == QLatin1String("bluepen"))
            commitStroke(model, QStringLiteral("pen"), kVertical, QStringLiteral("#0000ff"), 4);
        else if (step == QLatin1String("undo"))
            model.undoLastStroke();
    }
    const QImage image = render(model, variant);
    QCOMPARE(image.pixelColor(QPoint(100, 50)).rgba(), atCrossing.rgba());
    QCOMPARE(image.pixelColor(QPoint(40, 50)).rgba(), besideCrossing.rgba());
    // The eraser's own track leaves no paint of its own.
    if (!script.contains(QLatin1String("bluepen")))
        QCOMPARE(countPainted(image, QRect(85, 0, 30, 40)), 0);
}

void TestStrokeRendering::displayFilter_data()
{
    QTest::addColumn<Variant>("variant");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("strokeDisplay");
    QTest::addColumn<bool>("mirror");
    QTest::addColumn<bool>("painted");

    const auto row = [](const char *name, Variant variant, const char *asked, const char *stroke,
                        bool mirror, bool painted) {
        QTest::newRow(name) << variant << QString(asked) << QString(stroke) << mirror << painted;
    };
    const Variant live = Variant::Live;
    const Variant out = Variant::Export;
    row("export: no id asked gives every stroke", out, "", "LEFT", false, true);
    row("export: stroke without id on every display", out, "RIGHT", "", false, true);
    row("export: same display", out, "LEFT", "LEFT", false, true);
    row("export: other display left out", out, "RIGHT", "LEFT", false, false);
    row("live: own display", live, "LEFT", "LEFT", false, true);
    row("live: other display hidden", live, "RIGHT", "LEFT", false, false);
    row("live: other display mirrored", live, "RIGHT", "LEFT", true, true);
    row("live: stroke without id shows everywhere", live, "RIGHT", "", false, true);
    // Unlike export, an item without an id is not a wildcard.
    row("live: item without id hides identified strokes", live, "", "LEFT", false, false);
}

void TestStrokeRendering::displayFilter()
{
    QFETCH(Variant, variant);
    QFETCH(QString, asked);
    QFETCH(QString, strokeDisplay);
    QFETCH(bool, mirror);
    QFETCH(bool, painted);

    DrawingModel model;
    commitStroke(model, QStringLiteral("pen"), kHorizontal, QStringLiteral("#ff0000"), 6,
                 strokeDisplay);
    if (variant == Variant::Export) {
        const QImage image = renderStrokesToImage(&model, kCanvas, 1.0, asked);
        QCOMPARE(countPainted(image, image.rect()) > 0, painted);
        return;
    }
    DrawingRendererItem item;
    item.setDrawingModel(&model);
    item.setDisplayId(asked);
    item.setMirrorAnnotations(mirror);
    const QImage image = paintItem(item, kCanvas);
    QCOMPARE(countPainted(image, image.rect()) > 0, painted);
    // The window hides the item exactly when it would paint nothing.
    QCOMPARE(item.hasContent(), painted);

    QSignalSpy contentChanged(&item, &DrawingRendererItem::hasContentChanged);
    model.clear();
    QVERIFY(!item.hasContent());
    QCOMPARE(contentChanged.count(), painted ? 1 : 0);
}

void TestStrokeRendering::widthsAndColours_data()
{
    QTest::addColumn<Variant>("variant");
    QTest::addColumn<QString>("tool");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("color");
    QTest::addColumn<int>("thickness");
    QTest::addColumn<QColor>("centre");

    const auto row = [](const char *name, Variant variant, const char *tool, int width,
                        const char *color, int thickness, QColor centre) {
        QTest::newRow(name) << variant << QString(tool) << width << QString(color) << thickness
                            << centre;
    };
    const Variant live = Variant::Live;
    const Variant out = Variant::Export;
    const QColor blue(Qt::blue);
    const QColor glass = QColor::fromRgbF(0, 0, 1, 0.38);
    row("live highlighter at 2 is 14", live, "highlighter", 2, "#0000ff", 14, glass);
    row("export highlighter at 2 is 14", out, "highlighter", 2, "#0000ff", 14, glass);
    row("live highlighter at 4 is 20", live, "highlighter", 4, "#0000ff", 20, glass);
    row("export highlighter at 4 stays 14", out, "highlighter", 4, "#0000ff", 14, glass);
    row("export highlighter at 6 is 18", out, "highlighter", 6, "#0000ff", 18, glass);
    row("highlighter replaces the colour's alpha", live, "highlighter", 4, "#200000ff", 20, glass);
    row("live width 0 takes the default width", live, "pen", 0, "#0000ff", 10, blue);
    row("export width 0 is 6", out, "pen", 0, "#0000ff", 6, blue);
    row("live empty colour is the default colour", live, "pen", 4, "", 4, QColor(Qt::green));
    row("export empty colour is red", out, "pen", 4, "", 4, QColor(Qt::red));
    row("empty tool paints as pen", out, "", 8, "#0000ff", 8, blue);
    row("unknown tool paints as pen", live, "crayon", 8, "#0000ff", 8, blue);
}

void TestStrokeRendering::widthsAndColours()
{
    QFETCH(Variant, variant);
    QFETCH(QString, tool);
    QFETCH(int, width);
    QFETCH(QString, color);
    QFETCH(int, thickness);
    QFETCH(QColor, centre);

    DrawingModel model;
    commitStroke(model, tool, kHorizontal, color, width);
    const QImage image = render(model, variant);

    QCOMPARE(bandThickness(image, 100), thickness);
    const QColor painted = image.pixelColor(QPoint(100, 50));
    QVERIFY2(std::abs(painted.alpha() - centre.alpha()) <= 1
                 && std::abs(painted.red() - centre.red()) <= 3
                 && std::abs(painted.green() - centre.green()) <= 3
                 && std::abs(painted.blue() - centre.blue()) <= 3,
             qPrintable(painted.name(QColor::HexArgb)));
}

void TestStrokeRendering::arrowHeads_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<QPoint>("probe");
    QTest::addColumn<bool>("livePainted");
    QTest::addColumn<bool>("exportPainted");

    // Arrow from (20, 50) to (180, 50).
    QTest::newRow("thin: live head is filled") << 2 << QPoint(170, 47) << true << false;
    QTest::newRow("wide: live head grows, export's stays")
        << 10 << QPoint(150, 60) << true << false;
    QTest::newRow("export wing ends sharp, live is round") << 2 << QPoint(168, 57) << false << true;
    QTest::newRow("shaft on both") << 4 << QPoint(60, 50) << true << true;
}

void TestStrokeRendering::arrowHeads()
{
    QFETCH(int, width);
    QFETCH(QPoint, probe);
    QFETCH(bool, livePainted);
    QFETCH(bool, exportPainted);

    DrawingModel model;
    commitStroke(model, QStringLiteral("arrow"), { { 20, 50 }, { 90, 20 }, { 180, 50 } },
                 QStringLiteral("#ff0000"), width);
    const QImage live = render(model, Variant::Live);
    const QImage exported = render(model, Variant::Export);
    QCOMPARE(qAlpha(live.pixel(probe)) > 128, livePainted);
    QCOMPARE(qAlpha(exported.pixel(probe)) > 128, exportPainted);
}

void TestStrokeRendering::shapesUseFirstAndLastPoint_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QPoint>("painted");
    QTest::addColumn<QPoint>("empty");

    // Drawn from (150, 80) to (50, 20) with a detour through the corners.
    QTest::newRow("rectangle left edge") << "rectangle" << QPoint(50, 50) << QPoint(100, 50);
    QTest::newRow("rectangle top edge") << "rectangle" << QPoint(100, 20) << QPoint(5, 5);
    QTest::newRow("circle top") << "circle" << QPoint(100, 20) << QPoint(51, 21);
    QTest::newRow("circle right") << "circle" << QPoint(150, 50) << QPoint(100, 50);
}

void TestStrokeRendering::shapesUseFirstAndLastPoint()
{
    QFETCH(QString, tool);
    QFETCH(QPoint, painted);
    QFETCH(QPoint, empty);

    DrawingModel model;
    commitStroke(model, tool, { { 150, 80 }, { 0, 0 }, { 199, 99 }, { 50, 20 } },
                 QStringLiteral("#ff0000"), 4, QString(), 3);
    for (const Variant variant : { Variant::Live, Variant::Export }) {
        const QImage image = render(model, variant);
        QCOMPARE(qAlpha(image.pixel(painted)), 255);
        QCOMPARE(qAlpha(image.pixel(empty)), 0);
    }
}

void TestStrokeRendering::onePointPaintsNothing_data()
{
    QTest::addColumn<QString>("tool");
    for (const char *tool : { "pen", "eraser", "highlighter", "rectangle", "circle", "arrow", "" })
        QTest::newRow(*tool ? tool : "no tool") << QString::fromLatin1(tool);
}

void TestStrokeRendering::onePointPaintsNothing()
{
    QFETCH(QString, tool);

    DrawingModel model;
    commitStroke(model, QStringLiteral("pen"), kHorizontal, QStringLiteral("#ff0000"), 10);
    const QImage liveBefore = render(model, Variant::Live);
    const QImage exportBefore = render(model, Variant::Export);
    // A click without a drag: one point, committed, yet nothing changes.
    commitStroke(model, tool, { { 100, 50 } }, QStringLiteral("#0000ff"), 30);
    QCOMPARE(model.strokeList().size(), 2);
    QCOMPARE(render(model, Variant::Live), liveBefore);
    QCOMPARE(render(model, Variant::Export), exportBefore);
}

void TestStrokeRendering::fallsBackToStrokesWhenModelGoes()
{
    DrawingRendererItem item;
    QSignalSpy modelChanged(&item, &DrawingRendererItem::drawingModelChanged);
    const Stroke blue { QStringLiteral("pen"), 6, QStringLiteral("#0000ff"), {}, 0, kVertical };
    item.setStrokes({ blue.toMap() });

    auto model = std::make_unique<DrawingModel>();
    commitStroke(*model, QStringLiteral("pen"), kHorizontal, QStringLiteral("#ff0000"), 6);
    item.setDrawingModel(model.get());
    item.setDrawingModel(model.get());
    QCOMPARE(modelChanged.count(), 1);
    // While a model is set the list is not read.
    QImage image = paintItem(item, kCanvas);
    QCOMPARE(image.pixelColor(QPoint(40, 50)), QColor(Qt::red));
    QCOMPARE(image.pixelColor(QPoint(100, 20)).alpha(), 0);

    model.reset();
    QCOMPARE(modelChanged.count(), 2);
    QCOMPARE(item.drawingModel(), nullptr);
    image = paintItem(item, kCanvas);
    QCOMPARE(image.pixelColor(QPoint(40, 50)).alpha(), 0);
    QCOMPARE(image.pixelColor(QPoint(100, 20)), QColor(Qt::blue));
}

void TestStrokeRendering::parsedMapTakesItemDefaults()
{
    DrawingRendererItem item;
    item.setDefaultColor(QColor(Qt::magenta));
    item.setDefaultWidth(8);
    QVariantList points;
    for (const QPointF &point : kHorizontal)
        points << QVariantMap { { "x", point.x() }, { "y", point.y() } };
    item.setStrokes({ QVariantMap { { "points", points } } });

    const QImage image = paintItem(item, kCanvas);
    QCOMPARE(image.pixelColor(QPoint(100, 50)), QColor(Qt::magenta));
    QCOMPARE(bandThickness(image, 100), 8);
}

QTEST_MAIN(TestStrokeRendering)
#include "tst_strokerendering.moc"
