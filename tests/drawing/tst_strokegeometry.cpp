#include "drawing/StrokeGeometry.h"

#include <QTest>

#include <cmath>

using Points = QList<QPointF>;

static bool fuzzyEqual(QPointF a, QPointF b)
{
    return std::abs(a.x() - b.x()) < 1e-9 && std::abs(a.y() - b.y()) < 1e-9;
}

// One letter per drawing step: M move, L line, Q curve. QPainterPath keeps a
// quadratic as a cubic of three elements, so a Q spans three indices.
static QString shapeOf(const QPainterPath &path)
{
    QString shape;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo())
            shape += QLatin1Char('M');
        else if (element.isLineTo())
            shape += QLatin1Char('L');
        else if (element.type == QPainterPath::CurveToElement)
            shape += QLatin1Char('Q');
    }
    return shape;
}

class TestStrokeGeometry : public QObject
{
    Q_OBJECT

private slots:
    void smoothing_data();
    void smoothing();
    void smoothingReadsRawPointsOnly();
    void path_data();
    void path();
    void arrowWings_data();
    void arrowWings();
    void roundedTriangleCorners();
    void roundedTriangleWithCoincidentCorners();
};

void TestStrokeGeometry::smoothing_data()
{
    QTest::addColumn<Points>("input");
    QTest::addColumn<int>("level");
    QTest::addColumn<Points>("expected");

    const Points four { { 0, 0 }, { 3, 3 }, { 6, 0 }, { 9, 9 } };
    const Points six { { 0, 0 }, { 6, 0 }, { 0, 6 }, { 12, 0 }, { 0, 12 }, { 30, 30 } };

    // Radius 2 at index 1 and 2 of four points covers all four: one mean.
    const Points fourAt3 { { 0, 0 }, { 4.5, 3 }, { 4.5, 3 }, { 9, 9 } };
    // The level 3 window shrinks near both ends.
    const Points sixAt3 { { 0, 0 },
                          { 18.0 / 4, 6.0 / 4 },
                          { 18.0 / 5, 18.0 / 5 },
                          { 48.0 / 5, 48.0 / 5 },
                          { 42.0 / 4, 48.0 / 4 },
                          { 30, 30 } };
    const Points three { { 0, 0 }, { 10, 10 }, { 20, 0 } };
    QTest::newRow("level 0 passes through") << four << 0 << four;
    QTest::newRow("level 1 passes through") << four << 1 << four;
    QTest::newRow("negative level passes through") << six << -1 << six;
    QTest::newRow("three points are never filtered") << three << 3 << three;
    QTest::newRow("level 2 averages three neighbours")
        << four << 2 << Points { { 0, 0 }, { 3, 1 }, { 6, 4 }, { 9, 9 } };
    QTest::newRow("level 3 on four points") << four << 3 << fourAt3;
    QTest::newRow("level 3 on six points") << six << 3 << sixAt3;
    QTest::newRow("levels above 3 use the level 3 window") << six << 7 << sixAt3;
}

void TestStrokeGeometry::smoothing()
{
    QFETCH(Points, input);
    QFETCH(int, level);
    QFETCH(Points, expected);

    const Points output = StrokeGeometry::smoothPoints(input, level);
    QCOMPARE(output.size(), expected.size());
    for (qsizetype i = 0; i < output.size(); ++i)
        QVERIFY2(
            fuzzyEqual(output[i], expected[i]),
            qPrintable(
                QStringLiteral("point %1: (%2, %3)").arg(i).arg(output[i].x()).arg(output[i].y())));
}

void TestStrokeGeometry::smoothingReadsRawPointsOnly()
{
    // A running filter would feed its own output back: index 2 would then
    // see the smoothed index 1 instead of the raw 10.
    const Points input { { 0, 0 }, { 10, 0 }, { 0, 0 }, { 0, 0 }, { 0, 0 } };
    const Points output = StrokeGeometry::smoothPoints(input, 2);
    QVERIFY(fuzzyEqual(output[1], QPointF(10.0 / 3, 0)));
    QVERIFY(fuzzyEqual(output[2], QPointF(10.0 / 3, 0)));
    QVERIFY(fuzzyEqual(output[3], QPointF(0, 0)));
}

