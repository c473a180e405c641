#include "drawing/MagnifierLensItem.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QRasterWindow>
#include <QScreen>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(GlimmoraAppPlugin)

namespace {

// Every pixel has its own colour, so a lens pixel tells where it came from.
QColor patternAt(int x, int y)
{
    return QColor(x % 256, y % 256, 128);
}

class PatternWindow : public QRasterWindow
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QImage image(size(), QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixelColor(x, y, patternAt(x, y));
        QPainter(this).drawImage(0, 0, image);
    }
};

} // namespace

class TestMagnifierX11 : public QObject
{
    Q_OBJECT

private slots:
    void lensShowsWhatLiesBelowEnlargedAndNeverItself()
    {
        PatternWindow pattern;
        pattern.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
        pattern.setGeometry(100, 100, 400, 400);
        pattern.show();
        QVERIFY(QTest::qWaitForWindowExposed(&pattern));

        QQmlEngine engine;
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nimport GlimmoraApp\n"
                          "Window { flags: Qt.Window | Qt.FramelessWindowHint | "
                          "Qt.WindowStaysOnTopHint | Qt.BypassWindowManagerHint\n"
                          "  color: 'transparent'; x: 200; y: 200; width: 200; height: 200\n"
                          "  MagnifierLensItem { objectName: 'lens'; anchors.fill: parent; "
                          "zoomFactor: 2 } }",
                          QUrl());
        std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        auto *window = qobject_cast<QQuickWindow *>(object.get());
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        auto *lens = window->findChild<MagnifierLensItem *>(QStringLiteral("lens"));
        QVERIFY(lens);

        QCursor::setPos(300, 300);
        QTRY_COMPARE(QCursor::pos(), QPoint(300, 300));
        lens->setActive(true);

        // The grab is the 100-pixel square around the pointer, global
        // 250..349, which is 150..249 inside the pattern window; it fills the
        // lens from 1 to 199 without filtering.
        QScreen *screen = QGuiApplication::screenAt(QPoint(300, 300));
        QVERIFY(screen);
        auto lensPixelMatches = [&](int lx, int ly) {
            const QImage shown =
                screen->grabWindow(0, 200 - screen->geometry().x(), 200, 200, 200).toImage();
            const int sx = 150 + (lx - 1) * 100 / 198;
            const int sy = 150 + (ly - 1) * 100 / 198;
            const QColor got = shown.pixelColor(lx, ly);
            const QColor want = patternAt(sx, sy);
            return qAbs(got.red() - want.red()) <= 2 && qAbs(got.green() - want.green()) <= 2
                && qAbs(got.blue() - 128) <= 2;
        };
        QTRY_VERIFY_WITH_TIMEOUT(lensPixelMatches(100, 100), 3000);
        for (const QPoint &p :
             { QPoint(60, 100), QPoint(140, 100), QPoint(100, 60), QPoint(100, 140) })
            QVERIFY2(lensPixelMatches(p.x(), p.y()),
                     qPrintable(QStringLiteral("lens pixel %1,%2").arg(p.x()).arg(p.y())));

        // Ten more frames later the picture is still the pattern, not a
        // picture of the lens feeding on itself.
        QTest::qWait(400);
        QVERIFY(lensPixelMatches(100, 100));
        QVERIFY(lensPixelMatches(70, 130));
    }
};

QTEST_MAIN(TestMagnifierX11)
#include "tst_magnifier_x11.moc"
