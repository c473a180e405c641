// The spotlight and the floating toolbar of the assembled program on the real
// X server with its two monitors, driven through XTest like a presenter would.
#include "AssembledApp.h"
#include "ProbeClient.h"
#include "XTestSession.h"
#include "app/AppController.h"
#include "drawing/DrawingModel.h"
#include "settings/SettingsManager.h"

#include <QApplication>
#include <QFile>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

QScreen *screenNamed(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            return screen;
    }
    return nullptr;
}

QPoint centreOf(const QQuickItem *item)
{
    return item->mapToGlobal(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

} // namespace

class TestPresentationX11 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(screenNamed("LEFT") && screenNamed("RIGHT"), "needs the monitors LEFT and RIGHT");
        QVERIFY(m_user.isValid());
    }

    void spotlightDarkensAllButTheDiscAtThePointer_data()
    {
        QTest::addColumn<bool>("activeDisplayOnly");
        QTest::newRow("every display") << false;
        QTest::newRow("active display only") << true;
    }

    void spotlightDarkensAllButTheDiscAtThePointer()
    {
        QFETCH(bool, activeDisplayOnly);
        const QPoint pointer(600, 500);
        const QPoint farOnLeft(1700, 1000);
        const QPoint onRight(2500, 500);
        m_user.moveTo(pointer);
        const int background = settledGreyAt(farOnLeft);
        QCOMPARE(greyAt(onRight), background);

        AssembledApp app;
        QVERIFY(app.isValid());
        app.settings().setFirstRunDone(true);
        app.settings().setSpotlightActiveDisplayOnly(activeDisplayOnly);
        app.controller().setTool(QStringLiteral("spotlight"));

        const int expectedDark = qRound(background * (1.0 - app.settings().darknessOpacity()));
        QTRY_VERIFY2(qAbs(greyAt(farOnLeft) - expectedDark) <= 4,
                     qPrintable(QStringLiteral("far from the pointer: %1, expected about %2")
                                    .arg(greyAt(farOnLeft))
                                    .arg(expectedDark)));
        QCOMPARE(greyAt(pointer), background);
        // The other monitor is dark all over, or untouched when only the
        // display under the pointer shows the mask.
        if (activeDisplayOnly)
            QCOMPARE(greyAt(onRight), background);
        else
            QTRY_VERIFY2(qAbs(greyAt(onRight) - expectedDark) <= 4,
                         qPrintable(QStringLiteral("on the right: %1, expected about %2")
                                        .arg(greyAt(onRight))
                                        .arg(expectedDark)));

        // A click in the spotlight shows a ripple in the left-click colour
        // (orange) around the point, on top of the mask.
        // Held as long as a person's click: the 16 ms poll must see it down.
        m_user.press(1);
        QTest::qWait(60);
        m_user.release(1);
        QTRY_VERIFY_WITH_TIMEOUT(isOrange(pointer), 400);
        // It fades away again.
        QTRY_VERIFY_WITH_TIMEOUT(qAbs(greyAt(pointer) - background) <= 2, 3000);

        // Back to the cursor tool the mask goes.
        app.controller().setTool(QStringLiteral("cursor"));
        QTRY_COMPARE(greyAt(farOnLeft), background);
    }

    void toolbarButtonsActAndItsZoneEndsWhereItSays()
    {
        ProbeClient client;
        QVERIFY(client.start(QRect(0, 0, 1920, 1080)));
        AssembledApp app;
        QVERIFY(app.isValid());
        app.settings().setFirstRunDone(true);
        app.settings().setOverlayControlsAlwaysVisible(true);
        QQuickItem *pen = nullptr;
        QTRY_VERIFY((pen = app.hudItem(QStringLiteral("tool-pen"))) && pen->isVisible());
        QTRY_VERIFY(app.controller().toolbarRect().width() > 0);

        clickAt(centreOf(pen));
        QTRY_COMPARE(app.controller().currentTool(), QStringLiteral("pen"));

        clickAt(centreOf(app.hudItem(QStringLiteral("swatch-0"))));
        QTRY_COMPARE(app.controller().currentPenColor().toUpper(), QStringLiteral("#F05D5D"));

        // Three quarters along the track is round(1 + 0.75 * 31).
        const QQuickItem *track = app.hudItem(QStringLiteral("sizeTrack"));
        QVERIFY(track);
        clickAt(track->mapToGlobal(QPointF(track->width() * 0.75, track->height() / 2)).toPoint());
        QTRY_COMPARE(app.settings().brushSize(), 24);

        // A stroke dragged on the overlay, then undone from the toolbar.
        m_user.moveTo(QPoint(400, 600));
        QTest::qWait(50);
        m_user.press(1);
        for (int x = 420; x <= 700; x += 20)
            m_user.moveTo(QPoint(x, 600));
        m_user.release(1);
        QTRY_COMPARE(app.drawing().strokeList().size(), 1);
        // The controls window takes the mouse once the poll has seen the pointer
        // over the toolbar.
        m_user.moveTo(centreOf(app.hudItem(QStringLiteral("undoButton"))));
        QTRY_VERIFY(app.controller().hudInteractive());
        clickAt(centreOf(app.hudItem(QStringLiteral("undoButton"))));
        QTRY_COMPARE(app.drawing().strokeList().size(), 0);
        QCOMPARE(client.pressCount(), 0);

        // With the cursor tool the overlay lets clicks through, except inside
        // the band around the toolbar, 24 wider than it on each side.
        app.controller().setTool(QStringLiteral("cursor"));
        const QRectF toolbar = app.controller().toolbarRect();
        const int bandLeft = qFloor((1920 - toolbar.width()) / 2 - 24);
        const int y = qRound(toolbar.center().y());
        clickAt(QPoint(bandLeft - 1, y));
        QTRY_COMPARE(client.pressCount(), 1);
        clickAt(QPoint(bandLeft + 1, y));
        QTest::qWait(150);
        QCOMPARE(client.pressCount(), 1);
    }

    void darknessZeroLeavesTheScreenAlone()
    {
        const QPoint probe(300, 300);
        const int background = settledGreyAt(probe);
        QQuickWindow window;
        window.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
        window.setColor(Qt::transparent);
        window.setGeometry(0, 0, 800, 600);
        QQmlEngine engine;
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        QQmlComponent component(&engine);
        component.setData("import GlimmoraApp\nSpotlightRenderer { width: 800; height: 600; "
                          "centerX: 700; centerY: 500; darkness: 0 }",
                          QUrl());
        std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        auto *item = qobject_cast<QQuickItem *>(object.get());
        item->setParentItem(window.contentItem());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(200);
        QCOMPARE(greyAt(probe), background);
        // The same mask with darkness does darken there: the check can fail.
        item->setProperty("darkness", 0.5);
        QTRY_VERIFY(greyAt(probe) < background - 30);
    }

