#include "drawing/MagnifierLensItem.h"
#include "platform/ScreenAreaGrabber.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

namespace {

// Serves a fixed picture and remembers what it was asked for.
class FakeGrabber final : public ScreenAreaGrabber
{
public:
    explicit FakeGrabber(QImage picture, int *calls, QRect *lastArea)
        : m_picture(std::move(picture))
        , m_calls(calls)
        , m_lastArea(lastArea)
    {
    }

    QImage grab(QScreen *, const QRect &area, QWindow *) override
    {
        ++*m_calls;
        *m_lastArea = area;
        return m_picture;
    }

private:
    QImage m_picture;
    int *m_calls;
    QRect *m_lastArea;
};

QImage checkerboard()
{
    QImage image(2, 2, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, qRgb(255, 0, 0));
    image.setPixel(1, 0, qRgb(0, 0, 255));
    image.setPixel(0, 1, qRgb(0, 0, 255));
    image.setPixel(1, 1, qRgb(255, 0, 0));
    return image;
}

QImage paintItem(MagnifierLensItem &item)
{
    QImage target(item.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::transparent);
    QPainter painter(&target);
    item.paint(&painter);
    return target;
}

} // namespace

class TestMagnifierLens : public QObject
{
    Q_OBJECT

private slots:
    void sourceSquare_data()
    {
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<QSizeF>("lens");
        QTest::addColumn<double>("zoom");
        QTest::addColumn<QRect>("expected");

        QTest::newRow("zoom 2 halves the side, centred on the pointer")
            << QPoint(500, 400) << QSizeF(202, 202) << 2.0 << QRect(450, 350, 101, 101);
        QTest::newRow("the larger side of a non-square lens counts")
            << QPoint(500, 400) << QSizeF(100, 200) << 2.0 << QRect(450, 350, 100, 100);
        QTest::newRow("a tiny lens at zoom 4 still grabs 16 pixels")
            << QPoint(10, 10) << QSizeF(20, 20) << 4.0 << QRect(2, 2, 16, 16);
        QTest::newRow("odd sides truncate the half towards zero")
            << QPoint(0, 0) << QSizeF(99, 99) << 3.0 << QRect(-16, -16, 33, 33);
    }

    void sourceSquare()
    {
        QFETCH(QPoint, pointer);
        QFETCH(QSizeF, lens);
        QFETCH(double, zoom);
        QFETCH(QRect, expected);
        QCOMPARE(MagnifierLensItem::sourceSquare(pointer, lens, zoom), expected);
    }

    void zoomIsBoundedAndComparedFirst()
    {
        MagnifierLensItem item;
        QSignalSpy spy(&item, &MagnifierLensItem::zoomFactorChanged);
        item.setZoomFactor(2.0);
        QCOMPARE(spy.count(), 0);
        item.setZoomFactor(9.0);
        QCOMPARE(item.zoomFactor(), 4.0);
        item.setZoomFactor(4.5);
        QCOMPARE(spy.count(), 1);
        item.setZoomFactor(0.5);
        QCOMPARE(item.zoomFactor(), 1.25);
        QCOMPARE(spy.count(), 2);
    }

    void activationGrabsAtOnceAndDeactivationDropsThePicture()
    {
        int calls = 0;
        QRect lastArea;
        MagnifierLensItem item;
        item.setSize(QSizeF(100, 100));
        item.setGrabber(std::make_unique<FakeGrabber>(checkerboard(), &calls, &lastArea));
        QSignalSpy spy(&item, &MagnifierLensItem::activeChanged);

        item.setActive(true);
        QCOMPARE(calls, 1); // no wait for the first timer tick
        QCOMPARE(spy.count(), 1);
        QVERIFY(QGuiApplication::primaryScreen()->geometry().contains(lastArea));
        QCOMPARE(paintItem(item).pixelColor(25, 25), QColor(255, 0, 0));

        QTRY_VERIFY(calls >= 3); // the 33 ms timer keeps grabbing

        item.setActive(false);
        const int callsWhenStopped = calls;
        QTest::qWait(100);
        QCOMPARE(calls, callsWhenStopped);
        // Without a picture the lens shows a dark disc, never the old frame.
        const QColor centre = paintItem(item).pixelColor(50, 50);
        QCOMPARE(centre.alpha(), 220);
        QVERIFY(centre.red() < 20 && centre.blue() < 30);
    }

    void paintsEnlargedWithoutFilteringInsideTheDisc()
    {
        int calls = 0;
        QRect lastArea;
        MagnifierLensItem item;
        item.setSize(QSizeF(102, 102));
        item.setGrabber(std::make_unique<FakeGrabber>(checkerboard(), &calls, &lastArea));
        item.setActive(true);
        const QImage painted = paintItem(item);
        // Hard squares: the colour flips exactly at the middle, no blend.
        QCOMPARE(painted.pixelColor(40, 40), QColor(255, 0, 0));
        QCOMPARE(painted.pixelColor(49, 40), QColor(255, 0, 0));
        QCOMPARE(painted.pixelColor(53, 40), QColor(0, 0, 255));
        QCOMPARE(painted.pixelColor(53, 53), QColor(255, 0, 0));
        // Corners lie outside the round clip.
        QCOMPARE(painted.pixelColor(3, 3).alpha(), 0);
        QCOMPARE(painted.pixelColor(98, 98).alpha(), 0);
    }
};

QTEST_MAIN(TestMagnifierLens)
#include "tst_magnifierlens.moc"