void TestStrokeGeometry::path_data()
{
    QTest::addColumn<Points>("points");
    QTest::addColumn<bool>("curved");
    QTest::addColumn<QString>("shape");

    const Points two { { 0, 0 }, { 10, 0 } };
    const Points three { { 0, 0 }, { 10, 10 }, { 20, 0 } };
    const Points five { { 0, 0 }, { 10, 10 }, { 20, 0 }, { 30, 10 }, { 40, 0 } };

    QTest::newRow("two points are a line even when curved") << two << true << "ML";
    QTest::newRow("three points curved: one quad and a closing line") << three << true << "MQL";
    QTest::newRow("three points straight: a polyline") << three << false << "MLL";
    QTest::newRow("five points curved: three quads and a line") << five << true << "MQQQL";
    QTest::newRow("one point: a lone move") << Points { { 1, 1 } } << true << "M";
}

void TestStrokeGeometry::path()
{
    QFETCH(Points, points);
    QFETCH(bool, curved);
    QFETCH(QString, shape);

    const QPainterPath path = StrokeGeometry::smoothedPath(points, curved);
    QCOMPARE(shapeOf(path), shape);
    QCOMPARE(path.elementAt(0).x, points.first().x());
    QCOMPARE(QPointF(path.elementAt(path.elementCount() - 1)), points.last());
    if (curved && points.size() >= 3) {
        // The first quad ends halfway between the second and third sample.
        QCOMPARE(QPointF(path.elementAt(3)), (points[1] + points[2]) / 2.0);
    }
}

void TestStrokeGeometry::arrowWings_data()
{
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<QPointF>("first");
    QTest::addColumn<QPointF>("second");

    const qreal c = std::cos(M_PI / 6) * 20;
    QTest::newRow("pointing right")
        << QPointF(0, 0) << QPointF(100, 0) << QPointF(100 - c, 10) << QPointF(100 - c, -10);
    QTest::newRow("pointing down")
        << QPointF(50, 0) << QPointF(50, 100) << QPointF(40, 100 - c) << QPointF(60, 100 - c);
    QTest::newRow("no length points right")
        << QPointF(7, 7) << QPointF(7, 7) << QPointF(7 - c, 17) << QPointF(7 - c, -3);
}

void TestStrokeGeometry::arrowWings()
{
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    QFETCH(QPointF, first);
    QFETCH(QPointF, second);

    const auto wings = StrokeGeometry::arrowWings(from, to, 20);
    QVERIFY2(fuzzyEqual(wings.first, first),
             qPrintable(QStringLiteral("%1, %2").arg(wings.first.x()).arg(wings.first.y())));
    QVERIFY2(fuzzyEqual(wings.second, second),
             qPrintable(QStringLiteral("%1, %2").arg(wings.second.x()).arg(wings.second.y())));
}

void TestStrokeGeometry::roundedTriangleCorners()
{
    const QPointF a(0, 0), b(10, 0), c(0, 10);
    const QPainterPath path = StrokeGeometry::roundedTriangle(a, b, c, 2);
    QCOMPARE(shapeOf(path), QStringLiteral("MQLQLQL"));
    const qreal d = 2 / std::sqrt(2.0);
    QVERIFY(fuzzyEqual(path.elementAt(0), QPointF(0, 2))); // aS, towards C
    QVERIFY(fuzzyEqual(path.elementAt(3), QPointF(2, 0))); // aE, towards B
    QVERIFY(fuzzyEqual(path.elementAt(4), QPointF(8, 0))); // bS
    QVERIFY(fuzzyEqual(path.elementAt(7), QPointF(10 - d, d))); // bE
    QVERIFY(fuzzyEqual(path.elementAt(8), QPointF(d, 10 - d))); // cS
    QVERIFY(fuzzyEqual(path.elementAt(11), QPointF(0, 8))); // cE
    QVERIFY(path.contains(QPointF(3, 3)));
    QVERIFY(!path.contains(QPointF(0.2, 0.2))); // the corner is cut
}

void TestStrokeGeometry::roundedTriangleWithCoincidentCorners()
{
    // Corners on top of each other have no direction: the offsets vanish
    // instead of turning into NaN.
    const QPainterPath path =
        StrokeGeometry::roundedTriangle(QPointF(5, 5), QPointF(5, 5), QPointF(9, 5), 3);
    for (int i = 0; i < path.elementCount(); ++i) {
        QVERIFY(std::isfinite(path.elementAt(i).x));
        QVERIFY(std::isfinite(path.elementAt(i).y));
    }
    QVERIFY(fuzzyEqual(path.elementAt(0), QPointF(8, 5)));
    QVERIFY(fuzzyEqual(path.elementAt(3), QPointF(5, 5)));
}

QTEST_GUILESS_MAIN(TestStrokeGeometry)
#include "tst_strokegeometry.moc"