private:
    int greyAt(const QPoint &global) { return qGray(m_user.rootPixel(global)); }

    // The grey level once the screen has stopped changing there: windows of an
    // earlier test may still be leaving the compositor's picture.
    int settledGreyAt(const QPoint &global)
    {
        int previous = greyAt(global);
        for (int stable = 0, tries = 0; stable < 3 && tries < 50; ++tries) {
            QTest::qWait(50);
            const int now = greyAt(global);
            stable = now == previous ? stable + 1 : 0;
            previous = now;
        }
        return previous;
    }

    // The default left-click colour #F4A65A blended over grey.
    bool isOrange(const QPoint &global)
    {
        const QRgb pixel = m_user.rootPixel(global);
        return qRed(pixel) - qBlue(pixel) > 60;
    }

    // Moves, lets the 16 ms poll see the pointer there, then clicks.
    void clickAt(const QPoint &global)
    {
        m_user.moveTo(global);
        QTest::qWait(200);
        m_user.press(1);
        QTest::qWait(30);
        m_user.release(1);
    }

    XTestSession m_user;
};

int main(int argc, char *argv[])
{
    // Settings and logs of this run stay in a scratch home.
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Orvelline"));
    QCoreApplication::setApplicationName(QStringLiteral("Glimmora"));
    TestPresentationX11 test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_presentation_x11.moc"
